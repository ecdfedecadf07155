#include "diskutil/CapacityProbe.h"

#include "foundation/SizeText.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <random>
#include <set>
#include <vector>

namespace orvana::diskutil
{

namespace
{

constexpr std::size_t BlockBytes = 4096;
constexpr std::size_t Places = 64;
constexpr std::uint64_t FirstPower = 256; // in blocks; fakes hold more than 1 MiB
constexpr std::uint64_t LastPart = 64;
constexpr std::size_t PieceBytes = 1'048'576;
constexpr std::uint64_t OtherPieces = 64;

/// Memory at an address that direct reading and writing accept.
class AlignedBytes
{
public:
    explicit AlignedBytes(std::size_t size)
        : m_size(size), m_bytes(static_cast<std::byte *>(std::aligned_alloc(BlockBytes, size)))
    {
        if (!m_bytes)
            throw std::bad_alloc();
    }
    ~AlignedBytes() { std::free(m_bytes); }
    AlignedBytes(const AlignedBytes &) = delete;
    AlignedBytes &operator=(const AlignedBytes &) = delete;

    std::span<std::byte> bytes() const { return {m_bytes, m_size}; }

private:
    std::size_t m_size;
    std::byte *m_bytes;
};

class Probe
{
public:
    explicit Probe(RawDisk &disk)
        : m_disk(disk), m_blocks(disk.size() / BlockBytes), m_salt(salt()), m_random(m_salt)
    {
    }

    std::optional<std::string> run()
    {
        if (m_blocks == 0)
            return "it has no room at all";
        choosePlaces();
        for (const auto place : m_places) {
            fill(place);
            if (const auto done = m_disk.write(place * BlockBytes, m_block.bytes()); !done)
                return "it cannot be written at " + textOf(place) + ": " + done.error().reason;
        }
        if (const auto lie = check())
            return lie;
        if (const auto lie = writeElsewhere())
            return lie;
        return check();
    }

private:
    static std::uint64_t salt()
    {
        std::random_device random;
        return (std::uint64_t{random()} << 32U) | random();
    }

    static std::string textOf(std::uint64_t block)
    {
        return block == 0 ? "its beginning" : sizeText(block * BlockBytes);
    }

    // A smaller disk inside begins again, or ends, at a power of two or at a fraction of what the disk says:
    // a chip's addresses lack their highest bits.
    void choosePlaces()
    {
        for (const std::uint64_t place : {std::uint64_t{0}, std::uint64_t{1}, m_blocks - 1, m_blocks - 2})
            m_places.insert(std::min(place, m_blocks - 1));
        for (auto power = FirstPower; power < m_blocks; power *= 2) {
            m_places.insert(power - 1);
            m_places.insert(power);
        }
        for (std::uint64_t part = 2; part <= LastPart; part *= 2) {
            m_places.insert(m_blocks / part);
            m_places.insert(m_blocks - 1 - m_blocks / part);
        }
        while (m_places.size() < std::min<std::uint64_t>(Places, m_blocks))
            m_places.insert(m_random() % m_blocks);
    }

    // Each block names its own place, so that one that comes back elsewhere is known.
    void fill(std::uint64_t place)
    {
        std::mt19937_64 content(m_salt ^ place);
        const auto bytes = m_block.bytes();
        std::memcpy(bytes.data(), &m_salt, sizeof m_salt);
        std::memcpy(bytes.data() + sizeof m_salt, &place, sizeof place);
        for (std::size_t i = 2 * sizeof place; i < bytes.size(); i += sizeof place) {
            const auto word = content();
            std::memcpy(bytes.data() + i, &word, sizeof word);
        }
    }

    std::optional<std::string> check()
    {
        if (const auto synced = m_disk.sync(); !synced)
            return "what was written does not get onto it: " + synced.error().reason;
        for (const auto place : m_places) {
            const auto found = m_found.bytes();
            if (const auto done = m_disk.read(place * BlockBytes, found); !done)
                return "it cannot be read at " + textOf(place) + ": " + done.error().reason;
            fill(place);
            if (std::equal(found.begin(), found.end(), m_block.bytes().begin()))
                continue;
            std::uint64_t marks[2] = {};
            std::memcpy(marks, found.data(), sizeof marks);
            if (marks[0] == m_salt && m_places.contains(marks[1]))
                return "at " + textOf(place) + " is what was written at " + textOf(marks[1]);
            return "what was written at " + textOf(place) + " is not there";
        }
        return std::nullopt;
    }

    // In the lower half, so that the blocks at the end, which matter most, are read again. Those that are
    // written over are not.
    std::optional<std::string> writeElsewhere()
    {
        const auto blocksOfPiece = PieceBytes / BlockBytes;
        const auto pieces = std::min<std::uint64_t>(OtherPieces, m_blocks / 2 / blocksOfPiece);
        const auto most = m_blocks / 2 / blocksOfPiece - pieces;
        const auto first = (most > 0 ? m_random() % most : 0) * blocksOfPiece;
        const AlignedBytes piece(PieceBytes);
        for (std::uint64_t i = 0; i < pieces; ++i) {
            const auto bytes = piece.bytes();
            for (std::size_t at = 0; at < bytes.size(); at += sizeof(std::uint64_t)) {
                const auto word = m_random();
                std::memcpy(bytes.data() + at, &word, sizeof word);
            }
            const auto begin = first + i * blocksOfPiece;
            if (const auto done = m_disk.write(begin * BlockBytes, bytes); !done)
                return "it cannot be written at " + textOf(begin) + ": " + done.error().reason;
        }
        m_places.erase(m_places.lower_bound(first), m_places.lower_bound(first + pieces * blocksOfPiece));
        return std::nullopt;
    }

    RawDisk &m_disk;
    const std::uint64_t m_blocks;
    const std::uint64_t m_salt;
    std::mt19937_64 m_random;
    std::set<std::uint64_t> m_places;
    const AlignedBytes m_block{BlockBytes};
    const AlignedBytes m_found{BlockBytes};
};

} // namespace

std::optional<std::string> capacityLieOf(RawDisk &disk)
{
    return Probe(disk).run();
}

} // namespace orvana::diskutil
