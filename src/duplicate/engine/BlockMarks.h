#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orvana
{

/// Remembers each block of the file in hand by a digest, to know later whether the source still reads as it
/// did when it was copied. Needs eight bytes for each block.
class BlockMarks
{
public:
    void start() { m_marks.clear(); }

    /// Adds the next block of the file.
    void add(std::span<const std::byte> block);

    /// True when the block at `offset`, a multiple of `BlockSize`, was added and was this one.
    bool isSame(std::uint64_t offset, std::span<const std::byte> block) const;

private:
    std::vector<std::uint64_t> m_marks;
};

} // namespace orvana
