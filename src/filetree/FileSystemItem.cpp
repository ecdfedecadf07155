#include "filetree/FileSystemItem.h"

#include "filetree/ReservedPaths.h"
#include "foundation/TreeRoot.h"
#include "platform/Host.h"

#include <utility>

namespace orvana
{

using platform::Attributes;
using platform::Expected;
using platform::FileType;
using platform::Links;
using platform::Want;

struct FileSystemItem::ClassState
{
    platform::VolumeFiles *files = nullptr;
    std::optional<ReservedPaths> reserved;
    TreeRoot<FileSystemItem> root;
};

namespace
{

std::shared_ptr<FileSystemItem::Children> theLeafMarker()
{
    static const auto marker = std::make_shared<FileSystemItem::Children>();
    return marker;
}

} // namespace

FileSystemItem::ClassState &FileSystemItem::classState()
{
    static ClassState state;
    return state;
}

void FileSystemItem::useHost(platform::Host &host)
{
    classState() = ClassState{};
    classState().files = &host.volumeFiles();
    classState().reserved.emplace(host);
}

const PathObject &FileSystemItem::repoRoot()
{
    return classState().root.path();
}

void FileSystemItem::setrepoRootPath(PathObject path)
{
    classState().root.setPath(std::move(path));
}

std::shared_ptr<FileSystemItem> FileSystemItem::rootItem()
{
    return classState().root.item();
}

FileSystemItem::FileSystemItem(std::string path, FileSystemItem *parent)
    : m_relativePath(std::move(path)), m_parent(parent)
{
}

std::string FileSystemItem::fullPath() const
{
    if (!m_parent)
        return m_relativePath;
    auto path = m_parent->fullPath();
    if (!path.ends_with('/'))
        path += '/';
    return path += m_relativePath;
}

bool FileSystemItem::isFolder(const std::string &path)
{
    // An empty path would be taken for the working folder.
    if (path.empty())
        return false;
    const auto read = classState().files->workingFolder().attributes(path, Links::Follow, Want::Basics);
    return read && read->type == FileType::Folder;
}

const FileSystemItem::Children &FileSystemItem::leafMarker()
{
    return *theLeafMarker();
}

const FileSystemItem::Children &FileSystemItem::children()
{
    if (!isLeaf() && !m_children)
        build();
    return *m_children;
}

bool FileSystemItem::isLeaf()
{
    if (!m_children && !m_isKnownFolder) {
        m_isKnownFolder = isFolder(fullPath());
        if (!m_isKnownFolder)
            m_children = theLeafMarker();
    }
    return m_children == theLeafMarker();
}

std::int64_t FileSystemItem::numberOfChildren()
{
    return isLeaf() ? -1 : static_cast<std::int64_t>(children().size());
}

FileSystemItem *FileSystemItem::childAtIndex(std::size_t n)
{
    return children()[n].get();
}

void FileSystemItem::build()
{
    m_children = std::make_shared<Children>();
    const auto path = fullPath();
    if (ReservedPaths::holdsReservedWord(path))
        return;
    const bool isWithinPackage = belongsToPackage(path);
    const auto folder = classState().files->workingFolder().openFolder(path);
    auto names = folder ? (*folder)->list("") : tl::unexpected(folder.error());
    while (names && !names->empty()) {
        const auto name = names->takeNext();
        if (name.starts_with('.') || classState().reserved->containsEntry(path, name))
            continue;
        const auto read = (*folder)->attributes(name, Links::DoNotFollow, Want::HiddenExtension);
        const bool isLink = read && read->type == FileType::SymbolicLink;
        const bool isHidden = read && read->hiddenExtension && !isWithinPackage && !belongsToPackage(name);
        if (!isLink && !isHidden)
            append(std::string(name), read);
    }
}

void FileSystemItem::append(std::string name, const Expected<Attributes> &read)
{
    auto child = std::make_unique<FileSystemItem>(std::move(name), this);
    child->m_row = static_cast<std::uint32_t>(m_children->size());
    child->m_isKnownFolder = read && read->type == FileType::Folder;
    if (read && !child->m_isKnownFolder)
        child->m_children = theLeafMarker();
    m_children->push_back(std::move(child));
}

void FileSystemItem::setChecked(std::int64_t state)
{
    m_selected = state;
    if (state != On && state != Off)
        return;
    for (const auto &child : builtChildren())
        child->setChecked(state);
}

std::optional<Attributes> FileSystemItem::attributes() const
{
    const auto path = fullPath();
    if (path.empty())
        return std::nullopt;
    const auto read =
        classState().files->workingFolder().attributes(path, Links::DoNotFollow, Want::HiddenExtension);
    return read ? std::optional(*read) : std::nullopt;
}

namespace
{

void addRows(std::vector<FileListRow> &rows, FileSystemItem &item, std::string path)
{
    rows.push_back({std::move(path), item.isExpand(), item.isChecked()});
    if (!item.isExpand())
        return;
    const auto at = rows.size() - 1;
    for (const auto &child : item.children()) {
        auto childPath = rows[at].fullPath;
        if (!childPath.ends_with('/'))
            childPath += '/';
        addRows(rows, *child, std::move(childPath += child->relativePath()));
    }
}

} // namespace

std::vector<FileListRow> visibleRows(FileSystemItem &root)
{
    std::vector<FileListRow> rows;
    addRows(rows, root, root.fullPath());
    return rows;
}

} // namespace orvana
