#pragma once

#include "diskutil/RawDisk.h"

#include <cstring>
#include <deque>
#include <map>
#include <vector>

namespace orvana::diskutil
{

/// A disk in memory that may be another one than it says.
class PlayedRawDisk final : public RawDisk
{
public:
    enum class Beyond {
        Wraps,    ///< what lies beyond its real end is written to its beginning
        Swallows, ///< what is written beyond its real end is lost
        Fails,    ///< beyond its real end it gives errors
    };

    static constexpr std::size_t Block = 4096;

    explicit PlayedRawDisk(std::uint64_t size) : m_size(size), realSize(size) {}

    std::uint64_t size() const override { return m_size; }
    Outcome<std::uint64_t> sequence() const override { return number; }

    Outcome<void> write(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        for (std::size_t done = 0; done < bytes.size(); done += Block) {
            const std::vector<std::byte> block(bytes.begin() + static_cast<std::ptrdiff_t>(done),
                                               bytes.begin() + static_cast<std::ptrdiff_t>(done + Block));
            bytesWritten += Block;
            if (isBeyond(offset + done) && beyond == Beyond::Fails)
                return trouble(SomethingFailed, "played error");
            remember(offset + done, block);
            if (!isBeyond(offset + done) || beyond == Beyond::Wraps)
                m_blocks[(offset + done) % realSize] = block;
        }
        return {};
    }

    Outcome<void> read(std::uint64_t offset, std::span<std::byte> bytes) override
    {
        std::memset(bytes.data(), 0, bytes.size());
        if (const auto known = m_memory.find(offset); known != m_memory.end()) {
            std::memcpy(bytes.data(), known->second.data(), Block);
            return {};
        }
        if (isBeyond(offset) && beyond == Beyond::Fails)
            return trouble(SomethingFailed, "played error");
        if (isBeyond(offset) && beyond == Beyond::Swallows)
            return {};
        if (const auto found = m_blocks.find(offset % realSize); found != m_blocks.end())
            std::memcpy(bytes.data(), found->second.data(), Block);
        return {};
    }

    Outcome<void> sync() override { return {}; }

private:
    bool isBeyond(std::uint64_t offset) const { return offset >= realSize; }

    void remember(std::uint64_t offset, const std::vector<std::byte> &block)
    {
        if (memory == 0)
            return;
        m_memory[offset] = block;
        m_order.push_back(offset);
        while (m_order.size() * Block > memory) {
            m_memory.erase(m_order.front());
            m_order.pop_front();
        }
    }

    std::uint64_t m_size;
    std::map<std::uint64_t, std::vector<std::byte>> m_blocks;
    std::map<std::uint64_t, std::vector<std::byte>> m_memory;
    std::deque<std::uint64_t> m_order;

public:
    std::uint64_t realSize;
    Beyond beyond = Beyond::Wraps;
    std::uint64_t memory = 0; ///< bytes that the disk answers from its own memory, the newest writes
    std::uint64_t number = 7;
    std::uint64_t bytesWritten = 0;
};

/// Passes everything on to a disk that the test keeps.
class BorrowedRawDisk final : public RawDisk
{
public:
    explicit BorrowedRawDisk(RawDisk &disk) : m_disk(disk) {}

    std::uint64_t size() const override { return m_disk.size(); }
    Outcome<std::uint64_t> sequence() const override { return m_disk.sequence(); }
    Outcome<void> write(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        return m_disk.write(offset, bytes);
    }
    Outcome<void> read(std::uint64_t offset, std::span<std::byte> bytes) override
    {
        return m_disk.read(offset, bytes);
    }
    Outcome<void> sync() override { return m_disk.sync(); }

private:
    RawDisk &m_disk;
};

} // namespace orvana::diskutil
