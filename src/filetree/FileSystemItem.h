#pragma once

#include "foundation/PathObject.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

namespace platform
{
class Host;
}

/// A file or folder of the source volume, with its check mark. A folder's entries are read when they are
/// first asked for, and then kept for the life of the node.
///
/// The tree has one root for the whole program. Everything here is used on the main thread.
class FileSystemItem
{
public:
    using Children = std::vector<std::unique_ptr<FileSystemItem>>;

    /// Check states.
    static constexpr std::int64_t On = 1;
    static constexpr std::int64_t Off = 0;
    static constexpr std::int64_t Mixed = -1;

    /// Class-wide: makes the tree read from this host, and sets an empty root path. The host must outlive all
    /// use of this class. Called once at start-up, before any other function of this class.
    static void useHost(platform::Host &host);

    /// Class-wide: the root path; never null.
    static const PathObject &repoRoot();

    /// Class-wide, callable on any node: sets the root path. Another path object drops the tree, even if its
    /// text is the same. The same object keeps the tree and all its check marks. A null path counts as a new
    /// empty path.
    void setrepoRootPath(PathObject path);

    /// Class-wide: the root. It is made from the root path if there is no root yet.
    static std::shared_ptr<FileSystemItem> rootItem();

    /// For a root, `path` is the whole path. Otherwise it is the entry's name in `parent`, which must outlive
    /// the node.
    explicit FileSystemItem(std::string path, FileSystemItem *parent = nullptr);

    const std::string &relativePath() const { return m_relativePath; }
    FileSystemItem *parent() const { return m_parent; }

    /// Position among the parent's children; 0 for a root.
    std::size_t row() const { return m_row; }

    std::string fullPath() const;

    /// The entries that pass the rules for what is shown, in the order of the file system. A node that is no
    /// folder returns the one shared leaf marker. A folder that cannot be read returns an empty list of its
    /// own.
    const Children &children();

    /// The list that marks a leaf. It is recognised by its address.
    static const Children &leafMarker();

    /// True if the node is not a folder. Does not read the folder's entries.
    bool isLeaf();

    /// Number of children; -1 for a leaf.
    std::int64_t numberOfChildren();

    /// `n` must be below `numberOfChildren`.
    FileSystemItem *childAtIndex(std::size_t n);

    /// The children read so far. Empty for a leaf, and for a folder whose children were never requested.
    const Children &builtChildren() const { return m_children ? *m_children : leafMarker(); }

    std::int64_t isChecked() const { return m_selected; }

    /// Sets the check state. On and off also reach every descendant read so far; mixed stays on this node. No
    /// parent ever changes.
    void setChecked(std::int64_t state);

    bool isExpand() const { return m_expanded; }
    void setExpanded(bool expanded) { m_expanded = expanded; }

    /// The present attributes in the file system, or nullopt if they cannot be read.
    std::optional<platform::Attributes> attributes() const;

    /// An image of the window's toolkit. The node itself never sets it.
    const std::shared_ptr<const void> &icon() const { return m_icon; }
    void setIcon(std::shared_ptr<const void> icon) { m_icon = std::move(icon); }

private:
    struct ClassState;
    static ClassState &classState();
    static bool isFolder(const std::string &path);

    void build();
    void append(std::string name, const platform::Expected<platform::Attributes> &read);

    std::string m_relativePath;
    FileSystemItem *m_parent;
    std::shared_ptr<Children> m_children; // null until first requested
    std::shared_ptr<const void> m_icon;
    std::int64_t m_selected = On;
    std::uint32_t m_row = 0;
    bool m_expanded = false;
    bool m_isKnownFolder = false; // according to its parent's listing
};

/// A copy of a row as the list shows it. Made on the main thread for use on another thread.
struct FileListRow
{
    std::string fullPath;
    bool isExpand = false;
    std::int64_t isChecked = FileSystemItem::Off;

    /// True if a run takes this row itself. An open folder is never taken itself: its rows stand for it.
    bool isTicked() const { return !isExpand && isChecked == FileSystemItem::On; }
};

/// Returns `root` and the visible rows below it, in the order of the list.
std::vector<FileListRow> visibleRows(FileSystemItem &root);

} // namespace orvana
