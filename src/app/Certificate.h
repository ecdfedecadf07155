#pragma once

#include "duplicate/report/RunProblems.h"
#include "duplicate/report/RunSummary.h"

#include <QString>

#include <vector>

namespace orvana
{

/// The certificates of a run as files: a page for each disk, or for each folder of a run into folders.
class Certificate
{
public:
    Certificate(RunSummary summary, std::vector<ProblemGroup> problems);

    /// Returns all pages as one HTML document that needs nothing else. A browser prints a page for each disk.
    QString html() const;

    /// Write the pages into a file. Return false on failure; the file that was there before is then whole.
    bool saveHtml(const QString &path) const;
    bool savePdf(const QString &path) const;

private:
    RunSummary m_summary;
    std::vector<ProblemGroup> m_problems;
};

} // namespace orvana
