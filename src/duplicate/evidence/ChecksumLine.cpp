#include "duplicate/evidence/ChecksumLine.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvana
{

namespace
{

using Refusal = tl::unexpected<std::string>;

constexpr std::string_view Xxh3Start = "XXH3_";
constexpr std::string_view BetweenPathAndDigest = ") = ";

struct Tag
{
    std::string_view name;
    DigestFormat format;
};

constexpr std::array Tags{
    Tag{"MD5", DigestFormat::Md5},     Tag{"SHA1", DigestFormat::Sha1}, Tag{"SHA256", DigestFormat::Sha256},
    Tag{"XXH64", DigestFormat::Xxh64}, Tag{"XXH3", DigestFormat::Xxh3}, Tag{"XXH128", DigestFormat::Xxh128},
};

bool isOfXxhsum(DigestFormat format)
{
    return format == DigestFormat::Xxh128 || format == DigestFormat::Xxh64 || format == DigestFormat::Xxh3;
}

constexpr std::array<std::pair<char, char>, 3> Escapes{{{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}}};

std::optional<std::string> withoutEscapes(std::string_view path)
{
    std::string plain;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != '\\') {
            plain += path[i];
            continue;
        }
        const char letter = ++i < path.size() ? path[i] : '\0';
        const auto *const escape = std::find_if(Escapes.begin(), Escapes.end(),
                                                [&](const auto &known) { return known.second == letter; });
        if (escape == Escapes.end())
            return std::nullopt;
        plain += escape->first;
    }
    return plain;
}

// Returns the path without the "./" that "find" puts in front, or nullopt when it leads out of the folder.
std::optional<std::string> pathBelow(std::string path)
{
    while (path.starts_with("./"))
        path.erase(0, 2);
    const auto parts = "/" + path + "/";
    if (path.empty() || path.find('\0') != std::string::npos || parts.find("//") != std::string::npos ||
        parts.find("/./") != std::string::npos || parts.find("/../") != std::string::npos)
        return std::nullopt;
    return path;
}

// Returns the expected format if the digits can be of it, otherwise the format that alone has that many
// digits.
std::optional<DigestFormat> formatOf(std::string_view digits, std::optional<DigestFormat> expected)
{
    if (expected && isDigest(*expected, digits))
        return expected;
    for (const auto format : {DigestFormat::Sha256, DigestFormat::Sha1, DigestFormat::Xxh64}) {
        if (isDigest(format, digits))
            return format;
    }
    return std::nullopt;
}

std::string inLowerCase(std::string_view digits)
{
    std::string lower(digits);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'F' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

tl::expected<ChecksumLine, std::string> readTagged(std::string_view line, const Tag &tag)
{
    const auto start = tag.name.size() + 2;
    const auto end = line.rfind(BetweenPathAndDigest);
    if (end == std::string_view::npos || end < start)
        return Refusal("has no digest behind the path");
    const auto digits = line.substr(end + BetweenPathAndDigest.size());
    if (!isDigest(tag.format, digits))
        return Refusal("has no " + std::string(nameOf(tag.format)) + " digest");
    return ChecksumLine{tag.format, inLowerCase(digits), std::string(line.substr(start, end - start))};
}

tl::expected<ChecksumLine, std::string> readPlain(std::string_view line, std::optional<DigestFormat> expected)
{
    if (line.starts_with(Xxh3Start)) {
        line.remove_prefix(Xxh3Start.size());
        expected = DigestFormat::Xxh3;
    }
    const auto blank = line.find(' ');
    if (blank == std::string_view::npos || blank + 2 > line.size() ||
        (line[blank + 1] != ' ' && line[blank + 1] != '*'))
        return Refusal("is not \"digest, two blanks, path\"");
    const auto digits = line.substr(0, blank);
    const auto format = formatOf(digits, expected);
    if (!format)
        return Refusal("begins with no digest that is known or expected");
    return ChecksumLine{*format, inLowerCase(digits), std::string(line.substr(blank + 2))};
}

} // namespace

std::optional<std::string> textOf(const ChecksumLine &line)
{
    std::string path;
    for (const char letter : line.path) {
        const auto *const escape = std::find_if(Escapes.begin(), Escapes.end(),
                                                [&](const auto &known) { return known.first == letter; });
        if (escape == Escapes.end())
            path += letter;
        else
            path.append(1, '\\').append(1, escape->second);
    }
    const bool isEscaped = path != line.path;
    if (line.format == DigestFormat::C4 || !pathBelow(line.path) ||
        (isEscaped && isOfXxhsum(line.format) && line.path.find_first_of("\n\r") != std::string::npos))
        return std::nullopt;
    if (isOfXxhsum(line.format))
        return (line.format == DigestFormat::Xxh3 ? std::string(Xxh3Start) : "") + line.digest + "  " +
               line.path;
    return (isEscaped ? "\\" : "") + line.digest + "  " + path;
}

tl::expected<std::optional<ChecksumLine>, std::string> readChecksumLine(std::string_view line,
                                                                        std::optional<DigestFormat> expected)
{
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (line.empty() || line.front() == '#')
        return std::nullopt;
    const bool isEscaped = line.front() == '\\';
    if (isEscaped)
        line.remove_prefix(1);
    const auto *const tag = std::find_if(Tags.begin(), Tags.end(), [&](const Tag &known) {
        return line.starts_with(known.name) && line.substr(known.name.size()).starts_with(" (");
    });
    auto read = tag == Tags.end() ? readPlain(line, expected) : readTagged(line, *tag);
    if (!read)
        return Refusal(read.error());
    auto path = isEscaped ? withoutEscapes(read->path) : std::optional(read->path);
    if (!path)
        return Refusal("has an unknown escape in its path");
    path = pathBelow(std::move(*path));
    if (!path)
        return Refusal("has a path that does not lie below the folder");
    read->path = std::move(*path);
    return *read;
}

} // namespace orvana
