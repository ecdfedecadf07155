#pragma once

#include "duplicate/engine/ResumeFixture.h"

namespace orvana
{

using platform::Keep;

/// Runs that keep dates, or all that a source has besides its content.
class KeepTest : public ResumeTest
{
protected:
    static constexpr std::int64_t OldDate = 1'000'000'000;

    void keep(Keep what, const std::vector<std::string> &items = {""},
              const std::vector<std::string> &destinations = {"a"}, CopyManner manner = {})
    {
        manner.keep = what;
        setJob(items, destinations, 1);
        useReport();
        m_engine.setManner(manner);
        m_engine.StartBackup();
    }

    void keepAll(const std::vector<std::string> &items = {""},
                 const std::vector<std::string> &destinations = {"a"})
    {
        keep(Keep::All, items, destinations);
    }

    /// Makes a file of the source with an old date.
    void oldFile(const std::string &name, const std::string &content = "content") const
    {
        m_tree.file("source/" + name, content);
        setDate(source(name));
    }

    static void setDate(const std::string &path, std::int64_t seconds = OldDate)
    {
        const timespec times[] = {{0, UTIME_OMIT}, {seconds, 123'456'789}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }

    static struct stat statusOf(const std::string &path)
    {
        struct stat status{};
        EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
        return status;
    }

    static bool hasOldDate(const std::string &path)
    {
        const auto status = statusOf(path);
        return status.st_mtim.tv_sec == OldDate && status.st_mtim.tv_nsec == 123'456'789;
    }

    std::string textOf(const std::string &link) const
    {
        return std::filesystem::read_symlink(m_tree.path(link)).string();
    }

    bool isOneFile(const std::string &a, const std::string &b) const
    {
        return statusOf(m_tree.path(a)).st_ino == statusOf(m_tree.path(b)).st_ino;
    }
};

} // namespace orvana
