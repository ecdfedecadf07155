#pragma once

#include "platform/posix/Descriptor.h"

#include <string>

namespace orvana::platform::linux_host
{

/// Tells when the content of a folder changes. The folder may come and go: until it exists, the nearest
/// folder above it is watched.
class FolderWatch
{
public:
    explicit FolderWatch(std::string folder);

    /// The descriptor that is readable when there is something to `take`, or -1 when the system offers none.
    int number() const { return m_events.number(); }

    /// Takes what has happened. Returns true when the folder or its content may have changed.
    bool take();

private:
    void watchNearest();

    std::string m_folder;
    posix::Descriptor m_events;
    int m_watch = -1;
};

} // namespace orvana::platform::linux_host
