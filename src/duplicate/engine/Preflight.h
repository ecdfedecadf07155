#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace orvana
{

class RunContext;
struct Target;

/// Looks, before the first write, whether each destination can hold the selection: names, pairs of names
/// that the volume does not tell apart, sizes of files, and space. What it finds is told in the report.
///
/// Used by the copy thread. Needs memory for the names of one folder at a time.
class Preflight
{
public:
    explicit Preflight(RunContext &run);

    /// Looks, and does what the run's manner asks for: leaves those destinations out, or all of them. Ends
    /// the thread when it is cancelled.
    void look();

private:
    /// What is known of one destination so far.
    struct Room
    {
        Target *target;
        platform::VolumeTraits traits;
        std::uint64_t needed = 0; ///< bytes, in whole blocks of the volume
        bool isLacking = false;
        std::unordered_set<std::string> keys; ///< of the names of the folder in hand
    };

    void lookAt(const std::string &path, const platform::Attributes &attributes);
    void lookAt(Room &room, const std::string &path, const platform::Attributes &attributes);
    void lookAtSpace(Room &room);
    std::uint64_t takenBy(const Room &room, const std::string &path) const;
    void tell(Room &room, const std::string &path, const std::string &reason);
    void decide();

    RunContext &m_run;
    std::vector<Room> m_rooms;
    std::string m_folder; ///< the one in hand
};

} // namespace orvana
