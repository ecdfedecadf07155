#include "duplicate/run/LineFixture.h"

#include "duplicate/job/JobSource.h"
#include "duplicate/plan/SourcePlan.h"
#include "platform/Host.h"

#include <filesystem>
#include <thread>

namespace orvana
{

namespace
{

std::size_t indexOf(Bay bay)
{
    return static_cast<std::size_t>(bay);
}

Json &entryOf(Json &machine, Bay bay)
{
    return machine["enclosures"][0]["bays"][indexOf(bay)];
}

} // namespace

ProductionLineTest::ProductionLineTest() : m_machine(Json::parse(test::SmallMachine))
{
    for (const auto bay : {Bay::B, Bay::C, Bay::D})
        entryOf(m_machine, bay)["attached"] = false;
    m_job.erase = true;
    m_job.verify = true;
}

void ProductionLineTest::makeHost()
{
    m_simulator = platform::makeSimulatorHost(m_tree.path("machine.json"), &m_queue).value();
    m_host = std::make_unique<test::WatchedHost>(*m_simulator);
    m_host->beforeDiskUtility = [this](const test::WatchedHost::Words &words) {
        if (m_onTool)
            m_onTool();
        if (words.front() == m_crashCommand) {
            std::filesystem::copy(statePath(), m_tree.path("state-then"),
                                  std::filesystem::copy_options::recursive);
            m_crashCommand.clear();
        }
        m_toolCommands.push_back(words.front() + (words.size() > 2 ? " " + words[2] : ""));
    };
}

Job ProductionLineTest::job() const
{
    ORVScanDevice scanner(m_host->registry(), m_host->launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanEverything();
    const auto devices = scannedDevices(scanner);
    auto job = m_job;
    const auto root = m_tree.path("machine.json.volumes/Volumes/Master");
    EXPECT_TRUE(nameSource(job, devices, "Master", root));
    return job;
}

void ProductionLineTest::makeLine(std::int64_t wanted, const std::string &pattern)
{
    m_tree.file("machine.json", m_machine.dump());
    makeHost();
    LineHead head;
    head.name = "Reel 7";
    head.job = textOf(job());
    head.wanted = wanted;
    head.pattern = pattern;
    head.certificates = m_tree.path("certificates");
    auto store = LineStore::create(m_host->volumeFiles(), statePath(), head);
    ASSERT_TRUE(store) << store.error();
    put(std::move(*store));
}

void ProductionLineTest::openAgain()
{
    const auto id = m_line->store().head().id;
    m_line.reset();
    open(id);
}

void ProductionLineTest::open(const std::string &id)
{
    makeHost();
    auto store = LineStore::open(m_host->volumeFiles(), statePath(), id, LineStore::Use::Run);
    ASSERT_TRUE(store) << store.error();
    put(std::move(*store));
}

void ProductionLineTest::crashAt(const std::string &command)
{
    m_crashCommand = command;
    until([this] { return test::pathExists(m_tree.path("state-then")); }, "no " + command);
    const auto id = m_line->store().head().id;
    m_line.reset();
    std::filesystem::remove_all(statePath());
    std::filesystem::rename(m_tree.path("state-then"), statePath());
    open(id);
}

void ProductionLineTest::put(LineStore store)
{
    ORVScanDevice scanner(m_host->registry(), m_host->launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanEverything();
    auto work = readLine(store.head());
    ASSERT_TRUE(work) << work.error().reason;
    const auto found =
        findSource(*work, *m_host, scannedDevices(scanner), {1, scanner.tbArray().front()->uid()});
    ASSERT_TRUE(found) << found.error().reason;
    work->files = 4;
    work->bytes = 6120;
    m_line =
        std::make_unique<ProductionLine>(ProductionLine::Surroundings{.host = *m_host,
                                                                      .queue = m_queue,
                                                                      .clock = m_clock,
                                                                      .logFolder = m_tree.folder("logs"),
                                                                      .stateFolder = statePath(),
                                                                      .patience = std::chrono::seconds(10)},
                                         std::move(store), std::move(*work), *this);
}

void ProductionLineTest::changeMachine(const std::function<void(Json &)> &change)
{
    auto machine = Json::parse(m_tree.read("machine.json"));
    change(machine);
    m_tree.file("machine.json", machine.dump());
    m_queue.advance(std::chrono::milliseconds(200));
    m_queue.advance(std::chrono::milliseconds(200));
}

void ProductionLineTest::pull(Bay bay)
{
    changeMachine([&](Json &machine) { entryOf(machine, bay)["attached"] = false; });
}

void ProductionLineTest::insert(Bay bay, const std::string &serial, const std::function<void(Json &)> &change)
{
    pull(bay);
    changeMachine([&](Json &machine) {
        auto &entry = entryOf(machine, bay);
        entry = {{"bay", entry["bay"]},
                 {"model", "BLANK"},
                 {"serial", serial},
                 {"size", 1'000'000},
                 {"formatted", false}};
        if (change)
            change(entry);
    });
}

void ProductionLineTest::seconds(int count)
{
    for (int i = 0; i < count; ++i) {
        for (int part = 0; part < 10; ++part) {
            m_queue.advance(std::chrono::milliseconds(100));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}

void ProductionLineTest::until(const std::function<bool()> &condition, const std::string &what)
{
    for (int i = 0; i < 2000 && !condition(); ++i)
        seconds(1);
    ASSERT_TRUE(condition()) << what;
}

void ProductionLineTest::untilState(Bay bay, LineBayState wanted)
{
    until([&] { return state(bay) == wanted; },
          slotNameOf(bay) + ": wanted " + nameOf(wanted) + ", is " + nameOf(state(bay)) + " " + text(bay));
}

} // namespace orvana
