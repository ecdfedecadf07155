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

    /// Class-wide: reads from this host from now on, which must outlive all use; the root path becomes an
    /// empty one. Called once at start-up, before anything else here.
    static void useHost(platform::Host &host);

    /// Class-wide: the root path; never null.
    static const PathObject &repoRoot();

    /// Class-wide, through any node: another path object drops the tree, even when its text is the same; the
    /// same object keeps the tree and all its check marks. A null path counts as a new empty one.
    void setrepoRootPath(PathObject path);

    /// Class-wide: the root, made of the root path when there is none yet.
    static std::shared_ptr<FileSystemItem> rootItem();

    /// `path` is the whole path for a root, else the entry's name in `parent`, which must outlive the node.
    explicit FileSystemItem(std::string path, FileSystemItem *parent = nullptr);

    const std::string &relativePath() const { return m_relativePath; }
    FileSystemItem *parent() const { return m_parent; }

    /// Position among the parent's children; 0 for a root.
    std::size_t row() const { return m_row; }

    std::string fullPath() const;

    /// The entries that pass the rules for what is shown, in the order of the file system. Anything that is
    /// no folder gives the one shared leaf marker, an unreadable folder an empty list of its own.
    const Children &children();

    /// The object that marks a leaf, told by its identity.
    static const Children &leafMarker();

    /// True when the node is no folder. Reads no folder.
    bool isLeaf();

    /// -1 for a leaf.
    std::int64_t numberOfChildren();

    /// `n` must be below `numberOfChildren`.
    FileSystemItem *childAtIndex(std::size_t n);

    /// The children read so far; none for a leaf or a folder that nobody asked for its children.
    const Children &builtChildren() const { return m_children ? *m_children : leafMarker(); }

    std::int64_t isChecked() const { return m_selected; }

    /// On and off reach every descendant read so far; mixed stays on this node. No parent is ever changed.
    void setChecked(std::int64_t state);

    bool isExpand() const { return m_expanded; }
    void setExpanded(bool expanded) { m_expanded = expanded; }

    /// What the file system says now; nothing when it cannot be read.
    std::optional<platform::Attributes> attributes() const;

    /// An image of the window's toolkit; never set by the node itself.
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
    std::shared_ptr<Children> m_children; // null until asked for
    std::shared_ptr<const void> m_icon;
    std::int64_t m_selected = On;
    std::uint32_t m_row = 0;
    bool m_expanded = false;
    bool m_isKnownFolder = false; // as its parent's listing told
};

/// A row as the list shows it, taken on the main thread for use on another.
struct FileListRow
{
    std::string fullPath;
    bool isExpand = false;
    std::int64_t isChecked = FileSystemItem::Off;

    /// True for what stands for itself in a run and is ticked: an open folder is spoken for by its rows.
    bool isTicked() const { return !isExpand && isChecked == FileSystemItem::On; }
};

/// The rows below and including `root`, from the first to the last, as they stand open and closed.
std::vector<FileListRow> visibleRows(FileSystemItem &root);

} // namespace orvana
