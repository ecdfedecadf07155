#pragma once

#include <string>
#include <vector>

namespace orvana::diskutil
{

/// What keeps the file system mounted at `point` in use: processes with a file or their working folder in it,
/// "cp (1234)", and images in it on loop devices, "disk.img (loop3)". An ordinary user learns of their own
/// processes only.
std::vector<std::string> usersOf(const std::string &point);

} // namespace orvana::diskutil
