#include "faults/FaultFixture.h"

#include "cli/Terminal.h"
#include "foundation/SystemLog.h"
#include "platform/posix/CancelRequest.h"

#include <chrono>
#include <filesystem>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvana::test
{

namespace
{

constexpr uid_t Nobody = 65534;

} // namespace

void FaultTest::SetUp()
{
    const bool isRoot = ::geteuid() == 0;
    if (GetParam() == User::Root && !isRoot)
        GTEST_SKIP() << "only root can run this as root";
    ::chmod(m_tree.root().c_str(), 0777);
    giveToUser(m_tree.folder("source"));
    giveToUser(m_tree.folder("logs"));
}

void FaultTest::giveToUser(const std::string &path) const
{
    if (isOrdinary() && ::geteuid() == 0 && shell("chown -R 65534:65534 '" + path + "'") != 0)
        throw std::runtime_error("chown " + path);
}

std::string FaultTest::sourceFile(const std::string &relative, std::string_view content)
{
    const auto path = m_tree.file("source/" + relative, content);
    giveToUser(m_tree.path("source"));
    return path;
}

std::string FaultTest::destination(const std::string &name)
{
    const auto path = m_tree.folder(name);
    giveToUser(path);
    return path;
}

MountedVolume &FaultTest::volume(const std::string &type, int megabytes)
{
    m_volumes.push_back(std::make_unique<MountedVolume>(type, megabytes));
    giveToUser(m_volumes.back()->root());
    return *m_volumes.back();
}

void FaultTest::start(const std::vector<std::string> &items, const std::vector<std::string> &destinations)
{
    cli::CopyOptions options;
    for (const auto &item : items)
        options.sources.push_back(source(item));
    options.destinations = destinations;
    options.root = m_tree.path("source");
    options.logFolder = m_tree.path("logs");
    options.verify = m_verify;
    m_child = ::fork();
    if (m_child == 0)
        runInChild(options);
}

void FaultTest::runInChild(const cli::CopyOptions &options) const
{
    if (isOrdinary() && ::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setgid(Nobody) != 0 || ::setuid(Nobody) != 0))
        ::_exit(99);
    int status = 98;
    {
        std::FILE *out = std::fopen(m_tree.path("out").c_str(), "w");
        std::FILE *err = std::fopen(m_tree.path("err").c_str(), "w");
        const SystemLogCapture silence([](const std::string &) {});
        platform::posix::CancelRequest::blockSignals();
        cli::Terminal terminal(out, err, false);
        TestHost host(m_tree.path("home"));
        m_faults(host);
        status = cli::runCopy(host, terminal, options);
        std::fclose(out);
        std::fclose(err);
    }
    ::_exit(status);
}

int FaultTest::wait()
{
    int status = 0;
    ::waitpid(m_child, &status, 0);
    m_child = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

bool FaultTest::waitForSize(const std::string &path, std::uint64_t size)
{
    for (int i = 0; i < 2000; ++i) {
        struct stat status{};
        if (::stat(path.c_str(), &status) == 0 && static_cast<std::uint64_t>(status.st_size) >= size)
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

std::string FaultTest::onlyFile(const std::string &end) const
{
    for (const auto &name : treeOf(m_tree.path("logs"))) {
        if (name.ends_with(end))
            return m_tree.read("logs/" + name);
    }
    return "{}";
}

int FaultTest::logged(const std::string &text) const
{
    const auto all = log();
    int count = 0;
    for (auto at = all.find(text); at != std::string::npos; at = all.find(text, at + 1))
        ++count;
    return count;
}

std::string FaultTest::reason(const std::string &relative, const std::string &to) const
{
    const auto written = report();
    for (const auto &problem : written["problems"]) {
        if (problem["file"] == source(relative) && problem["destination"] == to)
            return problem.contains("reason") ? problem["reason"] : problem["kind"];
    }
    return {};
}

void FaultTest::expectIntact(const std::string &relative, const std::string &to) const
{
    EXPECT_EQ(shell("cmp -s '" + source(relative) + "' '" + to + "/" + relative + "'"), 0)
        << to << " lost bytes of " << relative;
}

void FaultTest::forgetRun()
{
    std::filesystem::remove_all(m_tree.path("logs"));
    giveToUser(m_tree.folder("logs"));
}

} // namespace orvana::test
