#pragma once

#include <string>
#include <vector>

namespace orvana::diskutil
{

/// Processes that have a file or their working folder in the file system mounted at `point`: "cp (1234)". An
/// ordinary user learns of their own only.
std::vector<std::string> processesUsing(const std::string &point);

} // namespace orvana::diskutil
