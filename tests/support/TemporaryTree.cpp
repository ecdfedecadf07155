#include "support/TemporaryTree.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/xattr.h>

namespace fs = std::filesystem;

namespace orvana::test
{

TemporaryTree::TemporaryTree(const std::string &parent)
{
    const auto base = parent.empty() ? fs::temp_directory_path().native() : parent;
    std::string pattern = base + "/orvana-test-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary folder in " + base);
    m_root = pattern;
}

TemporaryTree::~TemporaryTree()
{
    // "rm" can remove folders without permissions, and paths that are too long for one call.
    const std::string command = "chmod -R u+rwX '" + m_root + "' 2>/dev/null; rm -rf '" + m_root + "'";
    if (std::system(command.c_str()) != 0)
        ADD_FAILURE() << m_root << " could not be removed";
}

std::string TemporaryTree::folder(std::string_view relative) const
{
    fs::create_directories(path(relative));
    return path(relative);
}

std::string TemporaryTree::file(std::string_view relative, std::string_view content) const
{
    fs::create_directories(fs::path(path(relative)).parent_path());
    std::ofstream(path(relative), std::ios::binary) << content;
    return path(relative);
}

std::string TemporaryTree::link(std::string_view relative, const std::string &target) const
{
    fs::create_directories(fs::path(path(relative)).parent_path());
    fs::create_symlink(target, path(relative));
    return path(relative);
}

std::string TemporaryTree::read(std::string_view relative) const
{
    return contentOf(path(relative));
}

bool TemporaryTree::exists(std::string_view relative) const
{
    return pathExists(path(relative));
}

std::string contentOf(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path << " is missing";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool pathExists(const std::string &path)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

std::string patternOf(std::size_t size, unsigned seed)
{
    std::string bytes(size, '\0');
    std::uint32_t state = seed * 2654435761U + 1;
    for (auto &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

bool hideExtension(const std::string &path)
{
    unsigned char info[32] = {};
    info[9] = 0x10;
    return ::setxattr(path.c_str(), "user.com.apple.FinderInfo", info, sizeof info, 0) == 0;
}

std::vector<std::string> treeOf(const std::string &root)
{
    std::vector<std::string> paths;
    for (const auto &entry : fs::recursive_directory_iterator(root))
        paths.push_back(entry.path().lexically_relative(root).native());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::vector<std::string> namesIn(const std::string &folder)
{
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().native());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace orvana::test
