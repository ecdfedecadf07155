#pragma once

#include <string>
#include <vector>

namespace orvana::diskutil
{

/// Returns the users of the file system mounted at `point`: processes with a file or their working folder in
/// it, as "cp (1234)", and images in it on loop devices, as "disk.img (loop3)". An ordinary user sees only
/// their own processes.
std::vector<std::string> usersOf(const std::string &point);

} // namespace orvana::diskutil
