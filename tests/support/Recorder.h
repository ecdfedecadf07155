#pragma once

#include "foundation/NotificationCenter.h"
#include "foundation/SystemLog.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace orvana::test
{

/// Keeps the copy engine's notifications, as text and in order: "FileCopyMessage Duplicating /a",
/// "FileProgress 50", "TotalProgress 1", "BackupFinish". Safe while another thread posts.
class Recorder
{
public:
    explicit Recorder(NotificationCenter &center);

    std::vector<std::string> all() const;

    /// The texts of "FileCopyMessage" alone.
    std::vector<std::string> messages() const;

    /// Returns the number of notifications with this name.
    std::size_t count(const std::string &name) const;

    /// Waits until a notification of this name has come; false after ten seconds.
    bool waitFor(const std::string &name);

    /// Called on the posting thread with each line, before it is kept.
    void onEach(std::function<void(const std::string &)> action) { m_onEach = std::move(action); }

private:
    void keep(const Notification &notification);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_lines;
    std::function<void(const std::string &)> m_onEach;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
};

/// Records the lines of the system log while this object lives.
class LogLines
{
public:
    LogLines() : m_capture([this](const std::string &line) { add(line); }) {}

    std::vector<std::string> all() const;

private:
    void add(const std::string &line);

    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    SystemLogCapture m_capture;
};

} // namespace orvana::test
