#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The patterns of what a history leaves out, in the syntax of gitignore(5). Paths are bytes below the folder
/// of the history.
class IgnorePatterns
{
public:
    /// Patterns that every history begins with: ".DS_Store", "ascmhl" and "ascmhl/".
    static const std::vector<std::string> &defaults();

    /// Returns a pattern that matches the path alone, and what lies below it.
    static std::string patternOf(std::string_view path);

    explicit IgnorePatterns(const std::vector<std::string> &patterns = defaults());

    /// True when the path, or a folder above it, is left out.
    bool matches(std::string_view path, bool isFolder) const;

private:
    struct Pattern
    {
        std::vector<std::string> parts; ///< between the slashes; "**" stands for any number of names
        bool isExcluded = true;         ///< false after "!"
        bool isFolderOnly = false;
    };

    bool matchesItself(const std::vector<std::string_view> &names, std::size_t count, bool isFolder) const;

    std::vector<Pattern> m_patterns;
};

} // namespace orvana
