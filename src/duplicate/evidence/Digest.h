#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Evidence of what is on a disk: digests of files, and lists of them.
namespace orvana
{

/// A way to make a digest. The names are those of ASC MHL.
enum class DigestFormat {
    Xxh128, ///< XXH3 with 128 bits: as fast as memory, and no defence against a forger
    Xxh64,
    Xxh3, ///< XXH3 with 64 bits
    Md5,
    Sha1,
    C4, ///< SHA-512, written as SMPTE ST 2114 says
    Sha256,
};

inline constexpr std::array AllDigestFormats{DigestFormat::Xxh128, DigestFormat::Xxh64, DigestFormat::Xxh3,
                                             DigestFormat::Md5,    DigestFormat::Sha1,  DigestFormat::C4,
                                             DigestFormat::Sha256};

/// "xxh128", "xxh64", "xxh3", "md5", "sha1", "c4" or "sha256"
std::string_view nameOf(DigestFormat format);

std::optional<DigestFormat> digestFormatNamed(std::string_view name);

/// Number of characters of a digest's text: 32 for md5.
std::size_t lengthOf(DigestFormat format);

/// True for a text that can be a digest of the format. Upper case is right in hexadecimal digits; C4 tells
/// upper case from lower case.
bool isDigest(DigestFormat format, std::string_view text);

/// Returns the bytes that the digest's text stands for: 16 for md5. The text must be a digest of the format.
std::string bytesOfDigest(DigestFormat format, std::string_view text);

/// Makes one digest out of blocks. Movable; not thread-safe. Throws std::bad_alloc when there is no memory,
/// and std::runtime_error when the system's library does not offer the format, as a system in FIPS mode does
/// for md5.
class Digest
{
public:
    explicit Digest(DigestFormat format);
    ~Digest();
    Digest(Digest &&) noexcept;
    Digest &operator=(Digest &&) noexcept;

    void add(std::span<const char> block);

    /// Returns the digest of all blocks: hexadecimal in lower case, or C4's own form. To be called once,
    /// after the last block.
    std::string text();

private:
    class Maker;
    class XxhMaker;
    class Xxh3Maker;
    class OpenSslMaker;

    std::unique_ptr<Maker> m_maker;
};

} // namespace orvana
