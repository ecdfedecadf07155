// Measures how fast the file list opens a large folder, against `ls -lU` of the same folder in the same run.
// Also measures for how long the interface does not answer while many files are counted, against the 50 ms
// that people notice.
//
//     plurimo_filelist_benchmark [ENTRIES] [FILES]      100,000 entries and 1,000,000 files by default

#include "filetree/view/FileListViewController.h"
#include "foundation/NotificationCenter.h"
#include "foundation/qt/QtMainQueue.h"
#include "platform/hosts/HostFactory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace
{

using namespace orvana;
namespace fs = std::filesystem;

void makeFiles(const fs::path &folder, int first, int count)
{
    fs::create_directories(folder);
    for (int i = first; i < first + count; ++i)
        std::ofstream(folder / ("Take " + std::to_string(i) + ".mov"));
}

double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double medianOpening(FileListViewController &panel, const std::string &root)
{
    std::vector<double> times;
    for (int round = 0; round < 6; ++round) {
        panel.showRoot(std::make_shared<const std::string>(root));
        QApplication::processEvents();
        const double time = milliseconds([&] {
            panel.sourceFileListView->expand(panel.sourceFileListView->model()->index(0, 0));
            QApplication::processEvents();
        });
        panel.stopCountThread();
        panel.waitForCount(std::chrono::seconds(60));
        if (round > 0) // the first round only warms the caches
            times.push_back(time);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double longestStall(FileListViewController &panel, const std::string &root)
{
    panel.showRoot(std::make_shared<const std::string>(root));
    QApplication::processEvents();
    QElapsedTimer sinceTick;
    double longest = 0;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &panel, [&] {
        longest = std::max(longest, static_cast<double>(sinceTick.nsecsElapsed()) / 1e6);
        sinceTick.start();
    });
    sinceTick.start();
    ticks.start(1);
    panel.startCountThread();
    while (!panel.waitForCount(std::chrono::milliseconds(0)))
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return longest;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int entries = argc > 1 ? std::atoi(argv[1]) : 100'000;
    const int files = argc > 2 ? std::atoi(argv[2]) : 1'000'000;
    std::string root = fs::temp_directory_path() / "plurimo-list-XXXXXX";
    if (!::mkdtemp(root.data()))
        return 1;
    makeFiles(root + "/Large", 0, entries);
    constexpr int FilesAFolder = 1000;
    for (int i = 0; i < files; i += FilesAFolder)
        makeFiles(root + "/Many/" + std::to_string(i), i, std::min(FilesAFolder, files - i));

    const auto host = platform::makeMachineHost();
    FileSystemItem::useHost(*host);
    NotificationCenter center;
    QtMainQueue queue;
    FileListViewController panel(*host, center, queue);
    panel.resize(300, 430);
    panel.show();

    const auto list = "ls -lU '" + root + "/Large' >/dev/null";
    const double peer = milliseconds([&] { std::ignore = std::system(list.c_str()); });
    const double opening = medianOpening(panel, root + "/Large");
    std::printf("ls -lU of %d entries        %7.1f ms\n", entries, peer);
    std::printf("opening them in the list      %7.1f ms   %.2f of ls\n", opening, opening / peer);
    const double stall = longestStall(panel, root + "/Many");
    std::printf("%lld files counted; longest time without an answer %.1f ms, %.2f of 50 ms\n",
                static_cast<long long>(panel.totalFiles()), stall, stall / 50);
    fs::remove_all(root);
    return panel.totalFiles() == files ? 0 : 1;
}
