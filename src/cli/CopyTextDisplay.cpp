#include "cli/CopyDisplay.h"

#include "cli/Terminal.h"
#include "duplicate/report/ReportTable.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <mutex>

namespace orvana::cli
{

namespace
{

std::string rateText(double bytesPerSecond)
{
    return sizeText(static_cast<std::uint64_t>(bytesPerSecond)) + "/s";
}

/// Prints lines for people. On a screen a block of lines changes in place; elsewhere only lasting lines are
/// printed.
class TextDisplay final : public CopyDisplay
{
public:
    explicit TextDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void started(const CopyJob &job, const RunOrder &order, const std::string &) override
    {
        m_files = order.totalFiles;
        std::string line = "Duplicating " + std::to_string(order.totalFiles) + " file(s), " +
                           sizeText(order.totalBytes) + ", from " + displayPath(job.SrcDiskPath) + " to";
        for (const auto &destination : job.DesFileArray)
            line += " " + displayPath(destination);
        m_terminal.print(line);
    }

    void message(const std::string &text) override
    {
        const std::lock_guard lock(m_mutex);
        m_message = text;
    }

    void problem(const RunProblem &problem) override { m_terminal.printError(problemText(problem)); }

    void progress(const RunProgress &progress, RunReport &report) override
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

    void ended(ExitStatus status, const RunProgress &progress, RunReport &report,
               const std::string &log) override
    {
        if (m_terminal.isScreen())
            m_terminal.showBlock("");
        const auto summary = report.summary();
        for (std::size_t i = 0; i < summary.destinations.size(); ++i)
            m_terminal.print(textOf(summary.destinations[i], progress.rateOf(i)));
        if (status != Cancelled && !summary.destinations.empty())
            m_terminal.print(headlineOf(summary));
        m_terminal.print((status == Cancelled ? "Cancelled after " : "Ended after ") +
                         durationText(progress.elapsed()) + ".  Log: " + displayPath(log) +
                         (report.path().empty() ? "" : "  Report: " + displayPath(report.path())));
    }

private:
    static std::string lineOf(std::size_t index, const RunProgress &progress, RunReport &report)
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

    static std::string textOf(const DestinationSummary &destination, double rate)
    {
        std::string line = displayPath(destination.path) + ": ";
        if (destination.durability == Durability::NotKnown)
            line += "not known to be on disk: ";
        line += std::to_string(destination.copied + destination.notKnownToBeOnDisk) + " copied, " +
                std::to_string(destination.failed) + " failed";
        if (destination.verified + destination.mismatched + destination.unverified > 0)
            line += ", " + std::to_string(destination.verified) + " verified, " +
                    std::to_string(destination.mismatched) + " differ";
        if (destination.unverified > 0)
            line += ", " + std::to_string(destination.unverified) + " could not be read back";
        return line + ", " + sizeText(destination.bytes) + ", " + rateText(rate);
    }

    Terminal &m_terminal;
    std::int64_t m_files = 0;
    std::mutex m_mutex;
    std::string m_message;
};

} // namespace

std::unique_ptr<CopyDisplay> makeTextDisplay(Terminal &terminal)
{
    return std::make_unique<TextDisplay>(terminal);
}

} // namespace orvana::cli
