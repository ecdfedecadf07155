#pragma once

#include "diskutil/DiskFacts.h"
#include "diskutil/DiskLock.h"
#include "diskutil/DiskService.h"

namespace orvana::diskutil
{

/// What erase and eject work with. `lookAt` looks anew each time.
struct Surroundings
{
    std::function<std::optional<DiskFacts>(const std::string &node)> lookAt;
    DiskService &service;
    /// Who uses the file system mounted at the point: "cp (1234)".
    std::function<std::vector<std::string>(const std::string &point)> usersOf;
    /// Has the system write out what it still holds back of the file system mounted at the point.
    std::function<Outcome<void>(const std::string &point)> writeOut;
    /// Whether volumes of a type can be mounted on this machine.
    std::function<bool(const std::string &type)> canBeMounted;
    std::optional<std::string> formatSetting;
    /// Holds the disk of this arrival number against other erases and ejects for as long as the result lives.
    std::function<Outcome<std::shared_ptr<void>>(std::uint64_t sequence)> hold = holdDisk;
};

/// Makes one empty volume of the whole disk and mounts it; returns what to tell the user. The disk is looked
/// at anew before each write, and nothing is written before it is unmounted and nobody else has it.
Outcome<std::string> eraseDisk(const Request &request, const Surroundings &surroundings);

/// Unmounts everything on the disk, and lets go of it as far as it can be.
Outcome<std::string> ejectDisk(const Request &request, const Surroundings &surroundings);

} // namespace orvana::diskutil
