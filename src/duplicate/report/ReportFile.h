#pragma once

#include "foundation/PathJson.h"

#include <cstdio>
#include <memory>
#include <string>

namespace orvana
{

/// The file of a run report: a list of problems that grows during the run, and a summary at its end.
///
/// Until the end the problems are in a file without a name, so a run that is killed leaves no half report.
class ReportFile
{
public:
    /// The report will be in `folder`. With an empty `folder` nothing is kept and nothing is written.
    explicit ReportFile(std::string folder) : m_folder(std::move(folder)) {}

    void addProblem(const Json &problem);

    /// True when a problem could not be kept.
    bool hasLostProblems() const { return m_hasLost; }

    /// Writes `summary` with the problems, and with those of `leftOut` as a list of their own. The file is
    /// "<stamp>-Report.json" for number 1, "<stamp>-Report-2.json" for number 2, and so on: the first free
    /// name from `number` on. Returns the path, or an empty text when the report could not be written.
    std::string write(const Json &summary, ReportFile &leftOut, const std::string &stamp, int number = 1);

    /// Replaces the report at `path` by one with this summary and the same problems. The old one stays when
    /// that cannot be done.
    void replace(const Json &summary, ReportFile &leftOut, const std::string &path);

private:
    struct CloseFile
    {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

    bool writeAll(const Json &summary, ReportFile &leftOut, const std::string &path);
    bool writeList(const char *name, std::FILE *to);

    const std::string m_folder;
    FileHandle m_problems;
    bool m_hasLost = false;
};

} // namespace orvana
