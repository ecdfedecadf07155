#pragma once

#include "diskutil/Outcome.h"
#include "platform/DiskFingerprint.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace orvana::diskutil
{

/// The facts that the caller knows about the disk. All of it but `spared` is needed.
struct Expectation
{
    std::optional<std::uint64_t> sequence; ///< the kernel's number of the disk's arrival
    std::optional<std::string> serial;
    std::optional<std::uint64_t> size; ///< bytes
    std::optional<std::string> bay;
    /// Disks that must not be touched: the disks of a run's source. One mark that agrees is enough to refuse
    /// the disk. Devices are the kernel's nodes here.
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::vector<platform::DiskFingerprint> spared{};
};

enum class Verb { EraseDisk, Eject, MountDisk, IsInBay };

/// One call of the program.
struct Request
{
    Verb verb = Verb::EraseDisk;
    std::string format; ///< as the caller gave it: "JHFS+", or a file system
    std::string name;   ///< name of the new volume
    std::string node;   ///< "/dev/sdb"
    Expectation expected;
};

inline constexpr const char *Usage =
    "Usage: orvana-diskutil eraseDisk FORMAT NAME DEVICE EXPECTATIONS\n"
    "       orvana-diskutil eject DEVICE EXPECTATIONS\n"
    "       orvana-diskutil mountDisk DEVICE EXPECTATIONS\n"
    "       orvana-diskutil isInBay DEVICE\n"
    "EXPECTATIONS: --expect-sequence=N --expect-serial=TEXT --expect-size=BYTES --expect-bay=TEXT\n"
    "              [--spare=[device=NODE,][arrival=N,][size=BYTES,][wwn=TEXT,]serial=TEXT]...";

/// Reads the words after the program's name. One word that is not understood makes the whole request wrong.
Outcome<Request> readRequest(const std::vector<std::string> &words);

} // namespace orvana::diskutil
