// Job files and the options of a run, in the window.

#include "app/WindowFixture.h"

#include "app/RunOptionsSheet.h"
#include "ui/ElidedLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

namespace orvana
{

namespace
{

class JobsTest : public WindowTest
{
protected:
    JobsTest()
    {
        bay(3)["attached"] = false; // a blank disk would turn erase on
        bay(0)["volumes"][0]["id"] = "MASTER-ID";
    }

    QString job(const std::string &text) { return QString::fromStdString(m_tree.file("run.plurimo", text)); }

    QString saved()
    {
        const auto path = QString::fromStdString(m_tree.path("saved.plurimo"));
        window().saveJob(path);
        return path;
    }

    // The paths that a run would take, below the root.
    Files selection()
    {
        Files paths;
        const auto root = *FileSystemItem::repoRoot();
        for (const auto &row : files().rows()) {
            if (row.isTicked())
                paths.push_back(row.fullPath == root ? "" : row.fullPath.substr(root.size() + 1));
        }
        return paths;
    }
};

TEST_F(JobsTest, OpenedJobTicksExactlyWhatItNames)
{
    startWithEnclosure();
    window().openJob(
        job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Footage/Folder 1/File 2.dat",
                             "Read me.txt"], "verify": true})"));
    EXPECT_EQ(sheetMessage(), "");
    auto chosen = selection();
    std::sort(chosen.begin(), chosen.end());
    EXPECT_EQ(chosen, (Files{"Footage/Folder 1/File 2.dat", "Read me.txt"}));
    EXPECT_TRUE(actions().verifyFiles());
    EXPECT_TRUE(actions().VerrifyFileCheckBox->isChecked());
    untilCounted();
    EXPECT_EQ(files().totalFiles(), 2);
    pressStart();
    untilSheet("File Copy Completed");
    EXPECT_EQ(filesOn("COPY2"), (Files{"Footage/Folder 1/File 2.dat", "Read me.txt", "old2"}));
}

TEST_F(JobsTest, FolderAboveStandsForWhatLiesInIt)
{
    startWithEnclosure();
    window().openJob(job(R"({"job": 1, "source": {"volume": "MASTER-ID"},
                             "selection": ["Footage/Folder 1/File 2.dat", "Footage"]})"));
    EXPECT_EQ(selection(), Files{"Footage"});
    window().openJob(job(R"({"job": 1, "source": {"volume": "MASTER-ID"}})"));
    EXPECT_EQ(selection(), Files{""}) << "all of the source";
}

TEST_F(JobsTest, EraseOfAJobIsAskedForAndUsesItsNames)
{
    startWithEnclosure();
    window().openJob(
        job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Read me.txt"], "erase": true,
                             "names": {"B": "Job B"}})"));
    EXPECT_TRUE(actions().EraseDiskCheckBox->isChecked());
    EXPECT_EQ(slots().SlotB(), "Job B");
    EXPECT_EQ(slots().SlotC(), "COPY2");
    pressStart();
    untilSheet("Erase");
    EXPECT_TRUE(tools().empty()) << "a job carries no consent";
    pressSheet("Erase");
    untilSheet("File Copy Completed");
    EXPECT_EQ(filesOn("Job B"), Files{"Read me.txt"});
}

TEST_F(JobsTest, JobOfAnotherSourceChangesNothing)
{
    startWithEnclosure();
    const auto before = selection();
    window().openJob(
        job(R"({"job": 1, "source": {"volume": "OTHER", "name": "Reel"}, "selection": ["Read me.txt"],
                             "verify": true})"));
    EXPECT_EQ(sheetText(), "Reel: the source of the job is not there");
    EXPECT_EQ(selection(), before);
    EXPECT_FALSE(actions().verifyFiles());
}

TEST_F(JobsTest, MissingFileIsNamedAndNothingIsTicked)
{
    startWithEnclosure();
    const auto before = selection();
    window().openJob(
        job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Read me.txt", "gone"]})"));
    EXPECT_TRUE(sheetText().ends_with("/gone: no such file or folder in the source")) << sheetText();
    EXPECT_EQ(selection(), before);
}

TEST_F(JobsTest, UnknownKeyIsNamed)
{
    startWithEnclosure();
    window().openJob(job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "verfy": true})"));
    EXPECT_TRUE(sheetText().ends_with("run.plurimo: /verfy: is not a known key")) << sheetText();
}

TEST_F(JobsTest, NeitherWithoutAnEnclosureNorDuringARun)
{
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 60}};
    start();
    const auto file = job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "verify": true})");
    EXPECT_FALSE(window().mayUseJobs());
    window().openJob(file);
    untilSheet("Warning");
    pressSheet("OK");
    chooseEnclosure(1);
    untilCounted();
    EXPECT_TRUE(window().mayUseJobs());
    pressStart();
    EXPECT_FALSE(window().mayUseJobs());
    window().openJob(file);
    EXPECT_FALSE(actions().verifyFiles());
    untilSheet("Warning");
    pressSheet("OK");
    untilSheet("File Copy Completed");
}

