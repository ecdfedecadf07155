#pragma once

#include "duplicate/plan/RunChoice.h"
#include "duplicate/plan/RunSettings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// A run as it is kept in a file, to be done again: what to copy from which source, and how. It never holds
/// the user's consent to an erase. docs/job-files.md describes the file.
struct Job
{
    std::string volumeId;               ///< of the volume on which the source lies
    std::string sourceName;             ///< for people: the name that the volume had
    bool isHome = false;                ///< the source is the user's home folder on that volume
    std::vector<std::string> selection; ///< paths below the source's root, bytes; empty for all of it
    bool erase = false;
    bool verify = false;
    PerBay<std::optional<std::string>> names; ///< new names of erased disks
    RunSettings settings;
    std::optional<std::int64_t> wanted; ///< number of disks to make

    bool operator==(const Job &) const = default;
};

/// The largest job file that is read, in bytes.
inline constexpr std::size_t LargestJob = 16'777'216;

/// Reads the text of a job file. The error names the entry that is wrong: "/options/eject: unknown".
tl::expected<Job, std::string> parseJob(std::string_view text);

/// Returns the job as the text of a file.
std::string textOf(const Job &job);

/// Reads a job file. The error names the file and the reason.
tl::expected<Job, std::string> readJob(const std::string &path);

} // namespace orvana
