#include "platform/linux/NoticeButtons.h"

#include <unistd.h>

namespace orvana::platform::linux_host
{

QString NoticeButtons::add(std::function<void()> pressed)
{
    auto name = QStringLiteral("orvana-%1-%2").arg(::getpid()).arg(m_pressed.size());
    m_pressed.emplace(name, std::move(pressed));
    return name;
}

void NoticeButtons::ActionInvoked(uint, const QString &name)
{
    const auto found = m_pressed.find(name);
    if (found == m_pressed.end())
        return;
    const auto pressed = found->second; // a copy, because the call may add another button
    pressed();
}

} // namespace orvana::platform::linux_host
