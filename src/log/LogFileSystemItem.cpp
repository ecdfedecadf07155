#include "log/LogFileSystemItem.h"

#include "foundation/Paths.h"
#include "foundation/TreeRoot.h"
#include "log/LogFolder.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace orvana
{

namespace
{

TreeRoot<LogFileSystemItem> &treeRoot()
{
    static TreeRoot<LogFileSystemItem> root;
    return root;
}

std::shared_ptr<LogFileSystemItem::Children> theLeafMarker()
{
    static const auto marker = std::make_shared<LogFileSystemItem::Children>();
    return marker;
}

} // namespace

const PathObject &LogFileSystemItem::repoRoot()
{
    return treeRoot().path();
}

void LogFileSystemItem::setrepoRootPath(PathObject path)
{
    treeRoot().setPath(std::move(path));
}

std::shared_ptr<LogFileSystemItem> LogFileSystemItem::rootItem()
{
    return treeRoot().item();
}

LogFileSystemItem::LogFileSystemItem(const std::string &path, LogFileSystemItem *parent)
    : m_path(path), m_relativePath(lastComponent(path)), m_parent(parent)
{
}

std::string LogFileSystemItem::fullPath() const
{
    return m_parent ? m_parent->fullPath() + "/" + m_relativePath : m_path;
}

const LogFileSystemItem::Children &LogFileSystemItem::leafMarker()
{
    return *theLeafMarker();
}

bool LogFileSystemItem::isFolder() const
{
    std::error_code error;
    return fs::is_directory(m_parent ? fs::symlink_status(fullPath(), error) : fs::status(fullPath(), error));
}

const LogFileSystemItem::Children &LogFileSystemItem::children()
{
    if (!m_children)
        build();
    return *m_children;
}

void LogFileSystemItem::build()
{
    if (!isFolder()) {
        m_children = theLeafMarker();
        return;
    }
    m_children = std::make_shared<Children>();
    for (const auto &name : LogFolder(fullPath()).names().value_or(std::vector<std::string>())) {
        m_children->push_back(std::make_unique<LogFileSystemItem>(name, this));
        m_children->back()->m_row = m_children->size() - 1;
    }
}

std::int64_t LogFileSystemItem::numberOfChildren()
{
    const auto &list = children();
    return &list == &leafMarker() ? -1 : static_cast<std::int64_t>(list.size());
}

} // namespace orvana
