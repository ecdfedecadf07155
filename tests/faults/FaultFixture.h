#pragma once

#include "cli/CopyCommand.h"
#include "faults/MountedVolume.h"
#include "foundation/PathJson.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <sys/types.h>

namespace orvana::test
{

/// The user who runs the copy.
enum class User { Root, Ordinary };

/// Runs the command `plurimoctl copy` as a process of its own, as either user, with real faults or with
/// faults made by switches. Gives access to its log, report and exit status.
class FaultTest : public testing::TestWithParam<User>
{
protected:
    void SetUp() override;

    /// A source file of the user's.
    std::string sourceFile(const std::string &relative, std::string_view content);

    /// A destination folder of the user's, on the test's own disk.
    std::string destination(const std::string &name);

    /// A real volume; skips the test where this machine cannot mount one.
    MountedVolume &volume(const std::string &type, int megabytes);

    /// Starts the copy of the ticked items, relative to the source folder.
    void start(const std::vector<std::string> &items, const std::vector<std::string> &destinations);

    /// Waits for the end of the copy and returns its exit status.
    int wait();

    int run(const std::vector<std::string> &items, const std::vector<std::string> &destinations)
    {
        start(items, destinations);
        return wait();
    }

    /// Waits until the file has at least `size` bytes.
    static bool waitForSize(const std::string &path, std::uint64_t size);

    std::string source(const std::string &relative) const { return m_tree.path("source/" + relative); }
    std::string log() const { return onlyFile("-Log.txt"); }
    Json report() const { return Json::parse(onlyFile("-Report.json")); }
    std::string errors() const { return contentOf(m_tree.path("err")); }

    /// The number of log records that hold `text`.
    int logged(const std::string &text) const;
    int cannotDuplicate(const std::string &relative, const std::string &to) const
    {
        return logged("Can`t Duplicate " + source(relative) + " to " + to);
    }

    /// Returns the report's reason why `relative` is not on `to`, or an empty text if there is no such
    /// problem.
    std::string reason(const std::string &relative, const std::string &to) const;

    /// Asserts that the file on `to` equals its source.
    void expectIntact(const std::string &relative, const std::string &to) const;

    /// Removes logs and reports, for a second run.
    void forgetRun();

    bool isOrdinary() const { return GetParam() == User::Ordinary; }

    TemporaryTree m_tree;
    std::function<void(TestHost &)> m_faults = [](TestHost &) {};
    bool m_verify = false;
    pid_t m_child = -1;

private:
    std::string onlyFile(const std::string &end) const;
    void giveToUser(const std::string &path) const;
    [[noreturn]] void runInChild(const cli::CopyOptions &options) const;

    std::vector<std::unique_ptr<MountedVolume>> m_volumes;
};

} // namespace orvana::test
