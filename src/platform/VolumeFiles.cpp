#include "platform/VolumeFiles.h"

namespace orvana::platform
{

namespace
{

constexpr std::size_t SizeOfPiece = std::size_t{64} * 1024; // bytes

} // namespace

void NameList::add(std::string_view name)
{
    if (m_pieces.empty()) {
        m_pieces.emplace_back(); // it grows as it needs: most folders are small
    } else if (m_pieces.back().size() + name.size() >= SizeOfPiece) {
        m_pieces.emplace_back();
        m_pieces.back().reserve(SizeOfPiece);
    }
    m_pieces.back().append(name) += '\0';
}

std::string_view NameList::takeNext()
{
    if (isPieceTaken()) {
        std::string().swap(m_pieces[m_piece]); // gives the memory back
        ++m_piece;
        m_next = 0;
    }
    const std::string_view name(m_pieces[m_piece].c_str() + m_next);
    m_next += name.size() + 1;
    return name;
}

} // namespace orvana::platform
