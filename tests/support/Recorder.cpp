#include "support/Recorder.h"

#include "foundation/NotificationNames.h"

#include <algorithm>
#include <chrono>
#include <sstream>

namespace orvana::test
{

namespace
{

std::string lineOf(const Notification &notification)
{
    std::ostringstream line;
    line << notification.name;
    if (notification.userInfo)
        std::visit([&](const auto &value) { line << ' ' << value; }, notification.userInfo->second);
    return line.str();
}

} // namespace

Recorder::Recorder(NotificationCenter &center)
{
    for (const char *name : {notification::FileCopyMessage, notification::FileProgress,
                             notification::TotalProgress, notification::BackupFinish})
        m_subscriptions.push_back(center.subscribe(name, [this](const Notification &n) { keep(n); }));
}

void Recorder::keep(const Notification &notification)
{
    const auto line = lineOf(notification);
    if (m_onEach)
        m_onEach(line);
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(line);
    m_changed.notify_all();
}

std::vector<std::string> Recorder::all() const
{
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

std::vector<std::string> Recorder::messages() const
{
    const std::string prefix = "FileCopyMessage ";
    std::vector<std::string> texts;
    for (const auto &line : all()) {
        if (line.starts_with(prefix))
            texts.push_back(line.substr(prefix.size()));
    }
    return texts;
}

std::size_t Recorder::count(const std::string &name) const
{
    const auto lines = all();
    return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), [&](const auto &line) {
        return line == name || line.starts_with(name + " ");
    }));
}

bool Recorder::waitFor(const std::string &name)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::seconds(10), [&] {
        return std::any_of(m_lines.begin(), m_lines.end(),
                           [&](const auto &line) { return line == name || line.starts_with(name + " "); });
    });
}

std::vector<std::string> LogLines::all() const
{
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

void LogLines::add(const std::string &line)
{
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(line);
}

} // namespace orvana::test
