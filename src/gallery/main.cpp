// Writes a picture of every panel, filled from the demo machine: light and dark, at 100 % and 200 %.
//
//     plurimo-gallery FOLDER

#include "discovery/ORVScanDevice.h"
#include "filetree/view/FileListViewController.h"
#include "foundation/DeviceBlocks.h"
#include "foundation/NotificationCenter.h"
#include "foundation/SizeText.h"
#include "foundation/qt/QtMainQueue.h"
#include "panels/BayRunView.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/NoEnclosureView.h"
#include "panels/ProgressBarViewController.h"
#include "panels/TBDeviceViewController.h"
#include "platform/hosts/HostFactory.h"
#include "resources/Resources.h"
#include "ui/EdgeStyle.h"
#include "ui/Palettes.h"
#include "ui/SystemColor.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTreeView>

#include <cstdio>
#include <functional>

namespace
{

using namespace orvana;

std::string sizeOf(const std::optional<std::int64_t> &count, std::int64_t unit)
{
    return sizeText(static_cast<std::uint64_t>(count.value_or(0) * unit));
}

void fillRow(DiskInfoViewController &panel, std::string_view row, const ORVHddInfo &disk)
{
    const auto model = disk.hddModel().value_or("");
    const auto serial = disk.hddSN().value_or("");
    if (disk.bsdPathArray().empty()) {
        const auto size = sizeOf(disk.diskSize(), 1);
        panel.setDiskInfo(row, "Unformatted", model, serial, size, size, false, disk.isRaidFormated());
        return;
    }
    const auto &volume = *disk.bsdPathArray().front();
    const auto path = volume.mountPoint() ? *volume.mountPoint() : std::string();
    panel.setDiskInfo(row, path.substr(path.rfind('/') + 1), model, serial,
                      sizeOf(volume.availableSize(), DeviceBlockBytes),
                      sizeOf(volume.capacitySize(), DeviceBlockBytes), false, disk.isRaidFormated());
}

/// Scans the demo machine and paints its panels.
class Gallery
{
public:
    Gallery(platform::Host &host, QString folder) : m_host(host), m_folder(std::move(folder))
    {
        FileSystemItem::useHost(host);
        m_scanner.scanTBDevice();
    }

    bool paintAll()
    {
        picker();
        slotsWithBayAAsSource();
        slotsWithAnotherSource();
        slotsInARun();
        slotsAfterARun();
        refusedSlots();
        emptySlots();
        noEnclosure();
        actions();
        actionsInARun();
        progress();
        fileList();
        emptyFileList();
        return m_allWritten;
    }

private:
    void paint(QWidget &panel, const QString &name);
    void fillSlots(DiskInfoViewController &panel) const;
    void picker();
    void slotsWithBayAAsSource();
    void slotsWithAnotherSource();
    void slotsInARun();
    void slotsAfterARun();
    void refusedSlots();
    void emptySlots();
    void noEnclosure();
    void actions();
    void actionsInARun();
    void progress();
    void fileList();
    void emptyFileList();

    platform::Host &m_host;
    QString m_folder;
    bool m_allWritten = true;
    NotificationCenter m_center;
    QtMainQueue m_queue;
    ORVScanDevice m_scanner{m_host.registry(), m_host.launcher()};
};

void Gallery::paint(QWidget &panel, const QString &name)
{
    for (const bool isDark : {false, true}) {
        QApplication::setPalette(isDark ? darkPalette() : lightPalette());
        panel.show();
        QApplication::processEvents();
        for (const int scale : {1, 2}) {
            QImage image(panel.size() * scale, QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(panel.palette().color(QPalette::Window));
            panel.render(&image);
            const auto file =
                QStringLiteral("%1/%2-%3-%4.png")
                    .arg(m_folder, name, isDark ? QStringLiteral("dark") : QStringLiteral("light"))
                    .arg(scale * 100);
            m_allWritten = image.save(file) && m_allWritten;
        }
    }
    QApplication::setPalette(lightPalette());
}

void Gallery::fillSlots(DiskInfoViewController &panel) const
{
    const auto &disks = m_scanner.tbArray().front()->hddArray();
    panel.SourcePopup->clear();
    panel.SourcePopup->addTitle("Master", QIcon::fromTheme(QStringLiteral("drive-harddisk")));
    panel.SourcePopup->insertSeparator(1);
    panel.SourcePopup->addTitle("STICK", QIcon::fromTheme(QStringLiteral("drive-removable-media")));
    fillRow(panel, "Source", *disks.front());
    panel.setTextColor("Source", SystemColor::blue());
    panel.setSlotAisSource();
    for (const auto &disk : disks)
        fillRow(panel, disk->slotPath().value_or(""), *disk);
    panel.setSlotAisSource();
    panel.changeLocation();
}

void Gallery::picker()
{
    TBDeviceViewController panel(m_center);
    panel.resize(300, 70);
    panel.updateTBDevPopUp(m_scanner.tbArray());
    panel.tbDevicePopup->setCurrentIndex(1);
    paint(panel, QStringLiteral("picker"));
}

void Gallery::slotsWithBayAAsSource()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    fillRow(panel, "Slot-A", *m_scanner.tbArray().front()->hddArray().front());
    panel.setTextColor("Slot-C", SystemColor::red());
    paint(panel, QStringLiteral("slots"));
}

void Gallery::slotsWithAnotherSource()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    panel.SourcePopup->setCurrentIndex(2);
    panel.setDiskInfo("Source", "STICK", "A stick whose model has a name that goes on and on", "S-1",
                      "1.00 GB", "64.00 GB", false, false);
    panel.selectSourceDiksPopup();
    panel.setDiskInfo("Slot-B", "A volume with a very long name", "RAID member", "B-2002", "1.00 TB",
                      "2.00 TB", false, true);
    panel.setTextColor("Slot-D", SystemColor::red());
    panel.setTargetDiskVolumeEditable(true);
    panel.changeTargetDiskFocus();
    paint(panel, QStringLiteral("slots-erase"));
}

