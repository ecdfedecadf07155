#pragma once

#include "foundation/PathObject.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvana
{

/// A row of the log viewer's list: the folder of the logs, or a log in it. A folder lists its logs, newest
/// first, when they are first requested, and then keeps them for the life of the node.
///
/// The tree has one root for the whole program. Everything here is used on the main thread.
class LogFileSystemItem
{
public:
    using Children = std::vector<std::unique_ptr<LogFileSystemItem>>;

    /// Class-wide: the root path; never null.
    static const PathObject &repoRoot();

    /// Class-wide, callable on any node: sets the root path. Another path object drops the tree, even if its
    /// text is the same. A null path counts as a new empty path.
    void setrepoRootPath(PathObject path);

    /// Class-wide: the root. It is made from the root path if there is no root yet. The tree lives for as
    /// long as somebody holds its root.
    static std::shared_ptr<LogFileSystemItem> rootItem();

    /// For a root, `path` is the whole path. Otherwise it is the entry's name in `parent`, which must outlive
    /// the node.
    explicit LogFileSystemItem(const std::string &path, LogFileSystemItem *parent = nullptr);

    /// The last component of the path, also for the root.
    const std::string &relativePath() const { return m_relativePath; }
    LogFileSystemItem *parent() const { return m_parent; }

    /// Position among the parent's children; 0 for a root.
    std::size_t row() const { return m_row; }

    /// The path that the root was made from, and the names below it. The working folder does not matter.
    std::string fullPath() const;

    /// A node that is no folder returns the one shared leaf marker. A folder that cannot be read returns an
    /// empty list of its own. Only the root may be a link to a folder, so that the list cannot run in
    /// circles.
    const Children &children();
    const Children &childrens() { return children(); }

    /// The list that marks a leaf. It is recognised by its address.
    static const Children &leafMarker();

    /// Number of children; -1 for a leaf.
    std::int64_t numberOfChildren();

    /// `n` must be below `numberOfChildren`.
    LogFileSystemItem *childAtIndex(std::size_t n) { return children().at(n).get(); }

private:
    bool isFolder() const;
    void build();

    std::string m_path; // as given to the constructor
    std::string m_relativePath;
    LogFileSystemItem *m_parent;
    std::size_t m_row = 0;
    std::shared_ptr<Children> m_children; // null until first requested
};

} // namespace orvana
