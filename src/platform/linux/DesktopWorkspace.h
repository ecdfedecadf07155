#pragma once

#include "platform/Workspace.h"

#include <string>

namespace orvana::platform::linux_host
{

/// The desktop, by way of D-Bus. Where a service is missing, what it would have done is left undone, without
/// waiting for long. Main thread only.
class DesktopWorkspace final : public Workspace
{
public:
    /// Addresses of the buses; empty ones stand for the machine's own.
    explicit DesktopWorkspace(std::string sessionBus = {}, std::string systemBus = {});

    /// In the user's browser; only pages of the web.
    void openPage(const std::string &address) override;

    void notify(const std::string &title, const std::string &text) override;

    /// Holds off sleep, idleness and the closing of the lid.
    std::shared_ptr<void> holdOffSleep(const std::string &reason) override;

private:
    std::string m_sessionBus;
    std::string m_systemBus;
};

} // namespace orvana::platform::linux_host
