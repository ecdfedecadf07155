#include "app/RunReportWindow.h"
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

DestinationSummary disk(const std::string &bay, const std::string &name)
{
    DestinationSummary destination;
    destination.path = "/Volumes/" + name;
    destination.copied = 3;
    destination.bytes = 10'485'760;
    destination.durability = Durability::OnDisk;
    destination.disk = {bay, name, "Copy HD 2000", "B-2002", 2'000'398'934'016};
    return destination;
}

RunSummary someRun()
{
    RunSummary summary;
    summary.source = "/Volumes/Master";
    summary.started = "2026-11-22T18:30:00+0100";
    summary.ended = "2026-11-22T18:31:00+0100";
    auto failed = disk("Slot-B", "<b>COPY</b>");
    failed.failed = 12;
    auto good = disk("Slot-D", "COPY3");
    good.verified = 3;
    good.verifiedFrom = VerifiedFrom::Disk;
    summary.destinations = {failed, good};
    summary.disks = {{"Slot-C", "COPY2", {}, DiskOutcome::EraseFailed, "busy"}};
    return summary;
}

std::vector<ProblemGroup> someProblems()
{
    return {{"/Volumes/<b>COPY</b>",
             ProblemKind::Failed,
             "No space left on device",
             12,
             {"/Volumes/Master/a.mov"}}};
}

std::string noReport()
{
    return {};
}

int pagesOf(const QByteArray &pdf)
{
    return static_cast<int>(pdf.count("/Type /Page\n"));
}

} // namespace

TEST(RunReportWindow, ShowsEveryRowAndTheProblemsBelow)
{
    const RunReportWindow window(someRun(), someProblems(), noReport);
    EXPECT_EQ(window.headline->text().toStdString(), headlineOf(someRun()));
    EXPECT_EQ(window.table->rowCount(), 3);
    EXPECT_EQ(window.table->item(0, 2)->text(), QStringLiteral("<b>COPY</b>"));
    EXPECT_EQ(window.table->item(1, 0)->text(), QStringLiteral("\u2713 verified"));
    EXPECT_EQ(window.table->item(2, 0)->text(), QStringLiteral("\u2717 not erased"));
    EXPECT_EQ(window.problems->toPlainText(),
              QStringLiteral("Slot-B (<b>COPY</b>)\n    12 failed: No space left on device\n        a.mov\n"
                             "        and 11 more, which the report file lists\n\nSlot-C (COPY2)\n"
                             "    could not be erased: busy"));
}

TEST(RunReportWindow, NoColumnIsCut)
{
    auto run = someRun();
    run.destinations[0].disk.model = std::string(120, 'W');
    RunReportWindow window(run, {}, noReport);
    window.show();
    for (const int width : {500, 900, 1600}) {
        window.resize(width, 400);
        QApplication::processEvents();
        for (int column = 0; column < window.table->columnCount(); ++column) {
            const auto widest =
                window.table->fontMetrics().horizontalAdvance(window.table->item(0, column)->text());
            EXPECT_GT(window.table->columnWidth(column), widest) << column;
            EXPECT_GE(window.table->columnWidth(column),
                      window.table->horizontalHeader()->sectionSizeHint(column));
        }
    }
}

TEST(RunReportWindow, CopyPutsAllOfItOnTheClipboard)
{
    RunReportWindow window(someRun(), someProblems(), noReport);
    window.show();
    QTest::mouseClick(window.copyButton, Qt::LeftButton);
    const auto text = QApplication::clipboard()->text();
    EXPECT_TRUE(text.contains(QStringLiteral("not erased\tSlot-C\tCOPY2")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("    could not be erased: busy\n")));
}

