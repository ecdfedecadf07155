#pragma once

#include "platform/Workspace.h"

#include <chrono>
#include <string>

namespace orvana::platform::linux_host
{

class NoticeButtons;

/// The desktop, reached through D-Bus. If a service is missing, pages and folders are opened with "xdg-open",
/// and the other functions do nothing. No function waits for long.
class DesktopWorkspace final : public Workspace
{
public:
    /// The addresses of the buses. An empty address stands for the machine's own bus.
    explicit DesktopWorkspace(std::string sessionBus = {}, std::string systemBus = {});
    ~DesktopWorkspace() override;
    DesktopWorkspace(const DesktopWorkspace &) = delete;
    DesktopWorkspace &operator=(const DesktopWorkspace &) = delete;

    /// Opens only pages of the web (http and https).
    void openPage(const std::string &address) override;

    void openFolder(const std::string &path) override;
    void notify(const DesktopNotice &notice) override;

    /// Sends the signal that docks and taskbars listen to.
    void showProgress(std::optional<double> fraction) override;

    /// Holds off sleep, idle actions and, if the user may do so, the sleep when the lid is closed.
    std::shared_ptr<void> holdOffSleep(const std::string &reason) override;

private:
    class Bus;

    Bus &session();

    std::string m_sessionBus;
    std::string m_systemBus;
    std::unique_ptr<NoticeButtons> m_buttons;
    std::unique_ptr<Bus> m_session; // made at first use, and again when the connection is lost or missing
    std::chrono::steady_clock::time_point m_nextTry;
    std::optional<int> m_percent; // as last shown
};

} // namespace orvana::platform::linux_host
