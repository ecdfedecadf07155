#pragma once

#include "foundation/PathObject.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvana
{

/// A row of the log viewer's list: the folder of the logs, or a log in it. A folder's logs are listed when
/// they are first asked for, newest first, and then kept for the life of the node.
///
/// The tree has one root for the whole program. Everything here is used on the main thread.
class LogFileSystemItem
{
public:
    using Children = std::vector<std::unique_ptr<LogFileSystemItem>>;

    /// Class-wide: the root path; never null.
    static const PathObject &repoRoot();

    /// Class-wide, through any node: another path object drops the tree, even when its text is the same. A
    /// null path counts as a new empty one.
    void setrepoRootPath(PathObject path);

    /// Class-wide: the root, made of the root path when there is none yet. Who holds it keeps its tree.
    static std::shared_ptr<LogFileSystemItem> rootItem();

    /// `path` is a whole path for a root, else the entry's name in `parent`, which must outlive the node.
    explicit LogFileSystemItem(const std::string &path, LogFileSystemItem *parent = nullptr);

    /// The last component of the path, for the root too.
    const std::string &relativePath() const { return m_relativePath; }
    LogFileSystemItem *parent() const { return m_parent; }

    /// Position among the parent's children; 0 for a root.
    std::size_t row() const { return m_row; }

    /// Begins with the whole path that the root was made of, whatever the working folder is.
    std::string fullPath() const;

    /// Anything that is no folder gives the one shared leaf marker, an unreadable folder an empty list of
    /// its own. A link is never taken for a folder, but for the root: the list must not run in circles.
    const Children &children();
    const Children &childrens() { return children(); }

    /// The object that marks a leaf, told by its identity.
    static const Children &leafMarker();

    /// -1 for a leaf.
    std::int64_t numberOfChildren();

    /// `n` must be below `numberOfChildren`.
    LogFileSystemItem *childAtIndex(std::size_t n) { return children().at(n).get(); }

private:
    bool isFolder() const;
    void build();

    std::string m_path; // as given
    std::string m_relativePath;
    LogFileSystemItem *m_parent;
    std::size_t m_row = 0;
    std::shared_ptr<Children> m_children; // null until asked for
};

} // namespace orvana
