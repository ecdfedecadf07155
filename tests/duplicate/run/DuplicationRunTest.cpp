#include "duplicate/run/DuplicationRun.h"

#include "discovery/ORVScanDevice.h"
#include "duplicate/report/RunReport.h"
#include "foundation/NotificationNames.h"
#include "foundation/PathJson.h"
#include "foundation/SystemLog.h"
#include "log/LogData.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "support/ManualMainQueue.h"
#include "support/SmallMachine.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"
#include "support/WatchedHost.h"

#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace orvana
{

namespace
{

using Lines = std::vector<std::string>;

/// The simulated machine with switches for faults of its volumes.
class FaultyHost final : public test::WatchedHost
{
public:
    explicit FaultyHost(platform::Host &host) : WatchedHost(host), m_faulty(host.volumeFiles()) {}

    platform::VolumeFiles &volumeFiles() override { return m_faulty; }
    platform::VolumeFaults &faults(const std::string &root) { return m_faulty.volume(root); }

private:
    platform::FaultyVolumeFiles m_faulty;
};

const char *nameOf(RunEnding ending)
{
    switch (ending) {
    case RunEnding::Copied:
        return "copied";
    case RunEnding::Cancelled:
        return "cancelled";
    case RunEnding::EnclosureLost:
        return "enclosure lost";
    case RunEnding::NothingToCopy:
        return "nothing to copy";
    case RunEnding::NoDestination:
        return "no destination";
    case RunEnding::Refused:
        return "refused";
    }
    return "";
}

} // namespace

/// A run on the simulated machine: "Master" in bay A to "COPY1", "COPY2" and the blank disk in D. The fixture
/// records everything that the run reports. A test may act at each of these moments.
class DuplicationRunTest : public testing::Test, public RunView
{
protected:
    DuplicationRunTest() : m_machine(Json::parse(test::SmallMachine)) {}

    ~DuplicationRunTest() override { m_run.reset(); }

    void start()
    {
        m_tree.file("machine.json", m_machine.dump());
        m_simulator = platform::makeSimulatorHost(m_tree.path("machine.json"), &m_queue).value();
        m_host = std::make_unique<FaultyHost>(*m_simulator);
        m_host->beforeDiskUtility = [this](const Lines &words) {
            tell("tool " + words.front());
            m_erasedNames.push_back(words.at(2));
        };
        m_scanner = std::make_unique<ORVScanDevice>(m_host->registry(), m_host->launcher());
        m_scanner->setDetectOption("Orvana");
        m_log = std::make_unique<LogData>(m_tree.folder("logs"), m_clock);
        m_log->initLogFile();
        makeRun();
        for (const char *name :
             {notification::BackupFinish, notification::FileCopyMessage, notification::DiskMessage,
              notification::EraseDiskFinish, notification::FileProgress, notification::TotalProgress})
            m_subscriptions.push_back(
                m_center.subscribe(name, [this](const Notification &note) { m_run->answer(note); }));
        lookAtAllDevices();
    }

    void makeRun(std::chrono::milliseconds patience = std::chrono::seconds(10))
    {
        m_run = std::make_unique<DuplicationRun>(DuplicationRun::Surroundings{.host = *m_host,
                                                                              .center = m_center,
                                                                              .queue = m_queue,
                                                                              .clock = m_clock,
                                                                              .log = *m_log,
                                                                              .patience = patience},
                                                 *this);
    }

    RunChoice choice(bool erase) const
    {
        const auto &enclosure = *m_scanner->tbArray().front();
        RunChoice choice;
        choice.enclosure = {1, enclosure.uid()};
        choice.source = choice.sourceItem = "Master";
        choice.sourceRoot = volume("Master");
        choice.names = volumeNamesOf(enclosure, userHomeOf(*m_host));
        if (erase)
            choice.names[Bay::D] = "COPY3";
        choice.shown = shownDisks(enclosure);
        choice.erase = erase;
        choice.verify = true;
        return choice;
    }

    RunOrder order(bool erase)
    {
        const auto memory = rememberSource(*m_host, devices(), volume("Master"));
        auto order =
            decideOrder(*m_host, devices(), choice(erase), memory, {volume("Master/Read me.txt")}).value();
        order.totalFiles = 1;
        order.totalBytes = 120;
        return order;
    }

    /// Lets time pass until the condition holds, for at most half a minute.
    void until(const std::function<bool()> &condition)
    {
        for (int i = 0; i < 30'000 && !condition(); ++i) {
            m_queue.advance(std::chrono::milliseconds(10));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        ASSERT_TRUE(condition());
    }

    void untilEnded()
    {
        until([this] { return m_ends > 0; });
        // If the run ended twice, the second end would come now.
        m_queue.advance(std::chrono::seconds(10));
        EXPECT_TRUE(m_run->fileCopy().waitForEnd(std::chrono::seconds(10)));
        m_queue.advance(std::chrono::seconds(10));
    }

    std::string volume(const std::string &name) const
    {
        return m_tree.path("machine.json.volumes/Volumes/" + name);
    }

    Json report() const
    {
        for (const auto &name : test::treeOf(m_tree.path("logs"))) {
            if (name.ends_with("-Report.json"))
                return Json::parse(m_tree.read("logs/" + name));
        }
        return {};
    }

    bool told(const std::string &line)
    {
        const std::lock_guard lock(m_mutex);
        return std::find(m_told.begin(), m_told.end(), line) != m_told.end();
    }

    Lines everythingTold()
    {
        const std::lock_guard lock(m_mutex);
        return m_told;
    }

    /// Calls `act` once, at the moment of that name.
    void at(const std::string &moment, std::function<void()> act)
    {
        m_moment = moment;
        m_act = std::move(act);
    }

    ScannedDevices devices() const override { return scannedDevices(*m_scanner); }

    void lookAtAllDevices() override
    {
        if (m_run && m_run->isOn()) {
            tell("look at all");
            m_queue.advance(std::chrono::milliseconds(200)); // the machine notices what the test changed
        }
        m_scanner->scanEverything();
    }

    void lookAtEnclosures() override
    {
        tell("look at enclosures");
        m_scanner->scanEnclosuresAnew();
    }

    bool hasSomethingToCopy() override
    {
        tell("something to copy?");
        return m_hasSomethingToCopy;
    }

    void disksLeftOut(const std::vector<DiskRefusal> &refusals) override
    {
        for (const auto &refusal : refusals)
            tell("left out: " + refusalText(refusal));
        tell("left out: no more");
    }

    std::optional<EnclosureRefusal> refusalOfCopy(const ChosenEnclosure &) override { return m_refusal; }

    void copyStarts(const CopyJob &) override { tell("copy starts"); }
    void problem(const RunProblem &problem) override { tell("problem: " + problem.reason); }
    void refused(const RunRefusal &refusal) override { tell("refused: " + refusalText(refusal)); }

    void ended(const RunSummary &summary) override
    {
        ++m_ends;
        m_summary = summary;
        tell(std::string("ended: ") + nameOf(summary.ending));
    }

    void setProgressMsg(const std::string &message) override { tell("message: " + message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float fraction) override
    {
        if (fraction == 1.0F)
            tell("total 1");
    }
    void BackupFinish() override
    {
        tell("copy thread ends");
        m_run->copyEnded();
    }

    void tell(const std::string &line)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_told.push_back(std::string(nameOf(m_run->phase())) + ", " + withoutRoot(line));
        }
        if (line != m_moment || !m_act)
            return;
        std::exchange(m_act, nullptr)();
    }

    std::string withoutRoot(std::string text) const
    {
        const auto root = m_tree.path("machine.json.volumes");
        for (auto place = text.find(root); place != std::string::npos; place = text.find(root))
            text.erase(place, root.size());
        return text;
    }

    test::TemporaryTree m_tree;
    Json m_machine;
    test::ManualMainQueue m_queue;
    test::StoppedClock m_clock;
    NotificationCenter m_center;
    SystemLogCapture m_silence{[](const std::string &) {}};
    std::unique_ptr<platform::Host> m_simulator;
    std::unique_ptr<FaultyHost> m_host;
    std::unique_ptr<ORVScanDevice> m_scanner;
    std::unique_ptr<LogData> m_log;
    std::unique_ptr<DuplicationRun> m_run;
    std::vector<NotificationCenter::Subscription> m_subscriptions;

    std::mutex m_mutex;
    Lines m_told;
    std::string m_moment;
    std::function<void()> m_act;
    Lines m_erasedNames;
    bool m_hasSomethingToCopy = true;
    std::optional<EnclosureRefusal> m_refusal;
    int m_ends = 0;
    RunSummary m_summary;
};

TEST_F(DuplicationRunTest, WholeRunWithEraseVerifyAndAFailingDiskIsToldInThisOrder)
{
    m_machine["failing"] = {"eraseDisk C"};
    start();
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(
        everythingTold(),
        (Lines{"Erasing, look at all", //
               "Erasing, message: Erasing /dev/disk3 & Mount to /Volumes/COPY1", "Erasing, tool eraseDisk",
               "Erasing, message: Erasing /dev/disk4 & Mount to /Volumes/COPY2", "Erasing, tool eraseDisk",
               "Erasing, message: Erasing /dev/disk5 & Mount to /Volumes/COPY3",
               "Erasing, tool eraseDisk", //
               "Looking, look at enclosures", "Looking, something to copy?",
               "Looking, left out: Slot-C (COPY2): its erase did not succeed",
               "Looking, left out: no more", //
               "Looking, copy starts",       //
               "Copying, message: Duplicating /Volumes/Master/Read me.txt",
               "Copying, total 1", //
               "Copying, message: Verifying File ...",
               "Copying, message: Verifying File ... Succeeded", //
               "Syncing, total 1", "Syncing, copy thread ends", "Ended, ended: copied"}));
    std::string log;
    for (const char *record :
         {"\n\n", "Erasing /dev/disk3 & Mount to /Volumes/COPY1",
          "Erasing /dev/disk4 & Mount to /Volumes/COPY2", "Erasing /dev/disk5 & Mount to /Volumes/COPY3",
          "Start Duplicating Files from /Volumes/Master to /Volumes/COPY1 /Volumes/COPY3",
          "Duplicating /Volumes/Master/Read me.txt", "Verifying File ... Succeeded", "Finish !!!"})
        log += std::string("[2026/11/21 10:20:30]: ") + record + "\n";
    EXPECT_EQ(withoutRoot(test::contentOf(m_log->logFilePath())), log);
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(m_summary.hasErased);
    EXPECT_TRUE(m_summary.isRecorded);
    EXPECT_FALSE(isAllDone(m_summary));
    EXPECT_EQ(report()["disks"][1]["outcome"], "eraseFailed");
    EXPECT_EQ(report()["destinations"][1]["verified"], 1);
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledBeforeTheErase)
{
    start();
    m_run->start(order(true));
    EXPECT_EQ(m_run->phase(), RunPhase::Erasing);
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(everythingTold(), (Lines{"Ended, ended: cancelled"}));
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, EraseThatIsCancelledStopsBeforeTheNextDisk)
{
    start();
    at("tool eraseDisk", [this] { m_run->requestCancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Looking, copy starts"));
    EXPECT_FALSE(told("Looking, look at enclosures")) << "no window is laid out for a copy that never comes";
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_EQ(report()["disks"][0]["outcome"], "erased");
    EXPECT_EQ(report()["disks"][1]["reason"], "the erase was stopped before it");
}

TEST_F(DuplicationRunTest, CancelFromWithinTheEraseStopsBeforeTheNextDiskAndEndsOnce)
{
    start();
    at("message: Erasing /dev/disk3 & Mount to /Volumes/COPY1", [this] { m_run->cancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Looking, copy starts"));
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with(" User Cancel\n"));
}

TEST_F(DuplicationRunTest, CancelWhileTheDevicesAreLookedAtErasesNothing)
{
    start();
    at("look at all", [this] { m_run->cancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, CancelThatIsRequestedBeforeTheStartTouchesNothing)
{
    start();
    for (const bool isErase : {false, true}) {
        m_ends = 0;
        m_run->requestCancel();
        m_run->start(order(isErase));
        EXPECT_EQ(m_ends, 1);
        EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    }
    untilEnded();
    EXPECT_TRUE(m_summary.destinations.empty());
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
    m_ends = 0;
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Copied) << "a request counts for one run";
}

TEST_F(DuplicationRunTest, DiskThatIsTooSmallByTheTimeOfItsEraseKeepsWhatItHoldsAndGetsNoCopy)
{
    auto &volumes = m_machine["enclosures"][0]["bays"][1]["volumes"];
    volumes.push_back({{"name", "TINY"}, {"capacity", 1000}});
    start();
    auto order = this->order(true);
    order.choice.selectedBytes = 120'000;
    at("look at all", [this] {
        EXPECT_TRUE(platform::moveSimulatorLever(m_tree.path("machine.json"), "unmount", "COPY1", ""));
    });
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_FALSE(told("Erasing, message: Erasing /dev/disk3 & Mount to /Volumes/COPY1"));
    EXPECT_EQ(m_summary.destinations.size(), 2U) << "bays C and D";
    EXPECT_FALSE(isAllDone(m_summary));
    ASSERT_FALSE(diskLines(m_summary).empty());
    EXPECT_TRUE(diskLines(m_summary).front().starts_with("Slot-B")) << diskLines(m_summary).front();
}

TEST_F(DuplicationRunTest, VolumesHaveTheirNewNamesInTheCopyThatFollowsTheErase)
{
    start();
    auto order = this->order(true);
    for (auto &disk : order.erase.disks) {
        if (disk.bay == Bay::B)
            disk.info.diskVolume = "NEW";
    }
    order.choice.names[Bay::B] = "NEW";
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_erasedNames, (Lines{"NEW", "COPY2", "COPY3"}));
    EXPECT_TRUE(isAllDone(m_summary));
    EXPECT_TRUE(test::pathExists(volume("NEW/Read me.txt")));
    // A volume whose name was taken gets another one; the copy goes there all the same.
    auto second = this->order(true);
    second.erase.disks[0].info.diskVolume = second.choice.names[Bay::B] = "STICK";
    m_ends = 0;
    m_run->start(std::move(second));
    untilEnded();
    EXPECT_EQ(m_summary.destinations.size(), 3U);
    EXPECT_TRUE(isAllDone(m_summary));
}

TEST_F(DuplicationRunTest, DisksOfTheSourceAreSparedByTheDiskUtilityItself)
{
    start();
    auto order = this->order(true);
    order.choice.sourceDisks.push_back(order.erase.disks[1].fingerprint);
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_EQ(m_host->spared.size(), 2U) << "told before the first disk";
}

TEST_F(DuplicationRunTest, EnclosureThatIsGoneByTheEraseErasesNothing)
{
    start();
    at("look at all",
       [this] { EXPECT_TRUE(platform::moveSimulatorLever(m_tree.path("machine.json"), "detach", "1", "")); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
}

TEST_F(DuplicationRunTest, ProgramsOwnReasonNotToCopyEndsTheRunWithIt)
{
    start();
    m_refusal = EnclosureRefusal::RaidSet;
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(EnclosureRefusal::RaidSet)));
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledInAnyMomentOfLooking)
{
    start();
    for (const char *moment :
         {"look at enclosures", "something to copy?", "left out: no more", "copy starts"}) {
        SCOPED_TRACE(moment);
        m_ends = 0;
        at(moment, [this] { m_run->cancel(); });
        m_run->start(order(true));
        untilEnded();
        EXPECT_EQ(m_ends, 1);
        EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
        EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
    }
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledWhileCopying)
{
    m_machine["enclosures"][0]["bays"][0]["volumes"][0]["content"][1]["bytes"] = 400'000;
    start();
    m_host->faults(volume("COPY1")).delayMilliseconds = 50;
    m_run->start(order(false));
    ASSERT_EQ(m_run->phase(), RunPhase::Copying);
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with("User Cancel\n"));
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledWhileSyncing)
{
    start();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 300;
    m_run->start(order(false));
    until([this] { return m_run->phase() == RunPhase::Syncing; });
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Ended, copy thread ends"));
}

TEST_F(DuplicationRunTest, CancelThatComesWithTheEndOfTheCopyThreadEndsItOnce)
{
    start();
    at("copy thread ends", [this] { m_run->requestCancel(); });
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DuplicationRunTest, CancelOfARunThatHasEndedIsLoggedAndEndsNothing)
{
    start();
    m_run->start(order(false));
    untilEnded();
    m_run->cancel();
    m_run->requestCancel();
    m_queue.advance(std::chrono::seconds(1));
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with("User Cancel\n"));
}

TEST_F(DuplicationRunTest, RunThatComesToNothingEndsOnceAndSaysWhy)
{
    start();
    m_hasSomethingToCopy = false;
    m_run->start(order(false));
    EXPECT_EQ(m_summary.ending, RunEnding::NothingToCopy);
    m_hasSomethingToCopy = true;

    auto elsewhere = order(false);
    elsewhere.choice.enclosure.uid = 4711;
    m_run->start(std::move(elsewhere));
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(EnclosureRefusal::AnotherOne)));

    auto otherSource = order(false);
    otherSource.source.folder = FolderIdentity{1, 1};
    m_run->start(std::move(otherSource));
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(OrderRefusal::SourceGone)));

    auto nowhere = order(false);
    nowhere.destinations = {};
    m_run->start(std::move(nowhere));
    EXPECT_EQ(m_summary.ending, RunEnding::NoDestination);
    EXPECT_EQ(m_summary.note, "no destination");
    untilEnded();
    EXPECT_EQ(m_ends, 4);
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
}

