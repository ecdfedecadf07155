#pragma once

namespace orvana
{

class NotificationCenter;

namespace platform
{
class Host;
}

/// Posts each change of the host's volumes on `center`, as "NSWorkspaceDidMountNotification" and its
/// siblings. `center` must outlive the host's events. Called once for each host.
void postVolumeEvents(platform::Host &host, NotificationCenter &center);

} // namespace orvana
