#pragma once

#include "foundation/PathJson.h"

#include <cstdio>
#include <memory>
#include <string>

namespace orvana
{

/// The file of a run report: a list of problems that grows during the run, and a summary at its end.
///
/// Until the end the problems lie in a file without a name, so a run that is killed leaves no half report.
class ReportFile
{
public:
    /// The report will stand in `folder`; with an empty one nothing is kept and nothing written.
    explicit ReportFile(std::string folder) : m_folder(std::move(folder)) {}

    void addProblem(const Json &problem);

    /// True when a problem could not be kept.
    bool hasLostProblems() const { return m_hasLost; }

    /// Writes `summary` with the problems, and those of `leftOut` as a list of their own, as
    /// "<stamp>-Report.json", or with "-2" and so on behind it, from `number` on, when that name is taken.
    /// Returns the path, or an empty text when it could not be written.
    std::string write(const Json &summary, ReportFile &leftOut, const std::string &stamp, int number = 1);

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
