#pragma once

#include "enclosures/EnclosureSetup.h"
#include "platform/Account.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/Host.h"
#include "platform/NullDevices.h"
#include "platform/Places.h"
#include "platform/posix/PosixCommandLauncher.h"
#include "platform/posix/PosixVolumeFiles.h"

#include <vector>

namespace orvana::test
{

/// Records the pages and folders that it was asked to open.
class RecordingWorkspace final : public platform::Workspace
{
public:
    void openPage(const std::string &address) override { pages.push_back(address); }
    void openFolder(const std::string &path) override { folders.push_back(path); }
    void notify(const platform::DesktopNotice &) override {}
    void showProgress(std::optional<double>) override {}
    std::shared_ptr<void> holdOffSleep(const std::string &) override { return nullptr; }

    std::vector<std::string> pages;
    std::vector<std::string> folders;
};

/// Real files below folders of the test's own, with switches for faults; the user is "tester".
class TestHost : public platform::Host, platform::Account, platform::Places
{
public:
    /// `home` is the tester's home folder and what "/Users/tester" stands for.
    explicit TestHost(std::string home) : m_home(std::move(home)) {}

    platform::Account &account() override { return *this; }
    platform::Places &places() override { return *this; }
    platform::VolumeFiles &volumeFiles() override { return m_faulty; }
    platform::HardwareRegistry &registry() override { return m_registry; }
    platform::VolumeEvents &volumeEvents() override { return m_events; }
    platform::CommandLauncher &launcher() override { return m_launcher; }
    platform::Workspace &workspace() override { return m_workspace; }
    enclosures::EnclosureSetup &enclosureSetup() override { return m_setup; }
    platform::HealthReader &health() override { return m_health; }
    platform::FaultyVolumeFiles &faults() { return m_faulty; }
    const std::vector<std::string> &openedPages() const { return m_workspace.pages; }
    const std::vector<std::string> &openedFolders() const { return m_workspace.folders; }

    std::string loginName() const override { return "tester"; }
    std::string homeFolder() const override { return m_home; }
    std::optional<std::string> userPath(const std::string &login) const override
    {
        return login == "tester" ? std::optional(m_home) : std::nullopt;
    }
    bool isVolumeRoot(const platform::Folder &folder) const override { return folder.traits().isMountRoot; }
    std::vector<std::string> disksBeneath(const std::vector<std::string> &) const override { return {}; }

private:
    std::string m_home;
    platform::NullRegistry m_registry;
    enclosures::NullEnclosureSetup m_setup;
    platform::NullHealth m_health;
    platform::NullVolumeEvents m_events;
    platform::posix::PosixCommandLauncher m_launcher;
    RecordingWorkspace m_workspace;
    platform::posix::PosixVolumeFiles m_real;
    platform::FaultyVolumeFiles m_faulty{m_real};
};

} // namespace orvana::test
