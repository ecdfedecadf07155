// Injects every possible failure on each destination in turn and compares the result with the report. The
// report must list each failure that happened, and no other. Prints the table.

#include "duplicate/engine/FileCopy.h"
#include "duplicate/report/RunReport.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PathJson.h"
#include "foundation/SystemLog.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

namespace orvana::test
{

namespace
{

constexpr std::size_t Destinations = 3;

struct Injection
{
    const char *name;
    std::function<void(platform::VolumeFaults &)> inject;
};

const std::vector<Injection> &injections()
{
    using Faults = platform::VolumeFaults;
    static const std::vector<Injection> all{
        {"full from the start", [](Faults &f) { f.capacity = 0; }},
        {"full in mid-file", [](Faults &f) { f.capacity = 1'500'000; }},
        {"write error from the start", [](Faults &f) { f.writeErrorAfter = 0; }},
        {"write error in mid-file", [](Faults &f) { f.writeErrorAfter = 1'500'000; }},
        {"read error in comparing", [](Faults &f) { f.readErrorAfter = 1'000; }},
        {"gone in mid-file", [](Faults &f) { f.goneAfter = 1'500'000; }},
        {"gone from the start", [](Faults &f) { f.gone = true; }},
        {"read-only", [](Faults &f) { f.readOnly = true; }},
        {"flush error", [](Faults &f) { f.writeOutError = true; }},
        {"sync error", [](Faults &f) { f.syncError = true; }},
        {"close error", [](Faults &f) { f.closeError = true; }},
    };
    return all;
}

class Injected : public testing::Test
{
protected:
    Injected()
    {
        m_tree.file("source/docs/small", "a small one");
        m_tree.file("source/docs/empty", "");
        m_tree.file("source/docs/big", patternOf(3'000'000));
        m_tree.file("source/docs/inner/last", patternOf(40'000, 2));
    }

    std::string root(std::size_t destination) const { return m_tree.path("d" + std::to_string(destination)); }

    static inline const std::set<std::string> Files{"docs/small", "docs/empty", "docs/big",
                                                    "docs/inner/last"};

    bool isWhole(const std::string &file, std::size_t destination) const
    {
        const auto copy = root(destination) + "/" + file;
        return pathExists(copy) && contentOf(copy) == m_tree.read("source/" + file);
    }

    Json run(const Injection &injection, std::size_t faulty, bool verify)
    {
        std::vector<std::string> roots;
        for (std::size_t i = 0; i < Destinations; ++i)
            roots.push_back(m_tree.folder("d" + std::to_string(i)));
        TestHost host(m_tree.path("home"));
        NotificationCenter center;
        FileCopy engine(host, center);
        engine.SetBackupDiskValue({m_tree.path("source/docs")}, m_tree.path("source"), roots);
        engine.setBVerifyFiles(verify);
        const auto report = std::make_shared<RunReport>(m_tree.folder("reports"), "run", m_clock);
        engine.setReport(report);
        injection.inject(host.faults().volume(root(faulty)));
        engine.StartBackup();
        m_isAllDone = isAllDone(report->summary());
        return Json::parse(contentOf(report->path()));
    }

    TemporaryTree m_tree;
    StoppedClock m_clock;
    bool m_isAllDone = false;
    SystemLogCapture m_silence{[](const std::string &) {}};
};

} // namespace

TEST_F(Injected, FailuresAreReportedAndNoOthers)
{
    std::printf("%-28s %-7s %-12s %s\n", "injected", "verify", "on", "whole, copied, reported");
    for (const auto &injection : injections()) {
        for (std::size_t faulty = 0; faulty < 2 * Destinations; ++faulty) {
            const auto place = faulty % Destinations;
            const bool verify = faulty >= Destinations;
            SCOPED_TRACE(injection.name + std::string(verify ? ", verify, " : ", ") + std::to_string(place));
            std::filesystem::remove_all(m_tree.path("reports"));
            for (std::size_t i = 0; i < Destinations; ++i)
                std::filesystem::remove_all(root(i));
            const auto account = run(injection, place, verify);
            std::set<std::string> reported;
            for (const auto &problem : account["problems"]) {
                EXPECT_EQ(problem["destination"], root(place)) << "this one has no fault: " << problem.dump();
                reported.insert(problem["file"].get<std::string>().substr(m_tree.path("source/").size()));
            }
            const auto &there = account["destinations"][place];
            const bool isKnown = there["onDisk"] != Json(false);
            std::int64_t whole = 0;
            for (const auto &file : Files) {
                const bool isGood = isWhole(file, place);
                whole += isGood ? 1 : 0;
                // If a folder could not be made, its entry in the report stands for the files in it.
                const bool isSpokenFor = reported.contains(file) || reported.contains("docs") ||
                                         reported.contains(file.substr(0, file.rfind('/'))) || !isKnown;
                EXPECT_TRUE(isGood || isSpokenFor) << file << " is not whole, and nobody says so";
            }
            EXPECT_LE(there["copied"].get<std::int64_t>(), whole) << "called better than it is";
            // These two failures only happen when copies are read back.
            const bool needsVerify = injection.name == std::string("read error in comparing") ||
                                     injection.name == std::string("flush error");
            EXPECT_EQ(m_isAllDone, needsVerify && !verify) << account.dump(2);
            for (std::size_t i = 0; i < Destinations; ++i) {
                if (i == place)
                    continue;
                EXPECT_EQ(account["destinations"][i]["copied"], Files.size());
                EXPECT_EQ(account["destinations"][i]["failed"], 0);
                for (const auto &file : Files)
                    EXPECT_TRUE(isWhole(file, i)) << file;
            }
            std::printf("%-28s %-7s d%-11zu %lld, %lld, %zu%s\n", injection.name, verify ? "yes" : "no",
                        place, static_cast<long long>(whole),
                        static_cast<long long>(there["copied"].get<std::int64_t>()), reported.size(),
                        isKnown ? "" : ", not known to be on disk");
        }
    }
}

} // namespace orvana::test
