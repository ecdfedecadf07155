#include "duplicate/engine/BlockMarks.h"

#include "duplicate/engine/CopyJob.h"

#include <xxhash.h>

namespace orvana
{

void BlockMarks::add(std::span<const std::byte> block)
{
    m_marks.push_back(XXH3_64bits(block.data(), block.size()));
}

bool BlockMarks::isSame(std::uint64_t offset, std::span<const std::byte> block) const
{
    const auto index = offset / BlockSize;
    return index < m_marks.size() && m_marks[index] == XXH3_64bits(block.data(), block.size());
}

} // namespace orvana
