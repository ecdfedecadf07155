// Measures how long the window takes from its start until it is usable; the goal is 300 ms. Also measures for
// how long the window does not answer during a run of many small files; the goal is 100 ms.
//
//     plurimo_window_benchmark [FILES]      100,000 files by default

#include "app/MainMenu.h"
#include "app/MainWindow.h"
#include "app/OrvanaAppDelegate.h"
#include "app/RunReportWindow.h"
#include "filetree/view/FileListViewController.h"
#include "foundation/Clock.h"
#include "foundation/NotificationCenter.h"
#include "foundation/qt/QtMainQueue.h"
#include "panels/CopyActionViewController.h"
#include "panels/TBDeviceViewController.h"
#include "platform/hosts/HostFactory.h"
#include "resources/Resources.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

namespace
{

using namespace orvana;
namespace fs = std::filesystem;

void writeMachine(const std::string &file, int files)
{
    std::ofstream(file) << R"({ "login": "anna", "enclosures": [ { "uid": 1, "bays": [
        { "bay": "A", "serial": "A1", "size": 100000000000, "volumes": [ { "name": "Master", "capacity": 90000000000,
          "content": [ { "path": "Small", "bytes": )"
                        << files * 200LL << R"(, "files": )" << files << R"( } ] } ] },
        { "bay": "B", "serial": "B1", "size": 100000000000, "volumes": [ { "name": "COPY1", "capacity": 90000000000 } ] },
        { "bay": "C", "serial": "C1", "size": 100000000000, "volumes": [ { "name": "COPY2", "capacity": 90000000000 } ] }
        ] } ] })";
}

void until(const std::function<bool()> &condition)
{
    while (!condition())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

/// The window on its machine, as the program makes it.
struct Window
{
    Window(platform::Host &host, const std::string &logs)
        : delegate({host, center, volumeCenter, queue, clock, logs}, "Orvana")
    {
        delegate.applicationDidFinishLaunching();
        QApplication::processEvents();
    }

    NotificationCenter center;
    NotificationCenter volumeCenter;
    QtMainQueue queue;
    SystemClock clock;
    OrvanaAppDelegate delegate;
};

double longestStallOfARun(MainWindow &window)
{
    auto *picker = window.myTBDeviceViewController().tbDevicePopup;
    picker->setCurrentIndex(1);
    Q_EMIT picker->activated(1);
    until([&] { return window.myFileListViewController().waitForCount(std::chrono::milliseconds(0)); });
    double longest = 0;
    QElapsedTimer sinceTick;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &window, [&] {
        longest = std::max(longest, static_cast<double>(sinceTick.nsecsElapsed()) / 1e6);
        sinceTick.start();
    });
    // A user looks before the click. Meanwhile the machine forgets the space that it has added up.
    QElapsedTimer looking;
    looking.start();
    until([&] { return looking.hasExpired(2000); });
    // The click asks the simulated machine for its free space, which adds up every file of the source; a real
    // machine does not.
    sinceTick.start();
    window.myCopyActionViewController().StartBtn->click();
    std::printf("the click on Start %.1f ms\n", static_cast<double>(sinceTick.nsecsElapsed()) / 1e6);
    sinceTick.start();
    ticks.start(1);
    if (!window.isBusy()) {
        std::puts("the run did not start");
        std::exit(1);
    }
    until([&] { return !window.isBusy(); });
    return longest;
}

/// Returns the milliseconds until a report is on the screen that has 2,000 problems, each with a reason of
/// its own.
double openingOfAReport()
{
    RunSummary summary;
    summary.source = "/Volumes/Master";
    summary.destinations.resize(1);
    summary.destinations[0].path = "/Volumes/COPY1";
    summary.destinations[0].failed = 2000;
    std::vector<ProblemGroup> groups;
    for (int i = 0; i < 2000; ++i) {
        ProblemGroup group;
        group.destination = "/Volumes/COPY1";
        group.reason = "Reason " + std::to_string(i);
        group.count = 1;
        group.files = {"/Volumes/Master/Footage/File " + std::to_string(i)};
        groups.push_back(group);
    }
    QElapsedTimer sinceClick;
    sinceClick.start();
    auto *window = new RunReportWindow(summary, groups, [] { return std::string(); });
    window->show();
    QApplication::processEvents();
    const double time = static_cast<double>(sinceClick.nsecsElapsed()) / 1e6;
    delete window;
    return time;
}

} // namespace

int main(int argc, char **argv)
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    loadResources();
    const double toolkit = static_cast<double>(sinceStart.nsecsElapsed()) / 1e6;
    const int files = argc > 1 ? std::atoi(argv[1]) : 100'000;
    std::string root = fs::temp_directory_path() / "plurimo-window-XXXXXX";
    if (!::mkdtemp(root.data()))
        return 1;
    fs::create_directory(root + "/logs");

    // The first start makes the demo machine's files; the second is the one that counts.
    const auto demo = platform::prepareDemo(root + "/demo").value();
    QtMainQueue queue;
    platform::makeSimulatorHost(demo, &queue).value().reset();
    sinceStart.start();
    {
        const auto host = platform::makeSimulatorHost(demo, &queue).value();
        const Window window(*host, root + "/logs");
        const double start = toolkit + static_cast<double>(sinceStart.nsecsElapsed()) / 1e6;
        std::printf("toolkit %.0f ms, machine and window %.0f ms: %.0f ms, %.2f of 300 ms\n", toolkit,
                    start - toolkit, start, start / 300);
    }

    writeMachine(root + "/machine.json", files);
    {
        const auto host = platform::makeSimulatorHost(root + "/machine.json", &queue).value();
        Window window(*host, root + "/logs");
        const double stall = longestStallOfARun(window.delegate.mainWindow());
        std::printf("run of %d files on two disks; longest time without an answer %.1f ms, %.2f of 100 ms\n",
                    files, stall, stall / 100);
    }
    const double report = openingOfAReport();
    std::printf("report with 2000 problems %.0f ms, %.2f of 300 ms\n", report, report / 300);
    fs::remove_all(root);
    return 0;
}
