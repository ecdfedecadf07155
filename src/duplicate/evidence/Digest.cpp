#include "duplicate/evidence/Digest.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <openssl/evp.h>
#include <stdexcept>
#include <vector>
#include <xxhash.h>

namespace orvana
{

namespace
{

constexpr std::string_view Base58 = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";
constexpr std::string_view C4Start = "c4";
constexpr std::size_t C4Length = 90; // with "c4"

std::string hexadecimal(std::span<const unsigned char> bytes)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const auto byte : bytes) {
        text += Digits[byte >> 4U];
        text += Digits[byte & 15U];
    }
    return text;
}

// The bytes as one large number, in digits of base 58, filled up with the digit for zero.
std::string c4Text(std::span<const unsigned char> bytes)
{
    std::vector<unsigned char> number(bytes.begin(), bytes.end());
    std::string digits(C4Length - C4Start.size(), Base58.front());
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        unsigned rest = 0;
        for (auto &byte : number) { // divides the number by 58
            const unsigned part = rest * 256 + byte;
            byte = static_cast<unsigned char>(part / 58);
            rest = part % 58;
        }
        *digit = Base58[rest];
    }
    return std::string(C4Start) + digits;
}

// The reverse of `c4Text`.
std::string bytesOfC4(std::string_view text)
{
    constexpr std::size_t Size = 64; // bytes of SHA-512
    std::string number(Size, '\0');
    for (const char letter : text.substr(C4Start.size())) {
        auto carry = static_cast<unsigned>(Base58.find(letter));
        for (auto byte = number.rbegin(); byte != number.rend(); ++byte) { // times 58, and the digit
            carry += static_cast<unsigned char>(*byte) * 58U;
            *byte = static_cast<char>(carry & 255U);
            carry >>= 8U;
        }
    }
    return number;
}

unsigned valueOf(char digit)
{
    if (digit <= '9')
        return static_cast<unsigned>(digit - '0');
    return static_cast<unsigned>((digit | ' ') - 'a') + 10U;
}

struct Named
{
    DigestFormat format;
    std::string_view name;
    std::size_t length;
};

constexpr std::array Formats{
    Named{DigestFormat::Xxh128, "xxh128", 32}, Named{DigestFormat::Xxh64, "xxh64", 16},
    Named{DigestFormat::Xxh3, "xxh3", 16},     Named{DigestFormat::Md5, "md5", 32},
    Named{DigestFormat::Sha1, "sha1", 40},     Named{DigestFormat::C4, "c4", C4Length},
    Named{DigestFormat::Sha256, "sha256", 64},
};

const Named &entryOf(DigestFormat format)
{
    return *std::find_if(Formats.begin(), Formats.end(),
                         [&](const Named &entry) { return entry.format == format; });
}

template <auto Free>
struct FreeWith
{
    template <class Object>
    void operator()(Object *object) const
    {
        Free(object);
    }
};

} // namespace

std::string bytesOfDigest(DigestFormat format, std::string_view text)
{
    if (format == DigestFormat::C4)
        return bytesOfC4(text);
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        bytes += static_cast<char>(valueOf(text[i]) << 4U | valueOf(text[i + 1]));
    return bytes;
}

class Digest::Maker
{
public:
    Maker() = default;
    virtual ~Maker() = default;
    Maker(const Maker &) = delete;
    Maker &operator=(const Maker &) = delete;

    virtual void add(std::span<const char> block) = 0;
    virtual std::string text() = 0;
};

class Digest::XxhMaker : public Maker
{
public:
    XxhMaker() : m_state(XXH64_createState())
    {
        if (!m_state || XXH64_reset(m_state.get(), 0) != XXH_OK)
            throw std::bad_alloc();
    }

    void add(std::span<const char> block) override
    {
        XXH64_update(m_state.get(), block.data(), block.size());
    }

    std::string text() override
    {
        XXH64_canonical_t bytes{};
        XXH64_canonicalFromHash(&bytes, XXH64_digest(m_state.get()));
        return hexadecimal(bytes.digest);
    }

private:
    std::unique_ptr<XXH64_state_t, FreeWith<XXH64_freeState>> m_state;
};

class Digest::Xxh3Maker : public Maker
{
public:
    enum class Width { Bits64, Bits128 };

