#include "app/RunReportWindow.h"
#include "app/ScriptFile.h"
#include "app/SingleInstance.h"
#include "duplicate/RunProblems.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>
#include <QUuid>
#include <QtTest/QTest>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <thread>

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

TEST(RunProblems, FirstThousandAreKeptAndTheRestIsCounted)
{
    RunProblems problems;
    for (int i = 0; i < 1002; ++i)
        problems.add({ProblemKind::Failed, std::to_string(i), "/d", "full"});
    const auto lines = problems.lines();
    ASSERT_EQ(lines.size(), 1001U);
    EXPECT_EQ(lines.front(), "/d: 0: failed, full");
    EXPECT_EQ(lines.back(), "and 2 more, which the report lists");
}

TEST(ScriptFile, StepsAreLinesOfWordsWithNumbers)
{
    const auto steps =
        scriptSteps(QStringLiteral("# a remark\n\nselect-enclosure 1\n  type Slot-B \"REEL 7\"\n"));
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[0].name, QStringLiteral("select-enclosure"));
    EXPECT_EQ(steps[1].words, (QStringList{QStringLiteral("Slot-B"), QStringLiteral("REEL 7")}));
}

TEST(ScriptFile, MissingFileIsNamed)
{
    const auto read = readScript(QStringLiteral("/no/such/script"));
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.error().contains(QStringLiteral("/no/such/script")));
}

TEST(SingleInstance, SecondOneRaisesTheFirstAndKnowsIt)
{
    const auto machine = QUuid::createUuid().toString();
    SingleInstance first(machine);
    EXPECT_FALSE(first.askTheFirst());
    std::atomic<int> raised{0};
    first.listen([&] { ++raised; });
    std::atomic<bool> isAnswered{false};
    std::atomic<bool> found{false};
    std::thread second([&] {
        found = SingleInstance(machine).askTheFirst();
        isAnswered = true;
    });
    while (!isAnswered || raised == 0)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    second.join();
    EXPECT_TRUE(found);
    EXPECT_EQ(raised, 1);
}

TEST(SingleInstance, FirstOneThatCannotAnswerIsStillThere)
{
    const auto machine = QUuid::createUuid().toString();
    SingleInstance busy(machine);
    busy.listen([] {});
    EXPECT_TRUE(SingleInstance(machine).askTheFirst()) << "no event was handled meanwhile";
}

TEST(SingleInstance, AnotherMachineIsAnotherInstance)
{
    SingleInstance first(QUuid::createUuid().toString());
    first.listen([] {});
    EXPECT_FALSE(SingleInstance(QUuid::createUuid().toString()).askTheFirst());
}

} // namespace orvana
