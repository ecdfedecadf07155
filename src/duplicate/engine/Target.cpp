#include "duplicate/engine/Target.h"

#include <system_error>

namespace orvana
{

namespace
{

// Returns null when the volume needs no pump, or the system has no thread for it. The volume is then synced
// at the end, on the run's own thread.
std::unique_ptr<WriteOutPump> pumpFor(Destination &destination)
{
    if (!destination.isOpen() || !destination.traits().writesOutInBackground)
        return nullptr;
    try {
        return std::make_unique<WriteOutPump>(*destination.volume());
    } catch (const std::system_error &) {
        return nullptr;
    }
}

} // namespace

Target::Target(std::size_t place, platform::VolumeFiles &files, const std::string &root,
               DestinationTally &tallyOfReport)
    : index(place), destination(files, root), tally(tallyOfReport)
{
}

void Target::startPump()
{
    pump = pumpFor(destination);
}

} // namespace orvana