    explicit Xxh3Maker(Width width) : m_width(width), m_state(XXH3_createState())
    {
        if (!m_state || reset() != XXH_OK)
            throw std::bad_alloc();
    }

    void add(std::span<const char> block) override
    {
        if (m_width == Width::Bits64)
            XXH3_64bits_update(m_state.get(), block.data(), block.size());
        else
            XXH3_128bits_update(m_state.get(), block.data(), block.size());
    }

    std::string text() override
    {
        if (m_width == Width::Bits64) {
            XXH64_canonical_t bytes{};
            XXH64_canonicalFromHash(&bytes, XXH3_64bits_digest(m_state.get()));
            return hexadecimal(bytes.digest);
        }
        XXH128_canonical_t bytes{};
        XXH128_canonicalFromHash(&bytes, XXH3_128bits_digest(m_state.get()));
        return hexadecimal(bytes.digest);
    }

private:
    XXH_errorcode reset()
    {
        return m_width == Width::Bits64 ? XXH3_64bits_reset(m_state.get())
                                        : XXH3_128bits_reset(m_state.get());
    }

    const Width m_width;
    std::unique_ptr<XXH3_state_t, FreeWith<XXH3_freeState>> m_state;
};

class Digest::OpenSslMaker : public Maker
{
public:
    enum class Form { Hexadecimal, C4 };

    OpenSslMaker(const EVP_MD *kind, Form form) : m_form(form), m_context(EVP_MD_CTX_new())
    {
        if (!m_context)
            throw std::bad_alloc();
        if (EVP_DigestInit_ex(m_context.get(), kind, nullptr) != 1)
            throw std::runtime_error("the system's library does not offer this digest");
    }

    void add(std::span<const char> block) override
    {
        EVP_DigestUpdate(m_context.get(), block.data(), block.size());
    }

    std::string text() override
    {
        std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
        unsigned length = 0;
        EVP_DigestFinal_ex(m_context.get(), bytes.data(), &length);
        const std::span digest(bytes.data(), length);
        return m_form == Form::C4 ? c4Text(digest) : hexadecimal(digest);
    }

private:
    const Form m_form;
    std::unique_ptr<EVP_MD_CTX, FreeWith<EVP_MD_CTX_free>> m_context;
};

std::string_view nameOf(DigestFormat format)
{
    return entryOf(format).name;
}

std::optional<DigestFormat> digestFormatNamed(std::string_view name)
{
    for (const auto &entry : Formats) {
        if (entry.name == name)
            return entry.format;
    }
    return std::nullopt;
}

std::size_t lengthOf(DigestFormat format)
{
    return entryOf(format).length;
}

bool isDigest(DigestFormat format, std::string_view text)
{
    if (text.size() != lengthOf(format))
        return false;
    if (format == DigestFormat::C4)
        return text.starts_with(C4Start) &&
               text.find_first_not_of(Base58, C4Start.size()) == std::string_view::npos;
    return text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

Digest::Digest(DigestFormat format)
{
    using Form = OpenSslMaker::Form;
    switch (format) {
    case DigestFormat::Xxh128:
        m_maker = std::make_unique<Xxh3Maker>(Xxh3Maker::Width::Bits128);
        break;
    case DigestFormat::Xxh64:
        m_maker = std::make_unique<XxhMaker>();
        break;
    case DigestFormat::Xxh3:
        m_maker = std::make_unique<Xxh3Maker>(Xxh3Maker::Width::Bits64);
        break;
    case DigestFormat::Md5:
        m_maker = std::make_unique<OpenSslMaker>(EVP_md5(), Form::Hexadecimal);
        break;
    case DigestFormat::Sha1:
        m_maker = std::make_unique<OpenSslMaker>(EVP_sha1(), Form::Hexadecimal);
        break;
    case DigestFormat::C4:
        m_maker = std::make_unique<OpenSslMaker>(EVP_sha512(), Form::C4);
        break;
    case DigestFormat::Sha256:
        m_maker = std::make_unique<OpenSslMaker>(EVP_sha256(), Form::Hexadecimal);
        break;
    }
}

Digest::~Digest() = default;
Digest::Digest(Digest &&) noexcept = default;
Digest &Digest::operator=(Digest &&) noexcept = default;

void Digest::add(std::span<const char> block)
{
    m_maker->add(block);
}

std::string Digest::text()
{
    return m_maker->text();
}

} // namespace orvana
