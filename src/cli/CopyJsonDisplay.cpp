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

    void started(const CopyJob &job, const RunOrder &order, const std::vector<std::string> &bays,
                 const std::string &log) override
    {
        Json event = {{"event", "start"}};
        putPath(event, "root", job.SrcDiskPath);
        event["files"] = order.totalFiles;
        event["bytes"] = order.totalBytes;
        event["destinations"] = Json::array();
        for (std::size_t i = 0; i < job.DesFileArray.size(); ++i) {
            Json entry = Json::object();
            putPath(entry, "path", job.DesFileArray[i]);
            if (i < bays.size())
                entry["bay"] = bays[i];
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

    void progress(const RunStatus &status) override
    {
        const auto orNull = [](const auto &value) { return value ? Json(*value) : Json(nullptr); };
        Json event = {{"event", "progress"},
                      {"stage", nameOf(status.stage)},
                      {"files", status.files},
                      {"seconds", status.seconds},
                      {"fraction", status.fraction},
                      {"bytesPerSecond", status.bytesPerSecond},
                      {"secondsLeft", orNull(status.secondsLeft)},
                      {"waitingFor", orNull(status.waitingFor)},
                      {"destinations", Json::array()}};
        for (const auto &destination : status.destinations)
            event["destinations"].push_back({{"bytes", destination.bytes},
                                             {"fraction", destination.fraction},
                                             {"bytesPerSecond", destination.bytesPerSecond},
                                             {"secondsLeft", orNull(destination.secondsLeft)},
                                             {"failed", destination.failed}});
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
