#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvana::test
{

/// A folder of its own for one test, removed with everything in it at the end.
class TemporaryTree
{
public:
    /// Below the system's temporary folder, or below `parent`.
    explicit TemporaryTree(const std::string &parent = std::string());
    ~TemporaryTree();
    TemporaryTree(const TemporaryTree &) = delete;
    TemporaryTree &operator=(const TemporaryTree &) = delete;

    const std::string &root() const { return m_root; }
    std::string path(std::string_view relative) const { return m_root + "/" + std::string(relative); }

    /// Makes a folder with those above it and returns its path.
    std::string folder(std::string_view relative) const;

    /// Writes a file, making the folders above it, and returns its path.
    std::string file(std::string_view relative, std::string_view content = "content") const;

    std::string link(std::string_view relative, const std::string &target) const;

    std::string read(std::string_view relative) const;
    bool exists(std::string_view relative) const;

private:
    std::string m_root;
};

/// The content of the file; a missing file fails the test.
std::string contentOf(const std::string &path);

bool pathExists(const std::string &path);

/// Returns `size` bytes whose pattern repeats only after a long distance.
std::string patternOf(std::size_t size, unsigned seed = 1);

/// Marks the file's extension as hidden; false where the file system has no such attributes.
bool hideExtension(const std::string &path);

/// Relative paths of everything below `root`, sorted.
std::vector<std::string> treeOf(const std::string &root);

/// Returns the names of the entries of the folder itself, sorted.
std::vector<std::string> namesIn(const std::string &folder);

} // namespace orvana::test
