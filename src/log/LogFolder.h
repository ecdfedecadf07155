#pragma once

#include "platform/FileError.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The logs of one folder: which they are, what stands in them, and how they are removed. A log is named by
/// its file name alone. Callable from any thread.
class LogFolder
{
public:
    explicit LogFolder(std::string path) : m_path(std::move(path)) {}

    const std::string &path() const { return m_path; }

    /// True for a name that counts as a log's: one that does not begin with a dot and holds "Log.txt"
    /// anywhere. A name with a slash is a path and never a log.
    static bool isLog(std::string_view name);

    /// The names of all logs in descending order of their bytes, which puts the newest run first.
    platform::Expected<std::vector<std::string>> names() const;

    /// Hands the content over piece by piece. Anything but a regular file gives NotAFile.
    platform::Expected<void> read(const std::string &name,
                                  const std::function<void(std::string_view)> &take) const;

    /// The paths of the run reports that stand beside the log. Only a log named as runs name theirs has any.
    /// A log with a number at its end has the reports of this number, the log without one has all others.
    std::vector<std::string> reports(const std::string &name) const;

    /// Removes the log and then its reports. A link is removed and what it points to stays; a folder is
    /// never removed and gives NotAFile. A name that is no log's gives NotSupported.
    platform::Expected<void> remove(const std::string &name) const;

private:
    std::string pathOf(const std::string &name) const { return m_path + "/" + name; }

    std::string m_path;
};

} // namespace orvana
