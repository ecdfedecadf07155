#pragma once

#include <string>
#include <vector>

namespace orvana::baywriter
{

/// Runs the program `orvana-bays`: adds or removes an enclosure definition in `folder`. `words` are "add", an
/// id and the text of a definition, or "remove" and an id. Never replaces a file, and reads no file that the
/// caller names. Afterwards `tellUdev` is called, so that the disks at these ports are looked at again.
/// Prints the reason of a failure to standard error. Returns the exit status.
int runProgram(const std::vector<std::string> &words, const std::string &folder, void (*tellUdev)());

} // namespace orvana::baywriter
