#include "app/VolumeNotifications.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "platform/Host.h"
#include "platform/VolumeEvents.h"

namespace orvana
{

namespace
{

const char *nameOf(platform::VolumeChange change)
{
    switch (change) {
    case platform::VolumeChange::Mounted:
        return notification::DidMount;
    case platform::VolumeChange::Unmounted:
        return notification::DidUnmount;
    case platform::VolumeChange::Renamed:
        return notification::DidRenameVolume;
    }
    return "";
}

} // namespace

void postVolumeEvents(platform::Host &host, NotificationCenter &center)
{
    host.volumeEvents().subscribe([&center](platform::VolumeChange change) { center.post(nameOf(change)); });
}

} // namespace orvana
