#include "filetree/view/FileListViewController.h"

#include "filetree/view/OutlineViewDataSource.h"
#include "foundation/NotificationNames.h"
#include "foundation/Paths.h"
#include "foundation/SizeText.h"

#include <algorithm>
#include <set>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLabels{100};

} // namespace

FileListViewController::FileListViewController(platform::Host &host, NotificationCenter &center,
                                               MainQueue &queue, QWidget *parent)
    : QWidget(parent), m_center(center), m_count(host, center),
      m_dataSource(new OutlineViewDataSource(center, this)),
      m_labelUpdate(queue, BetweenLabels, [this] { writeItemSizeLabel(); })
{
    setupUi(this);
    sourceFileListView->setModel(m_dataSource);
    connect(sourceFileListView, &QTreeView::expanded, m_dataSource, &OutlineViewDataSource::itemDidExpand);
    connect(sourceFileListView, &QTreeView::collapsed, m_dataSource, &OutlineViewDataSource::itemDidCollapse);
    connect(sourceFileListView, &QTreeView::clicked, this, &FileListViewController::clickItem);
    for (const char *name : {notification::OutlineViewItemChange, notification::FileSizeChange,
                             notification::OutlineViewItemStateChange})
        m_subscriptions.push_back(
            center.subscribe(name, [this](const Notification &note) { FileViewChange(note); }));
    awakeFromNib();
}

// Unsubscribe first: the counting thread must not reach a panel that is partly destroyed.
FileListViewController::~FileListViewController()
{
    m_subscriptions.clear();
}

void FileListViewController::awakeFromNib()
{
    updateItemSizeLabel(SizeLabel::Blank);
}

void FileListViewController::FileViewChange(const Notification &note)
{
    if (note.name == notification::OutlineViewItemChange) {
        startCountThread();
        m_center.post(notification::UpdateDiskInfoColor);
    } else if (note.name == notification::FileSizeChange) {
        updateItemSizeLabel(SizeLabel::Counts);
    } else if (note.name == notification::OutlineViewItemStateChange) {
        m_dataSource->reloadData();
    }
}

void FileListViewController::showRoot(PathObject path)
{
    const auto shown = FileSystemItem::repoRoot();
    if (!path || !shown || *path != *shown)
        updateItemSizeLabel(SizeLabel::Blank); // the counts of another tree
    m_fileSysItem.setrepoRootPath(std::move(path));
    m_dataSource->reloadData();
}

std::optional<FileListViewController::RowsDown> FileListViewController::rowsTo(const std::string &path)
{
    RowsDown rows;
    const auto root = FileSystemItem::rootItem();
    auto *item = root.get();
    while (item->fullPath() != path) {
        const auto &children = item->children();
        const auto next = std::find_if(children.begin(), children.end(), [&](const auto &child) {
            return isAtOrBelow(path, child->fullPath());
        });
        if (next == children.end())
            return std::nullopt;
        rows.push_back(static_cast<int>(next - children.begin()));
        item = next->get();
    }
    return rows;
}

std::optional<std::string> FileListViewController::select(const std::vector<std::string> &paths)
{
    std::vector<RowsDown> chosen;
    for (const auto &path : paths) {
        auto rows = rowsTo(path);
        if (!rows)
            return path;
        chosen.push_back(std::move(*rows));
    }
    tickOnly(chosen);
    return std::nullopt;
}

void FileListViewController::tickOnly(const std::vector<RowsDown> &chosen)
{
    auto *view = sourceFileListView;
    const auto root = view->model()->index(0, 0);
    std::set<FileSystemItem *> opened;
    OutlineViewDataSource::itemAt(root)->setChecked(FileSystemItem::Off);
    // A folder above that was chosen as well comes first, and stands for what lies in it.
    auto inOrder = chosen;
    std::sort(inOrder.begin(), inOrder.end());
    const RowsDown *above = nullptr;
    for (const auto &rows : inOrder) {
        if (above && rows.size() >= above->size() && std::equal(above->begin(), above->end(), rows.begin()))
            continue;
        above = &rows;
        auto index = root;
        for (const int row : rows) {
            auto *item = OutlineViewDataSource::itemAt(index);
            view->expand(index);
            if (opened.insert(item).second) {
                for (const auto &child : item->children())
                    child->setChecked(FileSystemItem::Off);
            }
            item->setChecked(FileSystemItem::Mixed);
            index = view->model()->index(row, 0, index);
        }
        view->collapse(index);
        OutlineViewDataSource::itemAt(index)->setChecked(FileSystemItem::On);
    }
    m_dataSource->reloadData();
    startCountThread();
}

std::vector<FileListRow> FileListViewController::rows() const
{
    return visibleRows(*FileSystemItem::rootItem());
}

void FileListViewController::clickItem()
{
    startCountThread();
}

void FileListViewController::startCountThread()
{
    m_count.start(rows());
}

void FileListViewController::stopCountThread()
{
    m_count.stop();
}

std::string FileListViewController::stringFromFileSize(std::uint64_t bytes)
{
    return sizeText(bytes);
}

void FileListViewController::updateItemSizeLabel(SizeLabel label)
{
    m_label = label;
    m_labelUpdate.request();
}

void FileListViewController::writeItemSizeLabel()
{
    if (m_label == SizeLabel::Blank) {
        itemSizeLabel->clear();
        return;
    }
    itemSizeLabel->setText(tr("%1 File(s)     Size : %2")
                               .arg(totalFiles())
                               .arg(QString::fromStdString(stringFromFileSize(totalSize()))));
}

} // namespace orvana
