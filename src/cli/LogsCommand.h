#pragma once

#include "foundation/Refusal.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

class Terminal;

struct LogsOptions
{
    std::string action = "list"; ///< list, show, delete or clear
    std::vector<std::string> names;
    std::optional<std::string> logFolder; ///< instead of the user's Documents folder
    bool yes = false;
    bool json = false; ///< with list
};

/// `plurimoctl logs`: lists the run logs, prints some of them, or removes some or all of them. The reports
/// beside a log are removed with it. Removing all logs needs `yes`.
ExitStatus runLogs(platform::Host &host, Terminal &terminal, const LogsOptions &options);

} // namespace orvana::cli
