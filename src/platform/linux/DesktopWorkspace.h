#pragma once

#include "platform/Workspace.h"

#include <chrono>
#include <string>

namespace orvana::platform::linux_host
{

class NoticeButtons;

/// The desktop, by way of D-Bus. Where a service is missing, what it would have done is left undone, without
/// waiting for long.
class DesktopWorkspace final : public Workspace
{
public:
    /// Addresses of the buses; empty ones stand for the machine's own.
    explicit DesktopWorkspace(std::string sessionBus = {}, std::string systemBus = {});
    ~DesktopWorkspace() override;
    DesktopWorkspace(const DesktopWorkspace &) = delete;
    DesktopWorkspace &operator=(const DesktopWorkspace &) = delete;

    /// Only pages of the web.
    void openPage(const std::string &address) override;

    void openFolder(const std::string &path) override;
    void notify(const DesktopNotice &notice) override;

    /// By the signal that docks and taskbars listen to.
    void showProgress(std::optional<double> fraction) override;

    /// Holds off sleep, idleness and the closing of the lid.
    std::shared_ptr<void> holdOffSleep(const std::string &reason) override;

private:
    class Bus;

    Bus &session();

    std::string m_sessionBus;
    std::string m_systemBus;
    std::unique_ptr<NoticeButtons> m_buttons;
    std::unique_ptr<Bus> m_session; // made at first use, and anew when it has ended
    std::chrono::steady_clock::time_point m_nextTry;
    std::optional<int> m_percent; // as it is shown
};

} // namespace orvana::platform::linux_host
