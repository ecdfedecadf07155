// The window that compares disks with the lists on them, with folders that stand for disks.

#include "app/VerifyWindow.h"
#include "duplicate/evidence/Digest.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

constexpr int Patience = 20'000; // milliseconds

std::string lineFor(const std::string &path, const std::string &content)
{
    Digest digest(DigestFormat::Md5);
    digest.add(content);
    return digest.text() + "  " + path + "\n";
}

class VerifyWindowTest : public testing::Test
{
protected:
    // A folder with two files and a list of them.
    std::string disk(const std::string &name) const
    {
        m_tree.file(name + "/a", "one");
        m_tree.file(name + "/b", "two");
        m_tree.file(name + "/list.md5", lineFor("a", "one") + lineFor("b", "two"));
        return m_tree.path(name);
    }

    VerifyWindow &open(const std::vector<BayVolume> &disks)
    {
        m_window = new VerifyWindow(m_files, m_tree.path("logs"), disks);
        m_window->show();
        return *m_window;
    }

    QTableWidget &table() const { return *m_window->findChild<QTableWidget *>(); }
    QString verdict(int row) const { return table().item(row, 2)->text(); }
    QString findings() const { return m_window->findChild<QPlainTextEdit *>()->toPlainText(); }
    QPushButton &button(const QString &text) const
    {
        for (auto *one : m_window->findChildren<QPushButton *>()) {
            if (one->text().remove(QChar(u'&')) == text)
                return *one;
        }
        ADD_FAILURE() << "no button " << text.toStdString();
        std::abort();
    }

    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return !m_window->isUnderWay(); }, Patience);
    }

    ~VerifyWindowTest() override { delete m_window; }

    test::TemporaryTree m_tree;
    platform::posix::PosixVolumeFiles m_files;
    QPointer<VerifyWindow> m_window;
};

} // namespace

TEST_F(VerifyWindowTest, DisksInBaysAreTickedAndVerifiedSideBySide)
{
    const auto good = disk("good");
    const auto bad = disk("bad");
    m_tree.file("bad/a", "ONE");
    m_tree.file("bad/c", "three");
    open({{Bay::B, good}, {Bay::C, bad}, {Bay::D, m_tree.folder("empty")}});
    EXPECT_EQ(table().rowCount(), 3);
    EXPECT_TRUE(table().item(0, 0)->text().startsWith(QStringLiteral("B:")));
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("\u2713 Whole"));
    EXPECT_EQ(verdict(1), QStringLiteral("\u2717 Not whole"));
    EXPECT_EQ(verdict(2), QStringLiteral("There is no list of files"));
    EXPECT_TRUE(findings().contains(QStringLiteral("changed: a"))) << findings().toStdString();
    EXPECT_TRUE(findings().contains(QStringLiteral("new: c"))) << findings().toStdString();
    EXPECT_FALSE(findings().contains(QStringLiteral("good: changed")));
}

TEST_F(VerifyWindowTest, OnlyWhatIsTickedIsRead)
{
    open({{Bay::B, disk("one")}, {Bay::C, disk("two")}});
    table().item(0, 0)->setCheckState(Qt::Unchecked);
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QString());
    EXPECT_EQ(verdict(1), QStringLiteral("\u2713 Whole"));
    table().item(1, 0)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(button(QStringLiteral("Verify")).isEnabled()) << "nothing is ticked";
}

TEST_F(VerifyWindowTest, FolderCanBeAddedAndVerifiedAgain)
{
    open({});
    EXPECT_FALSE(button(QStringLiteral("Verify")).isEnabled());
    m_window->addFolder(disk("folder"));
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("\u2713 Whole"));
    m_tree.file("folder/a", "ONE");
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("\u2717 Not whole"));
}

TEST_F(VerifyWindowTest, WishToRecordIsAnsweredWhereNothingCanBeRecorded)
{
    open({{Bay::B, disk("one")}});
    m_window->findChild<QCheckBox *>()->setChecked(true);
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(findings().contains(QStringLiteral("NOT recorded: only a history has generations")))
        << findings().toStdString();
}

TEST_F(VerifyWindowTest, StopEndsTheReadingAndClosingWaitsForIt)
{
    const auto path = disk("large");
    m_tree.file("large/c", std::string(64UL * 1024 * 1024, 'c'));
    open({{Bay::B, path}});
    button(QStringLiteral("Verify")).click();
    button(QStringLiteral("Stop")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("Stopped"));
    button(QStringLiteral("Verify")).click();
    m_window->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_window.isNull(); }, Patience));
}

TEST_F(VerifyWindowTest, DiskThatIsGoneIsTold)
{
    open({{Bay::B, m_tree.path("gone")}});
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("Not verified"));
    EXPECT_TRUE(findings().contains(QStringLiteral("No such file"))) << findings().toStdString();
}

TEST_F(VerifyWindowTest, DiskThatARunWritesToIsNotRead)
{
    const auto path = disk("busy");
    const auto lock = m_files.lockFolder(path, platform::Sharing::Exclusive);
    ASSERT_TRUE(lock);
    open({{Bay::B, path}});
    button(QStringLiteral("Verify")).click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(verdict(0), QStringLiteral("Not verified"));
    EXPECT_TRUE(findings().contains(QStringLiteral("another run is at work"))) << findings().toStdString();
}

} // namespace orvana