TEST_F(JobsTest, SavedJobIsOpenedAsItWas)
{
    startWithEnclosure();
    window().openJob(
        job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Read me.txt"], "erase": true,
                             "verify": true, "names": {"B": "Job B"}, "options": {"ejectAtEnd": true}})"));
    const auto path = saved();
    EXPECT_EQ(sheetMessage(), "");
    const auto again = readJob(path.toStdString());
    ASSERT_TRUE(again) << again.error();
    EXPECT_EQ(again->volumeId, "MASTER-ID");
    EXPECT_EQ(again->sourceName, "Master");
    EXPECT_FALSE(again->isHome);
    EXPECT_EQ(again->selection, Files{"Read me.txt"});
    EXPECT_TRUE(again->erase && again->verify && again->settings.ejectAtEnd);
    EXPECT_EQ(again->names[Bay::B], "Job B");
    EXPECT_EQ(again->names[Bay::C], std::nullopt) << "its name was not changed";
}

TEST_F(JobsTest, JobIsNotSavedWhenNothingIsTicked)
{
    startWithEnclosure();
    untick("Read me.txt");
    window().openJob(job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Read me.txt"]})"));
    untick("Read me.txt");
    ASSERT_TRUE(selection().empty());
    const auto path = saved();
    EXPECT_EQ(sheetText(), "Nothing is ticked, so there is no job to save.");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(JobsTest, HomeFolderIsSavedAsHome)
{
    startWithEnclosure();
    chooseSource("anna");
    untilCounted();
    const auto again = readJob(saved().toStdString());
    ASSERT_TRUE(again) << again.error();
    EXPECT_TRUE(again->isHome);
    chooseSource("Master");
    window().openJob(QString::fromStdString(m_tree.path("saved.plurimo")));
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_EQ(slots().SourcePopup->selectedTitle(), "anna");
    EXPECT_FALSE(slots().SlotAisSource());
}

TEST_F(JobsTest, JobThatIsDroppedIsOpenedAndNothingElseIsTaken)
{
    startWithEnclosure();
    const auto drop = [&](const QString &path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &enter);
        EXPECT_EQ(enter.isAccepted(), path.endsWith(QStringLiteral(".plurimo")));
        QDropEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &event);
    };
    drop(QString::fromStdString(m_tree.file("other.json", "{}")));
    EXPECT_EQ(sheetMessage(), "");
    drop(job(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "verify": true})"));
    EXPECT_TRUE(actions().verifyFiles());
}

TEST_F(JobsTest, OptionsAreChosenInASheetShownBesideTheBoxesAndHoldForOneRun)
{
    startWithEnclosure();
    EXPECT_EQ(actions().optionsText->text(), QString());
    window().chooseOptions();
    auto *sheet = window().findChild<RunOptionsSheet *>();
    ASSERT_NE(sheet, nullptr);
    const auto boxes = sheet->findChildren<QCheckBox *>();
    ASSERT_EQ(static_cast<std::size_t>(boxes.size()), AllRunSettings.size());
    boxes.front()->setChecked(true);
    sheet->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(actions().optionsText->text(), QStringLiteral("Eject at the end"));
    pressStart();
    untilSheet("File Copy Completed");
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_FALSE(isMounted("COPY2"));
    EXPECT_TRUE(isMounted("Master"));
    EXPECT_EQ(actions().optionsText->text(), QString()) << "they were for this run";
}

TEST_F(JobsTest, ManifestIsChosenInTheSheetAndLiesOnEachCopyAfterwards)
{
    startWithEnclosure();
    window().chooseOptions();
    auto *sheet = window().findChild<RunOptionsSheet *>();
    const auto lists = sheet->findChildren<QComboBox *>();
    ASSERT_EQ(static_cast<std::size_t>(lists.size()), AllListedRunSettings.size());
    auto *accept = sheet->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    lists[0]->setCurrentIndex(lists[0]->findData(QStringLiteral("mhl")));
    lists[1]->setCurrentIndex(lists[1]->findData(QStringLiteral("sha256")));
    EXPECT_FALSE(accept->isEnabled()) << "such a manifest cannot hold sha256";
    lists[1]->setCurrentIndex(lists[1]->findData(QStringLiteral("md5")));
    EXPECT_TRUE(accept->isEnabled());
    accept->click();
    EXPECT_EQ(actions().optionsText->text(), QStringLiteral("ASC MHL history, md5"));
    pressStart();
    untilSheet("File Copy Completed");
    EXPECT_EQ(window().settings(), RunSettings());
    const auto written = report();
    ASSERT_EQ(written["destinations"].size(), 2U);
    for (const auto &destination : written["destinations"]) {
        const auto &manifests = destination["manifests"];
        ASSERT_FALSE(manifests.empty()) << destination.dump();
        EXPECT_TRUE(test::pathExists(destination["path"].get<std::string>() + "/" +
                                     manifests[0]["path"].get<std::string>()));
        EXPECT_TRUE(manifests[0]["c4"].get<std::string>().starts_with("c4"));
    }
}

TEST_F(JobsTest, CancelledOptionsChangeNothing)
{
    startWithEnclosure();
    window().chooseOptions();
    auto *sheet = window().findChild<RunOptionsSheet *>();
    sheet->findChildren<QCheckBox *>().front()->setChecked(true);
    sheet->reject();
    EXPECT_EQ(window().settings(), RunSettings());
}

TEST_F(JobsTest, EjectThatFailsAtTheEndIsTold)
{
    m_machine["failing"] = {"eject C"};
    startWithEnclosure();
    RunSettings settings;
    settings.ejectAtEnd = true;
    window().setSettings(settings);
    pressStart();
    untilSheet("Warning");
    EXPECT_TRUE(sheetText().starts_with("Not ejected:")) << sheetText();
    EXPECT_TRUE(isMounted("COPY2"));
    EXPECT_FALSE(isMounted("COPY1"));
}

} // namespace

} // namespace orvana
