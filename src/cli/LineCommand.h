#pragma once

#include "foundation/Refusal.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{
class PlainMainQueue;
}

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

class Terminal;

/// The options of `plurimoctl line`.
struct LineOptions
{
    std::string action = "status";  ///< start, resume, status, pause, end or collect
    std::vector<std::string> words; ///< start: the job file; collect: ledgers; else: the line's id, or none
    std::optional<int> count;
    std::optional<std::string> title;
    std::optional<std::string> pattern;
    std::optional<std::string> certificates;
    std::optional<std::string> arm; ///< "B,C,D"
    std::optional<std::string> consent;
    std::optional<int> enclosure;
    std::optional<std::string> logFolder;
    bool withoutSerial = false;
    bool json = false;

    /// True when the command may copy.
    bool runs() const { return arm && (action == "start" || action == "resume"); }
};

/// `plurimoctl line`: makes lines, runs them, and tells how far they are. A line runs until it has made its
/// number, until somebody ends it, or until a signal, which cancels the disks in work. `queue` is the queue
/// of `host`.
ExitStatus runLine(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                   const LineOptions &options);

} // namespace orvana::cli