TEST_F(DuplicationRunTest, SourceThatIsAnotherOneByTheEraseKeepsEveryDisk)
{
    start();
    auto order = this->order(true);
    order.source.folder = FolderIdentity{1, 1};
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, EndOfAnEraseThatNobodyStartedCopiesNothing)
{
    start();
    m_run->start(order(true));
    m_center.post(notification::EraseDiskFinish);
    EXPECT_EQ(m_run->phase(), RunPhase::Erasing);
    m_run->cancel();
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DuplicationRunTest, SecondStartIsIgnoredWhileOneIsOn)
{
    start();
    m_run->start(order(false));
    const auto number = m_run->number();
    m_run->start(order(true));
    EXPECT_EQ(m_run->number(), number);
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, NextRunMayStartInTheEndOfTheOneBefore)
{
    start();
    at("ended: copied", [this] { m_run->start(order(false)); });
    m_run->start(order(false));
    until([this] { return m_ends == 2; });
    EXPECT_EQ(m_summary.ending, RunEnding::Copied);
}

TEST_F(DuplicationRunTest, EnclosureThatIsUnpluggedEndsTheRunAndNoOtherDoes)
{
    start();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 300;
    m_run->start(order(false));
    m_run->endIfEnclosureIsLost();
    EXPECT_EQ(m_ends, 0);
    m_scanner->resetArray("All");
    m_run->endIfEnclosureIsLost();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::EnclosureLost);
    untilEnded();
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DuplicationRunTest, DestroyedWhileErasingOrCopyingItTellsNoEndAndLeavesNothingAtWork)
{
    start();
    m_run->start(order(true));
    m_run.reset();
    m_queue.advance(std::chrono::seconds(20));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));

    makeRun();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 200;
    m_run->start(order(false));
    m_run.reset();
    m_queue.advance(std::chrono::seconds(20));
    EXPECT_EQ(m_ends, 0);
    EXPECT_EQ(report()["outcome"], "cancelled");
}

TEST_F(DuplicationRunTest, ProgressCountsWhatTheReportCounts)
{
    start();
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_run->progress().totalFiles(), 1);
    EXPECT_EQ(m_run->progress().filesStarted(), 1);
    EXPECT_EQ(m_run->progress().bytesOf(0), 120U);
    EXPECT_EQ(m_run->progress().workDone(), m_run->progress().totalWork());
}

TEST_F(DuplicationRunTest, RunIntoFoldersAsksForNoDevices)
{
    start();
    RunOrder order;
    order.selection = {volume("Master/Read me.txt")};
    order.folders = FolderJob{
        boundToFolders(*m_host, {order.selection, volume("Master"), {m_tree.folder("there")}, {}, 0}),
        nullptr};
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Copied);
    EXPECT_TRUE(isAllDone(m_summary));
    EXPECT_TRUE(m_tree.exists("there/Read me.txt"));
    EXPECT_FALSE(told("Looking, something to copy?"));
}

} // namespace orvana
