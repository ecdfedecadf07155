#pragma once

#include "duplicate/engine/EngineFixture.h"
#include "duplicate/journal/Journals.h"
#include "platform/posix/PosixVolumeFiles.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

/// Runs of the engine with a journal, and runs that go on with it.
class ResumeTest : public test::EngineTest
{
protected:
    JournalPlace placeOf(const std::string &name) const { return {m_tree.path(name), {}, {}}; }

    JournalOrder order(const std::vector<std::string> &destinations, bool resume) const
    {
        JournalOrder order{m_tree.path("state"), {source(), {}, {}}, {}, {}, resume};
        for (const auto &name : destinations)
            order.destinations.push_back(placeOf(name));
        return order;
    }

    void run(bool resume, const std::vector<std::string> &destinations = {"a"})
    {
        setJob({""}, destinations, 1);
        useReport();
        m_engine.setJournal(order(destinations, resume));
        m_engine.StartBackup();
    }

    /// Runs until `broken` cannot be copied any more; its journal stays.
    void runThatBreaks(const std::vector<std::string> &destinations = {"a"})
    {
        m_tree.file("source/zz-broken", "x");
        for (const auto &name : destinations)
            m_tree.folder(name + "/zz-broken");
        run(false, destinations);
        std::filesystem::remove(source("zz-broken"));
        for (const auto &name : destinations)
            std::filesystem::remove(m_tree.path(name + "/zz-broken"));
        makeOld();
    }

    /// Adds records to the journals that are so large that those before them are not among the last.
    void makeOld() const
    {
        for (const auto &head : journals().heads()) {
            auto copies = journals().openCopies(head);
            ASSERT_TRUE(copies);
            for (const auto &destination : head.destinations) {
                JournalRecord record;
                record.destination = destination.number;
                record.group = 1'000'000;
                record.bytes = 1ULL << 40U;
                record.path = "later";
                ASSERT_TRUE(copies->append(lineOf(record)));
            }
        }
    }

    Journals journals() const
    {
        static platform::posix::PosixVolumeFiles files;
        return std::move(*Journals::open(files, m_tree.path("state")));
    }

    Json destination(std::size_t index = 0) const { return report()["destinations"][index]; }

    /// Changes the content of a file and gives it its old times back.
    void changeUnseen(const std::string &path) const
    {
        struct stat before{};
        ASSERT_EQ(::stat(path.c_str(), &before), 0);
        const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        ASSERT_EQ(::pwrite(file, "X", 1, 0), 1);
        ::close(file);
        const struct timespec times[2] = {before.st_atim, before.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
};

} // namespace orvana
