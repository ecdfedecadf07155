#pragma once

#include "diskutil/DiskFacts.h"

namespace orvana::diskutil
{

/// Runs the whole program: examines this machine by the rule, and works through its disk service. Prints the
/// result to standard output, or the reason for a failure to standard error. Returns the exit status.
int runProgram(const std::vector<std::string> &words, const BayRule &rule,
               const platform::linux_host::SystemFiles &files = {});

/// Writes out everything that was printed and ends the program at once. A thread of its own serves the bus,
/// and it complains if the program is taken down while it runs.
[[noreturn]] void leave(int status);

} // namespace orvana::diskutil
