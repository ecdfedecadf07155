#pragma once

#include "diskutil/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace orvana::diskutil
{

/// A whole disk, open to be read and written past the memory of the system, and to nobody else. Offsets and
/// lengths are multiples of 4096 bytes, and so are the addresses of the bytes.
class RawDisk
{
public:
    virtual ~RawDisk() = default;

    virtual std::uint64_t size() const = 0;

    /// Returns the number of the disk's arrival, as the open disk itself says it.
    virtual Outcome<std::uint64_t> sequence() const = 0;

    virtual Outcome<void> write(std::uint64_t offset, std::span<const std::byte> bytes) = 0;
    virtual Outcome<void> read(std::uint64_t offset, std::span<std::byte> bytes) = 0;

    /// Waits until everything is on the disk.
    virtual Outcome<void> sync() = 0;
};

/// Takes over an open descriptor of a block device. The trouble names `node`.
Outcome<std::unique_ptr<RawDisk>> rawDiskOf(int descriptor, const std::string &node);

} // namespace orvana::diskutil
