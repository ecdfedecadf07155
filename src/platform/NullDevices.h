#pragma once

#include "platform/DiskHealth.h"
#include "platform/HardwareRegistry.h"
#include "platform/VolumeEvents.h"
#include "platform/Workspace.h"

namespace orvana::platform
{

/// A registry without devices.
class NullRegistry final : public HardwareRegistry
{
public:
    Answer match(const std::optional<RegistryMatching> &matching) override
    {
        return {matching ? RegistrySuccess : RegistryBadArgument, {}};
    }
    Answer watch(const std::string &, RegistryEvent, EventHandler) override { return {}; }
};

/// The events of volumes that never change.
class NullVolumeEvents final : public VolumeEvents
{
public:
    void subscribe(std::function<void(VolumeChange)>) override {}
};

/// Knows nothing of any disk.
class NullHealth final : public HealthReader
{
public:
    DiskHealth healthOf(const std::string &) override { return {}; }
};

/// A workspace without a desktop. Its functions do nothing.
class NullWorkspace final : public Workspace
{
public:
    void openPage(const std::string &) override {}
    void openFolder(const std::string &) override {}
    void notify(const DesktopNotice &) override {}
    void showProgress(std::optional<double>) override {}
    std::shared_ptr<void> holdOffSleep(const std::string &) override { return nullptr; }
};

} // namespace orvana::platform
