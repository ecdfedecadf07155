#pragma once

#include "platform/FileError.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The logs of one folder: lists, reads and removes them. A log is named by its file name alone. Callable
/// from any thread.
class LogFolder
{
public:
    explicit LogFolder(std::string path) : m_path(std::move(path)) {}

    const std::string &path() const { return m_path; }

    /// True if the name counts as a log's: it does not begin with a dot and holds "Log.txt" anywhere. A name
    /// with a slash is a path and never a log.
    static bool isLog(std::string_view name);

    /// The names of all logs in descending order of their bytes, which puts the newest run first.
    platform::Expected<std::vector<std::string>> names() const;

    /// Passes the content to `take`, block by block. Returns NotAFile for anything but a regular file.
    platform::Expected<void> read(const std::string &name,
                                  const std::function<void(std::string_view)> &take) const;

    /// Returns the paths of the run reports beside the log. Only a log with the name of a run's log has
    /// reports. A log with a number at its end has the report of this number. The log without a number has
    /// the reports that belong to no numbered log.
    std::vector<std::string> reports(const std::string &name) const;

    /// Removes the log and then its reports. Removes a link and leaves the file that the link points to.
    /// Never removes a folder: returns NotAFile. Returns NotSupported if the name is not a log's.
    platform::Expected<void> remove(const std::string &name) const;

private:
    std::string pathOf(const std::string &name) const { return m_path + "/" + name; }

    std::string m_path;
};

} // namespace orvana
