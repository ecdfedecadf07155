#pragma once

#include "diskutil/DiskFacts.h"

namespace orvana::diskutil
{

/// The whole program: looks at this machine by the rule, and works by way of its disk service. Prints what
/// was done to standard output, and why something was not to standard error; returns the exit status.
int runProgram(const std::vector<std::string> &words, const BayRule &rule,
               const platform::linux_host::SystemFiles &files = {});

/// Ends the program at once, with all that was printed. The bus is served by a thread of its own, which
/// complains when the program is taken down around it.
[[noreturn]] void leave(int status);

} // namespace orvana::diskutil
