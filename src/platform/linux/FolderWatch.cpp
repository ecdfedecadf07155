#include "platform/linux/FolderWatch.h"

#include "platform/linux/DeviceList.h"

#include <array>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

namespace orvana::platform::linux_host
{

FolderWatch::FolderWatch(std::string folder)
    : m_folder(std::move(folder)), m_events(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
    watchNearest();
}

bool FolderWatch::take()
{
    alignas(inotify_event) std::array<char, 4096> events{};
    bool hasAny = false;
    while (::read(m_events.number(), events.data(), events.size()) > 0)
        hasAny = true;
    // The folder that was watched may be gone, or the one that was waited for may be there.
    watchNearest();
    return hasAny;
}

void FolderWatch::watchNearest()
{
    if (!m_events.isOpen())
        return;
    constexpr unsigned changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                                 IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    int watch = -1;
    for (auto folder = m_folder; watch < 0 && !folder.empty(); folder = pathAbove(folder))
        watch = ::inotify_add_watch(m_events.number(), folder.c_str(), changes);
    // The folder may have been made while the one above it was not watched yet.
    if (const int nearer = ::inotify_add_watch(m_events.number(), m_folder.c_str(), changes); nearer >= 0)
        watch = nearer;
    if (m_watch >= 0 && m_watch != watch)
        ::inotify_rm_watch(m_events.number(), m_watch);
    m_watch = watch;
}

} // namespace orvana::platform::linux_host
