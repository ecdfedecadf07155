#include "app/RunReportWindow.h"
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

ReportTable someReport()
{
    ReportTable table;
    table.headline = "Not everything was copied. Look at each row.";
    table.rows.push_back({"/Volumes/<b>COPY</b>", "3", "1", "2", "0", "10.00 MB", "5.00 MB/s", ""});
    table.rows.push_back({"Slot-C (COPY2)", "-", "-", "-", "-", "-", "-", "could not be erased: busy"});
    return table;
}

} // namespace

TEST(RunReportWindow, ShowsEveryRowAndTheProblemsBelow)
{
    const RunReportWindow window(someReport(), {"/Volumes/COPY: a.mov: failed, No space left on device"});
    EXPECT_EQ(window.table->rowCount(), 2);
    EXPECT_EQ(window.table->item(0, 0)->text(), QStringLiteral("/Volumes/<b>COPY</b>"));
    EXPECT_EQ(window.table->item(1, 7)->text(), QStringLiteral("could not be erased: busy"));
    EXPECT_TRUE(window.problems->toPlainText().contains(QStringLiteral("No space left")));
}

TEST(RunReportWindow, CopyPutsAllOfItOnTheClipboard)
{
    RunReportWindow window(someReport(), {"a line"});
    window.show();
    QTest::mouseClick(window.copyButton, Qt::LeftButton);
    const auto text = QApplication::clipboard()->text();
    EXPECT_TRUE(text.contains(QStringLiteral("Slot-C (COPY2)\t-")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("a line\n")));
}

TEST(RunReportWindow, SaveWritesTheSameAndTellsWhenItCannot)
{
    const RunReportWindow window(someReport(), {});
    const QTemporaryDir folder;
    ASSERT_TRUE(window.saveTo(folder.filePath(QStringLiteral("report.txt"))));
    QFile file(folder.filePath(QStringLiteral("report.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), window.text());
    EXPECT_FALSE(window.saveTo(folder.filePath(QStringLiteral("no/such/folder"))));
}

TEST(RunReportWindow, OpenLogAsksForTheLogAndEscapeCloses)
{
    auto *window = new RunReportWindow(someReport(), {});
    int wanted = 0;
    QObject::connect(window, &RunReportWindow::logWanted, window, [&] { ++wanted; });
    window->show();
    QTest::mouseClick(window->logButton, Qt::LeftButton);
    EXPECT_EQ(wanted, 1);
    QTest::mouseClick(window->closeButton, Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace orvana
