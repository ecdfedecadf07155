#include "cli/CopyDisplay.h"

#include "cli/Terminal.h"
#include "duplicate/report/ReportTable.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <algorithm>
#include <mutex>

namespace orvana::cli
{

namespace
{

/// Prints lines for people. On a screen a block of lines changes in place; elsewhere only lasting lines are
/// printed.
class TextDisplay final : public CopyDisplay
{
public:
    explicit TextDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void started(const CopyJob &job, const RunOrder &order, const std::vector<std::string> &bays,
                 const std::string &) override
    {
        m_roots = job.DesFileArray;
        m_bays = bays;
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

    void progress(const RunStatus &status) override
    {
        if (!m_terminal.isScreen())
            return;
        const auto width = m_terminal.width() - 1;
        std::string block;
        for (std::size_t i = 0; i < std::min(status.destinations.size(), m_roots.size()); ++i)
            block += fitted(lineOf(i, status.destinations[i]), width) + "\n";
        block += fitted(totalOf(status), width) + "\n";
        block += fitted(stageOf(status), width) + "\n";
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
            printDestination(summary.destinations[i], progress.rateOf(i));
        if (status != Cancelled && !summary.destinations.empty())
            m_terminal.print(headlineOf(summary));
        m_terminal.print((status == Cancelled ? "Cancelled after " : "Ended after ") +
                         durationText(progress.elapsed()) + ".  Log: " + displayPath(log) +
                         (report.path().empty() ? "" : "  Report: " + displayPath(report.path())));
    }

private:
    std::string lineOf(std::size_t index, const DestinationStatus &destination) const
    {
        std::string line = displayPath(m_roots[index]) + "  " + percentText(destination.fraction) + "  " +
                           rateText(destination.bytesPerSecond) + "  " +
                           durationText(destination.secondsLeft) + " left";
        if (destination.failed > 0)
            line += "  " + std::to_string(destination.failed) + " failed";
        return line;
    }

    static std::string totalOf(const RunStatus &status)
    {
        return "Total  " + percentText(status.fraction) + "  " + std::to_string(status.files) + " of " +
               std::to_string(status.totalFiles) + " file(s)  " + sizeText(status.totalBytes) + "  " +
               rateText(status.bytesPerSecond) + "  " + durationText(status.secondsLeft) + " left";
    }

    // Says what the run does, and which disk holds up the others.
    std::string stageOf(const RunStatus &status) const
    {
        std::string line = nameOf(status.stage);
        line[0] = static_cast<char>(line[0] - 'a' + 'A');
        if (!status.waitingFor || *status.waitingFor >= m_roots.size())
            return line;
        const auto index = *status.waitingFor;
        const auto root = displayPath(m_roots[index]);
        const auto name = index < m_bays.size()
                              ? "bay " + m_bays[index].substr(m_bays[index].size() - 1) + " (" + root + ")"
                              : root;
        return line + ".  Waiting for " + name + ": " + rateText(status.destinations[index].bytesPerSecond);
    }

    void printDestination(const DestinationSummary &destination, double rate)
    {
        m_terminal.print(textOf(destination, rate));
        if (destination.isSuspect)
            m_terminal.print("    the disk is suspect: it does not keep what is written to it");
        for (const auto &line : manifestLines(destination))
            m_terminal.print("    " + line);
    }

    static std::string textOf(const DestinationSummary &destination, double rate)
    {
        std::string line = displayPath(destination.path) + ": ";
        if (destination.durability == Durability::NotKnown)
            line += "not known to be on disk: ";
        line += std::to_string(destination.copied + destination.notKnownToBeOnDisk) + " copied, " +
                std::to_string(destination.failed) + " failed";
        if (destination.alreadyThere > 0)
            line += ", " + std::to_string(destination.alreadyThere) + " already there";
        if (destination.verified + destination.mismatched + destination.unverified > 0)
            line += ", " + std::to_string(destination.verified) + " verified, " +
                    std::to_string(destination.mismatched) + " differ";
        if (destination.repaired > 0)
            line += ", " + std::to_string(destination.repaired) + " repaired";
        if (destination.unverified > 0)
            line += ", " + std::to_string(destination.unverified) + " could not be read back";
        return line + ", " + sizeText(destination.bytes) + ", " + rateText(rate);
    }

    Terminal &m_terminal;
    std::vector<std::string> m_roots;
    std::vector<std::string> m_bays;
    std::mutex m_mutex;
    std::string m_message;
};

} // namespace

std::unique_ptr<CopyDisplay> makeTextDisplay(Terminal &terminal)
{
    return std::make_unique<TextDisplay>(terminal);
}

} // namespace orvana::cli
