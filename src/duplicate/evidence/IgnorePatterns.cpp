#include "duplicate/evidence/IgnorePatterns.h"

#include <algorithm>
#include <optional>

namespace orvana
{

namespace
{

constexpr std::string_view AnyNames = "**";

std::vector<std::string_view> split(std::string_view path)
{
    std::vector<std::string_view> parts;
    while (true) {
        const auto slash = path.find('/');
        parts.push_back(path.substr(0, slash));
        if (slash == std::string_view::npos)
            return parts;
        path.remove_prefix(slash + 1);
    }
}

// Tests one letter against the set that begins at `pattern[at]` with "[". Returns the place behind the set
// if the letter is in it, 0 if not, and nullopt if the set has no end.
std::optional<std::size_t> afterSet(std::string_view pattern, std::size_t at, char letter)
{
    bool isInverted = false;
    bool isIn = false;
    auto i = at + 1;
    if (i < pattern.size() && (pattern[i] == '!' || pattern[i] == '^')) {
        isInverted = true;
        ++i;
    }
    const auto first = i;
    for (; i < pattern.size() && (pattern[i] != ']' || i == first); ++i) {
        if (pattern[i] == '\\' && i + 1 < pattern.size())
            ++i;
        const char low = pattern[i];
        char high = low;
        if (i + 2 < pattern.size() && pattern[i + 1] == '-' && pattern[i + 2] != ']') {
            high = pattern[i + 2];
            i += 2;
        }
        isIn = isIn || (static_cast<unsigned char>(low) <= static_cast<unsigned char>(letter) &&
                        static_cast<unsigned char>(letter) <= static_cast<unsigned char>(high));
    }
    if (i >= pattern.size())
        return std::nullopt;
    return isIn != isInverted ? i + 1 : 0;
}

// Matches one letter at `pattern[at]`, which is no star. Returns the place behind it, or 0.
std::size_t afterLetter(std::string_view pattern, std::size_t at, char letter)
{
    if (pattern[at] == '?')
        return at + 1;
    if (pattern[at] == '[') {
        if (const auto after = afterSet(pattern, at, letter))
            return *after;
    }
    if (pattern[at] == '\\' && at + 1 < pattern.size())
        ++at;
    return pattern[at] == letter ? at + 1 : 0;
}

// Only the last star is ever tried again, so the time stays below length times length.
bool matchesName(std::string_view pattern, std::string_view name)
{
    std::size_t at = 0;
    std::size_t read = 0;
    std::size_t star = std::string_view::npos;
    std::size_t readAtStar = 0;
    while (read < name.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = ++at;
            readAtStar = read;
            continue;
        }
        const auto after = at < pattern.size() ? afterLetter(pattern, at, name[read]) : 0;
        if (after != 0) {
            at = after;
            ++read;
        } else if (star != std::string_view::npos) {
            at = star;
            read = ++readAtStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

// As `matchesName`, with names for letters and "**" for the star.
bool matchesNames(const std::vector<std::string> &parts, const std::vector<std::string_view> &names,
                  std::size_t count)
{
    std::size_t at = 0;
    std::size_t read = 0;
    std::size_t star = std::string_view::npos;
    std::size_t readAtStar = 0;
    while (read < count) {
        if (at < parts.size() && parts[at] == AnyNames) {
            star = ++at;
            readAtStar = read;
        } else if (at < parts.size() && matchesName(parts[at], names[read])) {
            ++at;
            ++read;
        } else if (star != std::string_view::npos) {
            at = star;
            read = ++readAtStar;
        } else {
            return false;
        }
    }
    return at == parts.size();
}

std::string_view withoutBlanksAtTheEnd(std::string_view line)
{
    while (line.ends_with(' ') && !line.ends_with("\\ "))
        line.remove_suffix(1);
    return line;
}

} // namespace

const std::vector<std::string> &IgnorePatterns::defaults()
{
    static const std::vector<std::string> patterns{".DS_Store", "ascmhl", "ascmhl/"};
    return patterns;
}

std::string IgnorePatterns::patternOf(std::string_view path)
{
    std::string pattern = "/";
    for (const char letter : path) {
        if (std::string_view("*?[\\ ").find(letter) != std::string_view::npos)
            pattern += '\\';
        pattern += letter;
    }
    return pattern;
}

IgnorePatterns::IgnorePatterns(const std::vector<std::string> &patterns)
{
    for (std::string_view line : patterns) {
        line = withoutBlanksAtTheEnd(line);
        Pattern pattern;
        if (line.starts_with('!')) {
            pattern.isExcluded = false;
            line.remove_prefix(1);
        }
        if (line.ends_with('/')) {
            pattern.isFolderOnly = true;
            line.remove_suffix(1);
        }
        if (line.empty() || line.front() == '#')
            continue;
        // A pattern without a slash is about a name anywhere.
        const bool isAnywhere = line.find('/') == std::string_view::npos;
        if (line.starts_with('/'))
            line.remove_prefix(1);
        if (isAnywhere)
            pattern.parts.emplace_back(AnyNames);
        for (const auto part : split(line)) {
            if (part != AnyNames || pattern.parts.empty() || pattern.parts.back() != AnyNames)
                pattern.parts.emplace_back(part);
        }
        // "a/**" is about what lies in the folder, not the folder.
        if (pattern.parts.size() > 1 && pattern.parts.back() == AnyNames)
            pattern.parts.emplace_back("*");
        m_patterns.push_back(std::move(pattern));
    }
}

bool IgnorePatterns::matchesItself(const std::vector<std::string_view> &names, std::size_t count,
                                   bool isFolder) const
{
    const auto last = std::find_if(m_patterns.rbegin(), m_patterns.rend(), [&](const Pattern &pattern) {
        return (isFolder || !pattern.isFolderOnly) && matchesNames(pattern.parts, names, count);
    });
    return last != m_patterns.rend() && last->isExcluded;
}

bool IgnorePatterns::matches(std::string_view path, bool isFolder) const
{
    const auto names = split(path);
    for (std::size_t count = 1; count <= names.size(); ++count) {
        if (matchesItself(names, count, isFolder || count < names.size()))
            return true;
    }
    return false;
}

} // namespace orvana
