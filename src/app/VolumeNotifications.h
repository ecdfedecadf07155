#pragma once

namespace orvana
{

class NotificationCenter;

namespace platform
{
class Host;
}

/// Posts what happens to the host's volumes on `center`, which must outlive the host's events: as
/// "NSWorkspaceDidMountNotification" and its siblings. Called once for a host.
void postVolumeEvents(platform::Host &host, NotificationCenter &center);

} // namespace orvana
