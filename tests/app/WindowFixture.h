#pragma once

#include "app/MainWindow.h"
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

/// The real window on a simulated machine, offscreen. The main queue has a time of its own, which `until`
/// lets pass.
class WindowTest : public testing::Test
{
protected:
    using Files = std::vector<std::string>;

    WindowTest();
    ~WindowTest() override;

    /// A disk of the machine's description, which may be changed before `start`.
    Json &bay(std::size_t index) { return m_machine["enclosures"][0]["bays"][index]; }

    void start(const std::string &edition = "Orvana");

    /// As `start`, and chooses the first enclosure, and waits for its count.
    void startWithEnclosure();

    MainWindow &window() { return *m_window; }
    DiskInfoViewController &slots() { return m_window->myDiskInfoViewController(); }
    FileListViewController &files() { return m_window->myFileListViewController(); }
    CopyActionViewController &actions() { return m_window->myCopyActionViewController(); }

    // What the user does.
    void closeWindow() { m_window.reset(); }
    void chooseEnclosure(int item);
    void chooseSource(const std::string &title);
    void setErase(bool on);
    void setVerify(bool on);
    void pressStart();

    /// Presses Start, and agrees to the erase that is asked about.
    void startErase();
    void pressSheet(const std::string &button);
    void typeName(VolumeNameField *field, const std::string &name);
    void untick(const std::string &name);

    /// What somebody else does to the machine.
    void move(const std::string &lever, const std::string &target, const std::string &newName = "") const;

    /// Lets time pass until the condition holds; fails the test when it does not within half a minute.
    void until(const std::function<bool()> &condition);
    void untilCounted();

    /// Until the sheet that begins with this message is on the screen.
    void untilSheet(const std::string &message);

    /// Time passes, events are handled.
    void pass(std::chrono::milliseconds time);

    std::string sheetMessage();
    std::string sheetText();
    std::string title() const;

    /// Windows with a run's report.
    static int reportWindows();

    Files filesOn(const std::string &volume) const;
    bool isMounted(const std::string &volume) const;
    std::string log() const { return m_tree.read("logs/" + nameEndingWith("-Log.txt")); }
    Json report() const { return Json::parse(m_tree.read("logs/" + nameEndingWith("-Report.json"))); }
    bool hasLog() const { return !nameEndingWith("-Log.txt").empty(); }

    /// The words of each command of the disk utility so far.
    const std::vector<Files> &tools() const { return m_tools; }

    // What the desktop was asked for.
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
    std::function<void()> m_afterListing = [] {}; // of the volumes, by "df"

private:
    class WatchedHost;
    std::string nameEndingWith(const std::string &end) const;

    std::vector<Files> m_tools;
    std::unique_ptr<platform::Host> m_simulator;
    std::unique_ptr<WatchedHost> m_host;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace orvana
