#include "duplicate/run/RunFixture.h"

#include <thread>

namespace orvana
{

namespace
{

const char *nameOf(RunPhase phase)
{
    switch (phase) {
    case RunPhase::Idle:
        return "Idle";
    case RunPhase::Erasing:
        return "Erasing";
    case RunPhase::Looking:
        return "Looking";
    case RunPhase::Copying:
        return "Copying";
    case RunPhase::Syncing:
        return "Syncing";
    case RunPhase::Ended:
        return "Ended";
    }
    return "";
}

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

void DuplicationRunTest::start()
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

void DuplicationRunTest::makeRun()
{
    m_run =
        std::make_unique<DuplicationRun>(DuplicationRun::Surroundings{.host = *m_host,
                                                                      .center = m_center,
                                                                      .queue = m_queue,
                                                                      .clock = m_clock,
                                                                      .log = *m_log,
                                                                      .patience = std::chrono::seconds(10),
                                                                      .stateFolder = m_tree.path("state")},
                                         *this);
}

RunChoice DuplicationRunTest::choice(bool erase) const
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

RunOrder DuplicationRunTest::order(bool erase)
{
    const auto memory = rememberSource(*m_host, devices(), volume("Master"));
    auto order =
        decideOrder(*m_host, devices(), choice(erase), memory, {volume("Master/Read me.txt")}).value();
    order.totalFiles = 1;
    order.totalBytes = 120;
    return order;
}

void DuplicationRunTest::until(const std::function<bool()> &condition)
{
    for (int i = 0; i < 30'000 && !condition(); ++i) {
        m_queue.advance(std::chrono::milliseconds(10));
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_TRUE(condition());
}

void DuplicationRunTest::untilEnded()
{
    until([this] { return m_ends > 0; });
    // If the run ended twice, the second end would come now.
    m_queue.advance(std::chrono::seconds(10));
    EXPECT_TRUE(m_run->fileCopy().waitForEnd(std::chrono::seconds(10)));
    m_queue.advance(std::chrono::seconds(10));
}

Json DuplicationRunTest::report() const
{
    for (const auto &name : test::treeOf(m_tree.path("logs"))) {
        if (name.ends_with("-Report.json"))
            return Json::parse(m_tree.read("logs/" + name));
    }
    return {};
}

void DuplicationRunTest::lookAtAllDevices()
{
    if (m_run && m_run->isOn()) {
        tell("look at all");
        m_queue.advance(std::chrono::milliseconds(200)); // the machine notices what the test changed
    }
    m_scanner->scanEverything();
}

void DuplicationRunTest::disksLeftOut(const std::vector<DiskRefusal> &refusals)
{
    for (const auto &refusal : refusals)
        tell("left out: " + refusalText(refusal));
    tell("left out: no more");
}

void DuplicationRunTest::ended(const RunSummary &summary)
{
    ++m_ends;
    m_summary = summary;
    tell(std::string("ended: ") + nameOf(summary.ending));
}

void DuplicationRunTest::tell(const std::string &line)
{
    {
        const std::lock_guard lock(m_mutex);
        m_told.push_back(std::string(nameOf(m_run->phase())) + ", " + withoutRoot(line));
    }
    if (line != m_moment || !m_act)
        return;
    std::exchange(m_act, nullptr)();
}

std::string DuplicationRunTest::withoutRoot(std::string text) const
{
    const auto root = m_tree.path("machine.json.volumes");
    for (auto place = text.find(root); place != std::string::npos; place = text.find(root))
        text.erase(place, root.size());
    return text;
}

} // namespace orvana
