#include "cli/CopyDisplay.h"

#include "cli/Terminal.h"
#include "duplicate/ReportTable.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <mutex>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

std::string rateText(double bytesPerSecond)
{
    return sizeText(static_cast<std::uint64_t>(bytesPerSecond)) + "/s";
}

/// Lines for people: on a screen a block that changes, elsewhere what is worth keeping.
class TextDisplay final : public CopyDisplay
{
public:
    explicit TextDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void started(const CopyJob &job, const CopyCensus &census, const std::string &) override
    {
        m_files = census.files;
        std::string line = "Duplicating " + std::to_string(census.files) + " file(s), " +
                           sizeText(census.bytes) + ", from " + displayPath(job.SrcDiskPath) + " to";
        for (const auto &destination : job.DesFileArray)
            line += " " + displayPath(destination);
        m_terminal.print(line);
    }

    void message(const std::string &text) override
    {
        const std::lock_guard lock(m_mutex);
        m_message = text;
    }

    void problem(const Json &problem) override { m_terminal.printError(problemText(problem)); }

    void progress(const CopyProgress &progress, RunReport &report) override
    {
        if (!m_terminal.isScreen())
            return;
        const auto width = m_terminal.width() - 1;
        std::string block;
        for (std::size_t i = 0; i < report.destinationCount(); ++i)
            block += fitted(lineOf(i, progress, report), width) + "\n";
        block += fitted("Total  " + percentText(progress.workDone(), progress.totalWork()) + "  " +
                            std::to_string(report.filesStarted()) + " of " + std::to_string(m_files) +
                            " file(s)  " + sizeText(progress.totalBytes()) + "  " +
                            durationText(progress.secondsLeft()) + " left",
                        width) +
                 "\n";
        const std::lock_guard lock(m_mutex);
        m_terminal.showBlock(block + fitted(m_message, width) + "\n");
    }

    void ended(ExitStatus status, const CopyProgress &progress, RunReport &report,
               const std::string &log) override
    {
        if (m_terminal.isScreen())
            m_terminal.showBlock("");
        for (std::size_t i = 0; i < report.destinationCount(); ++i)
            m_terminal.print(summaryOf(i, progress, report));
        if (status != Cancelled && report.destinationCount() > 0)
            m_terminal.print(headlineOf(report));
        m_terminal.print((status == Cancelled ? "Cancelled after " : "Ended after ") +
                         durationText(progress.elapsed()) + ".  Log: " + displayPath(log) +
                         (report.path().empty() ? "" : "  Report: " + displayPath(report.path())));
    }

private:
    static std::string lineOf(std::size_t index, const CopyProgress &progress, RunReport &report)
    {
        const auto &tally = report.destination(index);
        std::string line = displayPath(tally.root) + "  " +
                           percentText(progress.bytesOf(index), progress.totalBytes()) + "  " +
                           rateText(progress.rateOf(index)) + "  " +
                           durationText(progress.secondsLeftOf(index)) + " left";
        if (tally.failed > 0)
            line += "  " + std::to_string(tally.failed) + " failed";
        return line;
    }

    static std::string summaryOf(std::size_t index, const CopyProgress &progress, RunReport &report)
    {
        const auto &tally = report.destination(index);
        std::string line = displayPath(tally.root) + ": ";
        if (!report.isOnDisk(index))
            line += "not known to be on disk: ";
        line += std::to_string(tally.copied) + " copied, " + std::to_string(tally.failed) + " failed";
        if (tally.verified + tally.mismatched + tally.unverified > 0)
            line += ", " + std::to_string(tally.verified) + " verified, " + std::to_string(tally.mismatched) +
                    " differ";
        if (tally.unverified > 0)
            line += ", " + std::to_string(tally.unverified) + " could not be read back";
        return line + ", " + sizeText(tally.bytes) + ", " + rateText(progress.rateOf(index));
    }

    Terminal &m_terminal;
    std::int64_t m_files = 0;
    std::mutex m_mutex;
    std::string m_message;
};

} // namespace

std::string problemText(const Json &problem)
{
    const std::string kind = problem["kind"];
    const std::string file = problem["file"];
    const std::string destination = problem["destination"];
    const std::string what =
        kind == "mismatched" ? "the copy differs from its source" : problem["reason"].get<std::string>();
    return kind + ": " + file + " -> " + destination + ": " + what;
}

std::unique_ptr<CopyDisplay> makeTextDisplay(Terminal &terminal)
{
    return std::make_unique<TextDisplay>(terminal);
}

} // namespace orvana::cli
