#include "duplicate/journal/JournalFile.h"

#include <span>

namespace orvana
{

using platform::Expected;

namespace
{

constexpr std::size_t Piece = 65'536;

// Longer than the longest line, which holds the selection of a run.
constexpr std::size_t LongestLine = 4 * LongestJob;

constexpr std::size_t UsualLine = 1024;

constexpr std::uint32_t OwnerOnly = 0600;

} // namespace

Expected<JournalFile> JournalFile::create(const platform::Folder &folder, const std::string &name)
{
    platform::Attributes like;
    like.permissions = OwnerOnly;
    auto file = folder.createFile(name, like);
    if (!file)
        return tl::unexpected(file.error());
    return JournalFile(std::move(*file), 0);
}

Expected<JournalFile> JournalFile::open(const platform::Folder &folder, const std::string &name, Use use)
{
    auto file =
        folder.openFile(name, use == Use::Read ? platform::Access::Read : platform::Access::ReadAndWrite);
    if (!file)
        return tl::unexpected(file.error());
    const auto attributes = (*file)->attributes();
    if (!attributes)
        return tl::unexpected(attributes.error());
    JournalFile journal(std::move(*file), attributes->size);
    // The last line may be torn, and must not spoil the next one.
    if (use == Use::Append && attributes->size > 0) {
        if (const auto ended = journal.append("\n"); !ended)
            return tl::unexpected(ended.error());
    }
    return journal;
}

Expected<void> JournalFile::append(std::string_view lines)
{
    const auto written = m_file->write(std::as_bytes(std::span(lines)), m_end);
    if (!written)
        return written;
    m_end += lines.size();
    return m_file->sync();
}

void JournalFile::read(std::uint64_t offset, const Take &take) const
{
    std::string text;
    std::string piece(Piece, '\0');
    for (std::uint64_t next = offset;;) {
        const auto count = m_file->read(std::as_writable_bytes(std::span(piece)), next);
        if (!count || *count == 0)
            return;
        next += *count;
        text.append(piece, 0, *count);
        std::size_t start = 0;
        for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
            const auto line = parseLine(std::string_view(text).substr(start, end - start));
            if (line && !take(*line, offset + start))
                return;
            start = end + 1;
        }
        // Bytes without an end of line, as a power cut may leave them, are not gathered for ever.
        if (text.size() - start > LongestLine)
            start = text.size();
        offset += start;
        text.erase(0, start);
    }
}

std::optional<JournalLine> JournalFile::lineAt(std::uint64_t offset) const
{
    // Few lines are long.
    for (const auto length : {UsualLine, LongestLine}) {
        std::string text(length, '\0');
        const auto count = m_file->read(std::as_writable_bytes(std::span(text)), offset);
        const auto end = count ? std::string_view(text).substr(0, *count).find('\n') : std::string::npos;
        if (end != std::string::npos)
            return parseLine(std::string_view(text).substr(0, end));
    }
    return std::nullopt;
}

} // namespace orvana
