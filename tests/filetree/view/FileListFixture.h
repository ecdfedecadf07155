#pragma once

#include "filetree/view/FileListViewController.h"
#include "filetree/view/FileTreeView.h"
#include "filetree/view/OutlineViewDataSource.h"
#include "foundation/NotificationNames.h"
#include "support/ManualMainQueue.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

/// The file list panel over a temporary tree, on the offscreen desktop.
class FileListTest : public testing::Test
{
protected:
    FileListTest()
    {
        FileSystemItem::useHost(host);
        panel = std::make_unique<FileListViewController>(host, center, queue);
        panel->resize(300, 430);
        panel->show();
        colours =
            center.subscribe(notification::UpdateDiskInfoColor, [this](const Notification &) { ++told; });
    }

    void showTree() { panel->showRoot(std::make_shared<const std::string>(tree.root())); }

    FileTreeView &view() const { return *panel->sourceFileListView; }
    QAbstractItemModel &model() const { return *view().model(); }
    QModelIndex rootIndex() const { return model().index(0, 0); }

    QModelIndex childNamed(const QModelIndex &parent, const std::string &name) const
    {
        for (int row = 0; row < model().rowCount(parent); ++row) {
            const auto index = model().index(row, 0, parent);
            if (OutlineViewDataSource::itemAt(index)->relativePath() == name)
                return index;
        }
        ADD_FAILURE() << "no row " << name;
        return {};
    }

    static std::int64_t stateOf(const QModelIndex &index)
    {
        return OutlineViewDataSource::itemAt(index)->isChecked();
    }

    void clickBox(const QModelIndex &index) const
    {
        view().scrollTo(index);
        const auto row = view().visualRect(index);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, Qt::NoModifier,
                          {row.left() + 9, row.center().y()});
    }

    void pressSpaceOn(const QModelIndex &index) const
    {
        view().setCurrentIndex(index);
        QTest::keyClick(&view(), Qt::Key_Space);
    }

    void waitForCount() { ASSERT_TRUE(panel->waitForCount(std::chrono::seconds(30))); }

    /// Waits for the end of the count and returns the text of the label.
    std::string label()
    {
        waitForCount();
        queue.advance(std::chrono::seconds(1));
        return panel->itemSizeLabel->text().toStdString();
    }

    test::TemporaryTree tree;
    test::TestHost host{tree.path("home")};
    NotificationCenter center;
    test::ManualMainQueue queue;
    std::unique_ptr<FileListViewController> panel;
    std::atomic<int> told{0};
    NotificationCenter::Subscription colours;
};

} // namespace orvana
