#include "cli/MachineFixture.h"

#include "foundation/PlainMainQueue.h"
#include "foundation/SystemLog.h"
#include "platform/VolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/PosixCommandLauncher.h"
#include "support/SmallMachine.h"
#include "support/WatchedHost.h"

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvana::cli
{

namespace
{

/// The user who is asked. Waits until the question is in the file, calls `happening`, then types the answer.
class Somebody
{
public:
    Somebody(std::string answer, std::function<void()> happening, const std::string &file)
        : m_thread([this, answer = std::move(answer), happening = std::move(happening), file] {
              while (!m_isOver && test::contentOf(file).find("[y/N]") == std::string::npos)
                  std::this_thread::yield();
              happening();
              EXPECT_EQ(::write(m_ends[1], answer.data(), answer.size()),
                        static_cast<ssize_t>(answer.size()));
          })
    {
    }
    ~Somebody()
    {
        m_isOver = true;
        m_thread.join();
        ::close(m_ends[0]);
        ::close(m_ends[1]);
    }
    Somebody(const Somebody &) = delete;
    Somebody &operator=(const Somebody &) = delete;

    int input() const { return m_ends[0]; }

private:
    static std::array<int, 2> makePipe()
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        return ends;
    }

    std::array<int, 2> m_ends = makePipe();
    std::atomic<bool> m_isOver{false};
    std::thread m_thread;
};

bool waitForText(const std::string &file, const std::string &text)
{
    for (int i = 0; i < 6000; ++i) {
        if (test::pathExists(file) && test::contentOf(file).find(text) != std::string::npos)
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

} // namespace

SimulatedMachineTest::SimulatedMachineTest() : m_machine(Json::parse(test::SmallMachine))
{
    m_options.logFolder = m_disks.logFolder = m_tree.folder("logs");
    m_disks.enclosure = 1;
}

void SimulatedMachineTest::writeMachine()
{
    if (!std::exchange(m_isWritten, true))
        m_tree.file("machine.json", m_machine.dump());
}

ExitStatus SimulatedMachineTest::run(const Command &command)
{
    writeMachine();
    const SystemLogCapture silence([](const std::string &) {});
    PlainMainQueue queue;
    const auto machine = platform::makeSimulatorHost(m_tree.path("machine.json"), &queue).value();
    test::WatchedHost host(*machine);
    host.beforeDiskUtility = m_beforeTool;
    std::FILE *out = std::fopen(m_tree.path("out").c_str(), "w");
    std::FILE *err = std::fopen(m_tree.path("err").c_str(), "w");
    std::optional<Somebody> somebody;
    if (m_answer)
        somebody.emplace(*m_answer, m_happening, m_tree.path("err"));
    Terminal terminal(out, err, false, somebody ? somebody->input() : Terminal::NoInput);
    const auto status = command(host, queue, terminal);
    somebody.reset();
    std::fclose(out);
    std::fclose(err);
    m_out = m_tree.read("out");
    m_err = m_tree.read("err");
    return status;
}

ExitStatus SimulatedMachineTest::duplicate()
{
    return run([this](auto &host, auto &queue, auto &terminal) {
        return runDuplicate(host, queue, terminal, m_options);
    });
}

ExitStatus SimulatedMachineTest::erase()
{
    return run(
        [this](auto &host, auto &queue, auto &terminal) { return runErase(host, queue, terminal, m_disks); });
}

ExitStatus SimulatedMachineTest::eject()
{
    return run(
        [this](auto &host, auto &queue, auto &terminal) { return runEject(host, queue, terminal, m_disks); });
}

int SimulatedMachineTest::program(const Files &words)
{
    writeMachine();
    auto all = words;
    all.insert(all.end(), {"--simulator", m_tree.path("machine.json"), "--log-dir", m_tree.path("logs")});
    const auto result = platform::posix::PosixCommandLauncher().run(PLURIMOCTL, all);
    m_out = result.output;
    return result.status.value_or(-1);
}

int SimulatedMachineTest::duplicateUntil(const std::string &text)
{
    writeMachine();
    m_tree.file("out", "");
    const pid_t child = ::fork();
    if (child == 0) {
        platform::posix::CancelRequest::blockSignals();
        ::_exit(duplicate());
    }
    EXPECT_TRUE(waitForText(m_tree.path("out"), text));
    ::kill(child, SIGINT);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

void SimulatedMachineTest::answer(std::string answer, std::function<void()> happening)
{
    m_answer = std::move(answer) + "\n";
    m_happening = std::move(happening);
}

void SimulatedMachineTest::move(const std::string &lever, const std::string &target) const
{
    const auto moved = platform::moveSimulatorLever(m_tree.path("machine.json"), lever, target, "");
    EXPECT_TRUE(moved) << moved.error();
}

bool SimulatedMachineTest::isAttached(std::size_t bay) const
{
    return Json::parse(m_tree.read("machine.json"))["enclosures"][0]["bays"][bay].value("attached", true);
}

bool SimulatedMachineTest::isMounted(const std::string &volume) const
{
    return m_tree.exists("machine.json.volumes/Volumes/" + volume);
}

SimulatedMachineTest::Files SimulatedMachineTest::filesOn(const std::string &volume) const
{
    const auto root = m_tree.path("machine.json.volumes/Volumes/" + volume);
    auto all = test::treeOf(root);
    std::erase_if(all, [&](const auto &name) { return std::filesystem::is_directory(root + "/" + name); });
    return all;
}

std::string SimulatedMachineTest::read(const std::string &volume, const std::string &file) const
{
    return m_tree.read("machine.json.volumes/Volumes/" + volume + "/" + file);
}

std::string SimulatedMachineTest::nameEndingWith(const std::string &end) const
{
    for (const auto &name : test::treeOf(m_tree.path("logs"))) {
        if (name.ends_with(end))
            return name;
    }
    ADD_FAILURE() << "no file ends with " << end;
    return {};
}

} // namespace orvana::cli
