#include "cli/CopyDisplay.h"

#include "cli/Terminal.h"
#include "duplicate/report/ReportJson.h"
#include "duplicate/report/ReportTable.h"

#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

/// Prints one JSON object a line, for programs. docs/terminal-json.md documents the objects.
class JsonDisplay final : public CopyDisplay
{
public:
    explicit JsonDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void started(const CopyJob &job, const RunOrder &order, const std::string &log) override
    {
        Json event = {{"event", "start"}};
        putPath(event, "root", job.SrcDiskPath);
        event["files"] = order.totalFiles;
        event["bytes"] = order.totalBytes;
        event["destinations"] = Json::array();
        for (const auto &destination : job.DesFileArray) {
            Json entry = Json::object();
            putPath(entry, "path", destination);
            event["destinations"].push_back(std::move(entry));
        }
        putPath(event, "log", log);
        m_terminal.print(event.dump());
    }

    void message(const std::string &text) override
    {
        m_terminal.print(Json{{"event", "message"}, {"text", text}}.dump());
    }

    void problem(const RunProblem &problem) override
    {
        Json event = {{"event", "problem"}};
        event.update(problemJson(problem));
        m_terminal.print(event.dump());
        m_terminal.printError(problemText(problem));
    }

    void progress(const RunProgress &progress, RunReport &report) override
    {
        Json event = {{"event", "progress"},
                      {"files", report.filesStarted()},
                      {"seconds", progress.elapsed()},
                      {"secondsLeft", nullptr},
                      {"destinations", Json::array()}};
        if (const auto left = progress.secondsLeft())
            event["secondsLeft"] = *left;
        for (std::size_t i = 0; i < report.destinationCount(); ++i)
            event["destinations"].push_back({{"bytes", progress.bytesOf(i)},
                                             {"bytesPerSecond", progress.rateOf(i)},
                                             {"failed", report.destination(i).failed.load()}});
        m_terminal.print(event.dump());
    }

    void ended(ExitStatus status, const RunProgress &progress, RunReport &report,
               const std::string &log) override
    {
        const auto summary = report.summary();
        Json event = {{"event", "end"},
                      {"status", static_cast<int>(status)},
                      {"outcome", status == Cancelled ? "cancelled" : "finished"},
                      {"files", report.filesStarted()},
                      {"seconds", progress.elapsed()},
                      {"headline", headlineOf(summary)},
                      {"leftOut", summary.leftOut},
                      {"disks", disksJson(summary)},
                      {"destinations", destinationsJson(summary)}};
        putPath(event, "log", log);
        putPath(event, "report", report.path());
        m_terminal.print(event.dump());
    }

private:
    Terminal &m_terminal;
};

} // namespace

std::unique_ptr<CopyDisplay> makeJsonDisplay(Terminal &terminal)
{
    return std::make_unique<JsonDisplay>(terminal);
}

} // namespace orvana::cli
