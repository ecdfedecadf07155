#pragma once

#include "app/MainWindow.h"
#include "enclosures/EnclosureSetup.h"
#include "filetree/view/FileListViewController.h"
#include "foundation/PathJson.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/TBDeviceViewController.h"
#include "platform/CommandLauncher.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "support/ManualMainQueue.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

/// The real window on a simulated machine, offscreen. The main queue has its own time; `until` and `pass`
/// move that time on.
class WindowTest : public testing::Test
{
protected:
    using Files = std::vector<std::string>;

    WindowTest();
    ~WindowTest() override;

    /// A disk of the machine's description, which may be changed before `start`.
    Json &bay(std::size_t index) { return m_machine["enclosures"][0]["bays"][index]; }

    void start(const std::string &edition = "Orvana");

    /// What the window is given. Needs `start`.
    AppContext context();

    /// Starts the window, chooses the first enclosure and waits for its count.
    void startWithEnclosure();

    MainWindow &window() { return *m_window; }
    DiskInfoViewController &slots() { return m_window->myDiskInfoViewController(); }
    FileListViewController &files() { return m_window->myFileListViewController(); }
    CopyActionViewController &actions() { return m_window->myCopyActionViewController(); }

    // Actions of the user.
    void closeWindow() { m_window.reset(); }
    void chooseEnclosure(int item);
    void chooseSource(const std::string &title);
    void setErase(bool on);
    void setVerify(bool on);
    void pressStart();

    /// Presses Start and confirms the erase.
    void startErase();
    void pressSheet(const std::string &button);
    void typeName(VolumeNameField *field, const std::string &name);
    void untick(const std::string &name);

    /// Changes the machine from outside the program.
    void move(const std::string &lever, const std::string &target, const std::string &newName = "") const;

    /// Lets time pass until the condition holds. Fails the test if that takes longer than half a minute.
    void until(const std::function<bool()> &condition);
    void untilCounted();

    /// Lets time pass until a sheet that begins with this message is on the screen.
    void untilSheet(const std::string &message);

    /// Moves the queue's time on and handles the pending events.
    void pass(std::chrono::milliseconds time);

    std::string sheetMessage();
    std::string sheetText();
    std::string title() const;

    /// Returns the number of windows with a run's report.
    static int reportWindows();

    Files filesOn(const std::string &volume) const;
    bool isMounted(const std::string &volume) const;

    /// Whether a read or a write of the volume is held by its "delayMilliseconds" at the moment.
    bool isWaitingFor(const std::string &volume) const;

    std::string log() const { return m_tree.read("logs/" + nameEndingWith("-Log.txt")); }
    Json report() const { return Json::parse(m_tree.read("logs/" + nameEndingWith("-Report.json"))); }
    bool hasLog() const { return !nameEndingWith("-Log.txt").empty(); }

    /// Returns the words of each command that the disk utility got so far.
    const std::vector<Files> &tools() const { return m_tools; }

    // Requests to the desktop so far.
    int wakeHolds() const;
    std::vector<std::string> openedPages() const;
    const std::vector<platform::DesktopNotice> &notices() const;
    const std::vector<std::optional<double>> &shownProgress() const;

    test::TemporaryTree m_tree;
    Json m_machine;
    NotificationCenter m_center;
    NotificationCenter m_volumeCenter;
    test::ManualMainQueue m_queue;
    test::StoppedClock m_clock;
    std::function<void(const Files &)> m_beforeTool = [](const Files &) {};
    std::function<void()> m_afterListing = [] {}; // called after "df" has listed the volumes

    using Written = tl::expected<void, std::string>;
    /// Called on the writing thread in place of the machine's own function, which is the first argument.
    std::function<Written(enclosures::EnclosureSetup &, const enclosures::Definition &)> m_addDefinition =
        [](auto &machine, const auto &definition) { return machine.add(definition); };
    int m_looksAtPorts = 0;
    std::function<bool()> m_startDemo = [] { return true; };
    std::shared_ptr<LineActivity> m_lineActivity = std::make_shared<LineActivity>();

private:
    class WatchedSetup;
    class WatchedHost;
    std::string nameEndingWith(const std::string &end) const;

    std::vector<Files> m_tools;
    std::unique_ptr<platform::Host> m_simulator;
    std::unique_ptr<WatchedHost> m_host;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace orvana