TEST(RunReportWindow, SaveKeepsTheReportFileAndTellsWhenItCannot)
{
    const QTemporaryDir folder;
    const auto original = folder.filePath(QStringLiteral("original.json"));
    const auto copy = folder.filePath(QStringLiteral("copy.json"));
    std::string report;
    const RunReportWindow window(someRun(), {}, [&] { return report; });
    EXPECT_FALSE(window.saveTo(copy)) << "there is no report yet";
    EXPECT_FALSE(QFile::exists(copy));
    {
        QFile file(original);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"version\": 2}");
    }
    report = original.toStdString();
    ASSERT_TRUE(window.saveTo(copy));
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "{\"version\": 2}");
    EXPECT_FALSE(window.saveTo(folder.filePath(QStringLiteral("no/such/folder"))));
}

TEST(RunReportWindow, TwoThousandProblemsOpenAsOneGroup)
{
    RunProblems problems;
    for (int i = 0; i < 2'000; ++i)
        problems.add({ProblemKind::Failed, "/Volumes/Master/" + std::to_string(i), "/Volumes/COPY3", "full"});
    RunReportWindow window(someRun(), problems.groups(), noReport);
    window.show();
    QApplication::processEvents();
    EXPECT_TRUE(window.problems->toPlainText().contains(QStringLiteral("2000 failed: full")));
    EXPECT_LT(window.problems->document()->blockCount(), 30);
}

TEST(RunReportWindow, OpenLogAsksForTheLogAndEscapeCloses)
{
    auto *window = new RunReportWindow(someRun(), {}, noReport);
    int wanted = 0;
    QObject::connect(window, &RunReportWindow::logWanted, window, [&] { ++wanted; });
    window->show();
    QTest::mouseClick(window->logButton, Qt::LeftButton);
    EXPECT_EQ(wanted, 1);
    QTest::mouseClick(window->closeButton, Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(Certificate, HasAPageForEachDiskWithWhatIsKnownOfIt)
{
    const auto html = Certificate(someRun(), someProblems()).html();
    EXPECT_EQ(html.count(QStringLiteral("<h1>")), 2);
    EXPECT_EQ(html.count(QStringLiteral("page-break-before")), 1);
    for (const char *text :
         {"\u2717 not complete", "\u2713 verified", "read back from the disk", "&lt;b&gt;COPY&lt;/b&gt;",
          "Copy HD 2000", "B-2002", "2000398934016 bytes", "/Volumes/Master", "2026-11-22 18:30:00+0100",
          "Orvana Plurimo " PLURIMO_VERSION, "12 failed: No space left on device", "a.mov"})
        EXPECT_TRUE(html.contains(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(html.contains(QStringLiteral("<b>COPY"))) << "a disk's name is never markup";
}

TEST(Certificate, CopyThatOnlyMemoryShowedIsNotCalledVerified)
{
    auto run = someRun();
    run.destinations[1].verifiedFrom = VerifiedFrom::Cache;
    run.destinations = {run.destinations[1]};
    const auto html = Certificate(run, {}).html();
    EXPECT_FALSE(html.contains(QStringLiteral("\u2713 verified")));
    EXPECT_TRUE(html.contains(QStringLiteral("not all of them are known to have come from the disk")));
    EXPECT_TRUE(html.contains(QStringLiteral("3 files, from memory")));
}

TEST(Certificate, IsWrittenAsPdfWithAPageForEachDisk)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("c.pdf"));
    ASSERT_TRUE(Certificate(someRun(), someProblems()).savePdf(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_EQ(pagesOf(pdf), 2);
}

TEST(Certificate, FileThatCannotBeWrittenIsToldAndTheOldOneStays)
{
    const QTemporaryDir folder;
    const Certificate certificate(someRun(), {});
    EXPECT_FALSE(certificate.savePdf(folder.filePath(QStringLiteral("no/such/c.pdf"))));
    EXPECT_FALSE(certificate.saveHtml(folder.filePath(QStringLiteral("no/such/c.html"))));
    const auto path = folder.filePath(QStringLiteral("c.html"));
    ASSERT_TRUE(certificate.saveHtml(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), certificate.html());
}

TEST(Certificate, RunWithoutADestinationSaysSo)
{
    EXPECT_TRUE(Certificate(RunSummary(), {}).html().contains(QStringLiteral("Nothing was copied")));
}

} // namespace orvana
