// A run that is cancelled, at any moment, leaves on its destinations only what is allowed.

#include "duplicate/engine/EngineFixture.h"

#include <array>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <random>
#include <set>
#include <sys/stat.h>

namespace orvana
{

namespace fs = std::filesystem;

/// The parameter is the first number of the random moments: a hundred moments each.
class CancelledRun : public test::EngineTest, public testing::WithParamInterface<unsigned>
{
protected:
    static constexpr std::size_t Files = 18;

    CancelledRun()
    {
        for (int folder = 0; folder < 3; ++folder) {
            for (int file = 0; file < 5; ++file)
                m_tree.file("source/docs/" + std::to_string(folder) + "/small" + std::to_string(file),
                            test::patternOf(static_cast<std::size_t>(1 + file * 9000)));
            m_tree.file("source/docs/" + std::to_string(folder) + "/large", test::patternOf(BlockSize + 77));
            EXPECT_EQ(::chmod(source("docs/" + std::to_string(folder)).c_str(), 0555), 0);
        }
    }

    ~CancelledRun() override { openFolders(m_tree.root()); }

    static void openFolders(const std::string &root)
    {
        for (const auto &entry : fs::recursive_directory_iterator(root)) {
            if (entry.is_directory())
                fs::permissions(entry.path(), fs::perms::owner_all);
        }
    }

    // Runs the job, and cancels it at the notification with this number. Returns the sources of the files
    // that were announced, in their order.
    std::vector<std::string> runUntil(std::size_t number, const std::vector<std::string> &destinations,
                                      bool verify)
    {
        setJob({"docs"}, destinations, Files);
        useReport();
        m_engine.setBVerifyFiles(verify);
        std::mutex mutex;
        std::condition_variable changed;
        std::size_t posted = 0;
        bool isCancelled = false;
        std::vector<std::string> announced;
        m_recorder.onEach([&](const std::string &line) {
            constexpr std::string_view Announcement = "FileCopyMessage Duplicating ";
            std::unique_lock lock(mutex);
            if (line.starts_with(Announcement))
                announced.push_back(line.substr(Announcement.size()));
            EXPECT_FALSE(isCancelled) << line << " is posted after the cancel";
            if (posted++ != number)
                return;
            changed.notify_all();
            changed.wait(lock, [&] { return isCancelled; });
        });
        m_engine.startCopyThread();
        {
            std::unique_lock lock(mutex);
            EXPECT_TRUE(changed.wait_for(lock, std::chrono::seconds(30), [&] { return posted > number; }));
            m_engine.stopCopyThread();
            isCancelled = true;
            changed.notify_all();
        }
        EXPECT_TRUE(m_engine.waitForEnd(std::chrono::seconds(30)));
        m_recorder.onEach({});
        return announced;
    }

    // Every file but the last one that was announced is whole, the last one is a beginning of its source or
    // is missing, there is no other file, and folders have the permissions of their sources.
    void checkWhatIsLeft(const std::string &destination, const std::vector<std::string> &announced)
    {
        std::set<std::string> wanted;
        for (const auto &file : announced)
            wanted.insert(m_tree.path(destination) + file.substr(source().size()));
        for (const auto &entry : fs::recursive_directory_iterator(m_tree.path(destination))) {
            const auto path = entry.path().string();
            if (entry.is_directory()) {
                const auto name = path.substr(m_tree.path(destination).size());
                ASSERT_EQ(entry.status().permissions(), fs::status(source() + name).permissions()) << path;
            } else {
                ASSERT_TRUE(wanted.contains(path)) << path << " was not announced";
            }
        }
        for (std::size_t i = 0; i < announced.size(); ++i) {
            const auto path = m_tree.path(destination) + announced[i].substr(source().size());
            const bool isLast = i + 1 == announced.size();
            const bool isThere = fs::exists(path);
            ASSERT_TRUE(isThere || isLast) << path;
            if (!isThere)
                continue;
            const auto content = test::contentOf(path);
            const auto whole = test::contentOf(announced[i]);
            ASSERT_TRUE(isLast ? whole.starts_with(content) : whole == content)
                << path << " " << content.size();
        }
    }
};

TEST_P(CancelledRun, LeavesWhatWasAnnouncedAtAHundredMoments)
{
    // The last two notifications of a run are its end.
    std::array<std::size_t, 2> counts{};
    for (const bool verify : {false, true}) {
        const auto before = m_recorder.all().size();
        m_engine.setBVerifyFiles(verify);
        runJob({"docs"}, {"whole"}, Files);
        counts.at(verify ? 1 : 0) = m_recorder.all().size() - before - 2;
    }
    std::mt19937 random(GetParam());
    int broken = 0;
    for (int round = 0; round < 100; ++round) {
        const bool verify = round % 4 == 0;
        const auto announced = runUntil(random() % counts.at(verify ? 1 : 0), {"a", "b"}, verify);
        checkWhatIsLeft("a", announced);
        checkWhatIsLeft("b", announced);
        if (HasFatalFailure())
            return;
        const bool isInTheMiddle = announced.size() < Files;
        broken += isInTheMiddle ? 1 : 0;
        EXPECT_TRUE(!isInTheMiddle || report()["outcome"] == "cancelled");
        for (const char *name : {"a", "b", "reports"}) {
            openFolders(m_tree.path(name));
            fs::remove_all(m_tree.path(name));
        }
    }
    EXPECT_GT(broken, 80) << "most runs were to be cancelled in their middle";
}

INSTANTIATE_TEST_SUITE_P(FiveTimes, CancelledRun, testing::Values(11U, 12U, 13U, 14U, 15U));

} // namespace orvana
