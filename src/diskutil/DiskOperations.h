#pragma once

#include "diskutil/DiskFacts.h"
#include "diskutil/DiskLock.h"
#include "diskutil/DiskService.h"

namespace orvana::diskutil
{

/// The things that erase and eject work with. Each call of `lookAt` reads the facts anew.
struct Surroundings
{
    std::function<std::optional<DiskFacts>(const std::string &node)> lookAt;
    DiskService &service;
    /// Returns who uses the file system mounted at the point: "cp (1234)".
    std::function<std::vector<std::string>(const std::string &point)> usersOf;
    /// Makes the system write all data that still waits in memory for the file system mounted at the point.
    std::function<Outcome<void>(const std::string &point)> writeOut;
    /// Whether volumes of a type can be mounted on this machine.
    std::function<bool(const std::string &type)> canBeMounted;
    std::optional<std::string> formatSetting;
    /// Locks the disk with this arrival number against other erases and ejects for as long as the result
    /// lives.
    std::function<Outcome<std::shared_ptr<void>>(std::uint64_t sequence)> hold = holdDisk;
};

/// Makes one empty volume of the whole disk and mounts it. Returns the message for the user. Checks the disk
/// anew before each write. Writes nothing before the disk is unmounted and nobody else uses it.
Outcome<std::string> eraseDisk(const Request &request, const Surroundings &surroundings);

/// Unmounts everything on the disk, and releases the disk as far as possible. Returns the message for the
/// user.
Outcome<std::string> ejectDisk(const Request &request, const Surroundings &surroundings);

/// Mounts the file systems of the disk that are not mounted. Returns the message for the user. A disk without
/// any file system is refused.
Outcome<std::string> mountDisk(const Request &request, const Surroundings &surroundings);

} // namespace orvana::diskutil
