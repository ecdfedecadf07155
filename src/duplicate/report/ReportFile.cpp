#include "duplicate/report/ReportFile.h"

#include "foundation/SystemLog.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvana
{

namespace
{

// The file is in the report's own folder if possible, so that a long list is on a disk and not in memory.
std::FILE *openNamelessFile(const std::string &folder)
{
    const int number = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    return number >= 0 ? ::fdopen(number, "w+") : std::tmpfile();
}

bool copyAll(std::FILE *from, std::FILE *to)
{
    std::array<char, 65536> buffer{};
    // Problems that could not be written would be missing in the middle of the list.
    if (std::fflush(from) != 0 || std::ferror(from) != 0 || std::fseek(from, 0, SEEK_SET) != 0)
        return false;
    while (const auto count = std::fread(buffer.data(), 1, buffer.size(), from))
        std::fwrite(buffer.data(), 1, count, to);
    return std::ferror(from) == 0;
}

bool isThere(const std::string &path)
{
    struct stat status{};
    return ::lstat(path.c_str(), &status) == 0;
}

// Making a link never replaces a report of the same second; a rename would.
std::string giveFreeName(const std::string &unfinished, const std::string &base, int number)
{
    for (; number < 1000; ++number) {
        auto path = base + (number > 1 ? "-" + std::to_string(number) : "") + ".json";
        if (::link(unfinished.c_str(), path.c_str()) == 0)
            return path;
        if (errno == EEXIST)
            continue;
        // Some file systems have no second name for a file, and some have no rename that keeps an existing
        // file.
        if (::renameat2(AT_FDCWD, unfinished.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0)
            return path;
        if (errno == EEXIST)
            continue;
        if (!isThere(path) && ::rename(unfinished.c_str(), path.c_str()) == 0)
            return path;
        if (!isThere(path))
            break;
    }
    return {};
}

} // namespace

void ReportFile::addProblem(const Json &problem)
{
    if (m_folder.empty())
        return;
    const bool first = !m_problems;
    if (first)
        m_problems.reset(openNamelessFile(m_folder));
    if (!m_problems ||
        std::fprintf(m_problems.get(), "%s    %s", first ? "\n" : ",\n", problem.dump().c_str()) < 0)
        m_hasLost = true;
}

bool ReportFile::writeList(const char *name, std::FILE *to)
{
    std::fprintf(to, ",\n  \"%s\": [", name);
    if (m_problems && !copyAll(m_problems.get(), to))
        return false;
    return std::fprintf(to, "%s]", m_problems ? "\n  " : "") > 0;
}

bool ReportFile::writeAll(const Json &summary, ReportFile &leftOut, const std::string &path)
{
    const int number = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (number < 0)
        return false;
    FileHandle file(::fdopen(number, "w"));
    // The lists become the last members of the summary. They are never in memory as a whole.
    std::string head = summary.dump(2);
    head.erase(head.rfind("\n}"));
    std::fprintf(file.get(), "%s", head.c_str());
    if (!leftOut.writeList("leftOutItems", file.get()) || !writeList("problems", file.get()))
        return false;
    std::fprintf(file.get(), "\n}\n");
    const bool isWhole = std::fflush(file.get()) == 0 && std::ferror(file.get()) == 0;
    return std::fclose(file.release()) == 0 && isWhole;
}

std::string ReportFile::write(const Json &summary, ReportFile &leftOut, const std::string &stamp, int number)
{
    if (m_folder.empty())
        return {};
    const std::string base = m_folder + "/" + stamp + "-Report";
    const std::string unfinished = base + "." + std::to_string(::getpid()) + ".part";
    std::string path;
    if (writeAll(summary, leftOut, unfinished))
        path = giveFreeName(unfinished, base, number);
    if (path.empty())
        systemLog("The run report could not be written: " + std::generic_category().message(errno));
    ::unlink(unfinished.c_str());
    return path;
}

void ReportFile::replace(const Json &summary, ReportFile &leftOut, const std::string &path)
{
    const std::string unfinished = path + "." + std::to_string(::getpid()) + ".part";
    if (writeAll(summary, leftOut, unfinished) && ::rename(unfinished.c_str(), path.c_str()) == 0)
        return;
    systemLog("The run report could not be completed: " + std::generic_category().message(errno));
    ::unlink(unfinished.c_str());
}

} // namespace orvana