void Gallery::slotsInARun()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    panel.setTextColor("Slot-C", SystemColor::red());
    panel.DisabledItem(true);
    panel.runOf("Slot-B")->showProgress(0.45, QStringLiteral("45%"), QStringLiteral("121 MB/s"),
                                        QStringLiteral("1:02:03 left"));
    panel.runOf("Slot-D")->showProgress(0.02, QStringLiteral("3 failed"), QStringLiteral("0 Bytes/s"),
                                        QStringLiteral("--:-- left"));
    paint(panel, QStringLiteral("slots-run"));
}

void Gallery::slotsAfterARun()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    panel.runOf("Slot-B")->showVerdict(QStringLiteral("\u2713 Verified"), QStringLiteral("from the disk"));
    panel.runOf("Slot-C")->showVerdict(QStringLiteral("\u2717 Not complete"), QStringLiteral("3 failed"));
    panel.runOf("Slot-D")->showVerdict(QStringLiteral("\u2013 No part"),
                                       QStringLiteral("the selection does not fit"));
    paint(panel, QStringLiteral("slots-verdicts"));
}

void Gallery::refusedSlots()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    panel.setDiskInfo("Slot-B", "", "Array HD 1000", "B-2002", "931.32 GB", "931.32 GB", false, true);
    panel.setTextColor("Slot-B", SystemColor::red());
    paint(panel, QStringLiteral("slots-raid"));
}

void Gallery::emptySlots()
{
    DiskInfoViewController panel(m_center);
    fillSlots(panel);
    for (const char *row : {"Slot-B", "Slot-C", "Slot-D"})
        panel.setDiskInfo(row, "None", "", "", "", "", true, false);
    paint(panel, QStringLiteral("slots-empty"));
}

void Gallery::noEnclosure()
{
    NoEnclosureView panel;
    panel.resize(300, 70);
    paint(panel, QStringLiteral("no-enclosure"));
}

void Gallery::actionsInARun()
{
    CopyActionViewController panel(m_center);
    panel.resize(605, 55);
    panel.EraseDiskCheckBox->setChecked(true);
    panel.EraseDiskCheckBox->setEnabled(false);
    panel.setTitle(CopyActionViewController::Title::Cancel);
    paint(panel, QStringLiteral("actions-cancel"));
}

void Gallery::emptyFileList()
{
    FileListViewController panel(m_host, m_center, m_queue);
    panel.resize(300, 430);
    panel.showRoot(nullptr);
    panel.setEnabled(false);
    paint(panel, QStringLiteral("files-empty"));
}

void Gallery::actions()
{
    CopyActionViewController panel(m_center);
    panel.resize(605, 55);
    panel.VerrifyFileCheckBox->setChecked(true);
    panel.VerrifyFileCheckBox->setFocus(Qt::TabFocusReason);
    paint(panel, QStringLiteral("actions"));
}

void Gallery::progress()
{
    ProgressBarViewController panel;
    panel.resize(605, 75);
    panel.setViewForCopy();
    panel.TextLabel->setText(QStringLiteral("Duplicating Footage/Day 3/Camera B/Clip 0042.mov"));
    panel.setFileStep(62);
    panel.setTotalStep(0.4F);
    paint(panel, QStringLiteral("progress"));
}

void Gallery::fileList()
{
    FileListViewController panel(m_host, m_center, m_queue);
    panel.resize(300, 430);
    panel.showRoot(m_scanner.tbArray().front()->hddArray().front()->bsdPathArray().front()->mountPoint());
    auto *model = panel.sourceFileListView->model();
    panel.sourceFileListView->expand(model->index(0, 0));
    model->setData(model->index(1, 0, model->index(0, 0)), QVariant(), Qt::CheckStateRole);
    panel.startCountThread();
    panel.waitForCount(std::chrono::seconds(30));
    while (panel.itemSizeLabel->text().isEmpty())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    paint(panel, QStringLiteral("files"));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    loadResources();
    QApplication::setStyle(QStringLiteral("fusion"));
    orvana::useEdgeStyle();
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QStringLiteral("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: plurimo-gallery FOLDER\n", stderr);
        return 2;
    }
    const QTemporaryDir demo;
    const auto file = platform::prepareDemo(demo.path().toStdString());
    auto host = file ? platform::makeSimulatorHost(*file, nullptr) : tl::unexpected(file.error());
    if (!host) {
        std::fprintf(stderr, "plurimo-gallery: %s\n", host.error().c_str());
        return 1;
    }
    return Gallery(**host, QString::fromLocal8Bit(argv[1])).paintAll() ? 0 : 1;
}
