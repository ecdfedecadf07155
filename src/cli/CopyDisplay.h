#pragma once

#include "duplicate/plan/RunOrder.h"
#include "duplicate/report/RunReport.h"
#include "duplicate/run/RunMonitor.h"
#include "foundation/Refusal.h"

#include <memory>
#include <string>

namespace orvana::cli
{

class Terminal;

/// Shows a run to the user: as lines that change, as plain lines, or as JSON. The copy thread may call
/// `message` and `problem`. All other functions are called on the main thread.
class CopyDisplay
{
public:
    virtual ~CopyDisplay() = default;

    /// `bays` are the bays of the destinations, "Slot-B"; empty for a run that copies to folders.
    virtual void started(const CopyJob &job, const RunOrder &order, const std::vector<std::string> &bays,
                         const std::string &log) = 0;
    virtual void message(const std::string &text) = 0;
    virtual void problem(const RunProblem &problem) = 0;

    /// Called five times a second.
    virtual void progress(const RunStatus &status) = 0;
    virtual void ended(ExitStatus status, const RunProgress &progress, RunReport &report,
                       const std::string &log) = 0;
};

std::unique_ptr<CopyDisplay> makeTextDisplay(Terminal &terminal);
std::unique_ptr<CopyDisplay> makeJsonDisplay(Terminal &terminal);

} // namespace orvana::cli
