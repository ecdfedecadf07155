#pragma once

#include "log/view/LogDataWindows.h"

#include "support/Recorder.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace orvana
{

class LogViewer : public testing::Test
{
protected:
    static constexpr const char *Older = "20261121-102030-Log.txt";
    static constexpr const char *Newer = "20261122-090000-Log.txt";

    LogViewer() { m_tree.folder("Documents"); }

    void makeTwoLogs()
    {
        log(Older, "older run\n");
        log(Newer, "newer run\n");
    }

    std::string log(const std::string &name, const std::string &content)
    {
        return m_tree.file("Documents/" + name, content);
    }

    void append(const std::string &name, const std::string &content) const
    {
        std::ofstream(m_tree.path("Documents/" + name), std::ios::binary | std::ios::app) << content;
    }

    LogDataWindows &open()
    {
        m_window = std::make_unique<LogDataWindows>(m_host, m_tree.path("Documents"));
        m_window->show();
        return *m_window;
    }

    QTreeView *list() { return m_window->myLogFileView(); }

    // Returns all shown rows, from the top.
    QStringList rows()
    {
        QStringList rows;
        for (auto index = list()->model()->index(0, 0); index.isValid(); index = list()->indexBelow(index))
            rows << index.data().toString();
        return rows;
    }

    QModelIndex rowOf(const std::string &name)
    {
        auto index = list()->model()->index(0, 0);
        while (index.isValid() && index.data().toString() != QString::fromStdString(name))
            index = list()->indexBelow(index);
        EXPECT_TRUE(index.isValid()) << name << " is not in the list";
        return index;
    }

    void click(const std::string &name)
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, list()->visualRect(rowOf(name)).center());
    }

    void press(Qt::Key key) { QTest::keyClick(list(), key); }
    void press(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }

    std::string selected()
    {
        const auto indexes = list()->selectionModel()->selectedIndexes();
        return indexes.isEmpty() ? "" : indexes.front().data().toString().toStdString();
    }

    std::string text() { return m_window->myLogFileTextView()->toPlainText().toStdString(); }

    template <class T>
    T *find(const char *name)
    {
        return m_window->findChild<T *>(QString::fromLatin1(name));
    }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.root()};
    std::unique_ptr<LogDataWindows> m_window;
};

} // namespace orvana
