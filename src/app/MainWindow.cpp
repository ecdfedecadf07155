#include "app/MainWindow.h"

#include "app/BaySetupSheet.h"
#include "filetree/view/FileListViewController.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/NoEnclosureView.h"
#include "panels/TBDeviceViewController.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "platform/posix/PrivateFolder.h"
#include "ui/FittingFont.h"
#include "ui/Mirrored.h"
#include "ui/ShownText.h"
#include "version/WebAddress.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace orvana
{

namespace
{

constexpr int ContentWidth = 635;
constexpr int CopyRightsWidth = 292;
constexpr std::array Heights{200, 685, 740}; // content height for each state
constexpr std::chrono::milliseconds BetweenProgress{40};

QIcon themeIcon(const QString &name, QStyle::StandardPixmap otherwise)
{
    return QIcon::fromTheme(name, QApplication::style()->standardIcon(otherwise));
}

} // namespace

MainWindow::MainWindow(const AppContext &context, QWidget *parent)
    : QMainWindow(parent), m_context(context),
      m_progressUpdate(context.queue, BetweenProgress, [this] { showProgress(); }),
      m_setupWriter(context.host.enclosureSetup(), context.queue),
      m_ScanDevice(context.host.registry(), context.host.launcher())
{
    setupUi(this);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    messageText->clear();
    setAcceptDrops(true);
    setFixedSize(ContentWidth, Heights[0]);
    connect(HelpBtn, &QPushButton::clicked, this, &MainWindow::Help);
}

// Unsubscribe first: no event may reach a member that is already destroyed.
MainWindow::~MainWindow()
{
    qApp->removeEventFilter(this);
    m_subscriptions.clear();
    m_isAlive.reset();
    delete m_baySetup.data(); // it uses members of the window
    m_run.reset();
}

void MainWindow::later(std::chrono::milliseconds delay, std::function<void()> work)
{
    m_context.queue.after(delay, [isAlive = std::weak_ptr(m_isAlive), work = std::move(work)] {
        if (!isAlive.expired())
            work();
    });
}

void MainWindow::startMainWindow()
{
    initWindowItems();
    m_ScanDevice.setDetectOption(m_uiVersion);
    scanAll();
    m_tbDevice->updateTBDevPopUp(m_ScanDevice.tbArray());
    m_TBMonitor->MonitorInit();
    monitorVolumesDevice();
    monitorEvent();
    m_action->setIsDuplicating(false);
    m_action->setIsErasing(false);
    m_diskInfo->setTargetDiskVolumeEditable(m_action->EraseDiskCheckBox->isChecked());
    displayDialog(0, false);
    qApp->installEventFilter(this);
    m_tbDevice->tbDevicePopup->setFocus();
}

void MainWindow::initWindowItems()
{
    m_logData = std::make_unique<LogData>(m_context.logFolder, m_context.clock);
    m_run = std::make_unique<DuplicationRun>(
        DuplicationRun::Surroundings{.host = m_context.host,
                                     .center = m_context.center,
                                     .queue = m_context.queue,
                                     .clock = m_context.clock,
                                     .log = *m_logData,
                                     .patience = {},
                                     .stateFolder =
                                         platform::stateFolder(m_context.host.account().homeFolder())},
        *this);
    m_TBMonitor = std::make_unique<ThunderBoltMonitor>(m_context.host.registry(), m_context.center);
    m_logData->initLogFile();
    initTBDeviceView();
    initNoEnclosureView();
    initDiskInfoView();
    initFileListView();
    initCopyActionView();
    initProgressBar();
    CopyRightsLabel->setText(tr("Orvana Plurimo, the disk duplicator"));
    VerLabel->setText(tr("Version : %1").arg(QStringLiteral(PLURIMO_VERSION)));
    const bool isPartner = m_uiVersion == "Obsidio";
    UIVer->setText(isPartner ? tr("for Obsidio") : QString());
    UIVer->setVisible(isPartner);
    BannerLogo->setPixmap(QPixmap(QStringLiteral(":/PL_Banner.png")));
    loadIcons();
    fitFonts();
}

void MainWindow::initTBDeviceView()
{
    if (!m_tbDevice) {
        m_tbDevice = new TBDeviceViewController(m_context.center, TBDeviceView);
        connect(m_tbDevice, &TBDeviceViewController::remarksWanted, this,
                [this](const QString &text) { m_sheets.show({tr("Not used"), text, {tr("OK")}}); });
    }
    m_tbDevice->setGeometry(0, 0, 300, 70);
    m_tbDevice->show(); // like the other panels, it is made when the window is already on the screen
}

void MainWindow::initNoEnclosureView()
{
    if (!m_noEnclosure) {
        m_noEnclosure = new NoEnclosureView(content);
        m_noEnclosure->demoBtn->setHidden(!m_context.startDemo);
        setTabOrder(m_tbDevice->tbDevicePopup, m_noEnclosure->setUpBtn);
        setTabOrder(m_noEnclosure->setUpBtn, m_noEnclosure->demoBtn);
        connect(m_noEnclosure, &NoEnclosureView::setUpWanted, this, &MainWindow::setUpBays);
        connect(m_noEnclosure, &NoEnclosureView::demoWanted, this, &MainWindow::startDemo);
        connect(m_tbDevice, &TBDeviceViewController::listed, this, &MainWindow::showWhatToDoNext);
    }
    showWhatToDoNext();
}

void MainWindow::initDiskInfoView()
{
    if (!m_diskInfo)
        m_diskInfo = new DiskInfoViewController(m_context.center, DiskInfoView);
    m_diskInfo->setGeometry(0, 0, 300, 500);
    m_diskInfo->show();
}

void MainWindow::initFileListView()
{
    FileSystemItem::useHost(m_context.host);
    if (!m_fileList)
        m_fileList =
            new FileListViewController(m_context.host, m_context.center, m_context.queue, FileListView);
    m_fileList->setGeometry(0, 0, 300, 430);
    m_fileList->show();
}

void MainWindow::initCopyActionView()
{
    if (!m_action)
        m_action = new CopyActionViewController(m_context.center, CopyActionView);
    m_action->setGeometry(0, 0, 605, 55);
    m_action->show();
}

// The two bars have different scales on purpose: percent of a file, fraction of a run.
void MainWindow::initProgressBar()
{
    fileProgress->setKind(ProgressIndicator::Kind::Determinate);
    fileProgress->setMaxValue(100.0);
    totalProgress->setKind(ProgressIndicator::Kind::Determinate);
    totalProgress->setMaxValue(1.0);
    hiddenPrpgressBar(true);
}

void MainWindow::loadIcons()
{
    m_SysDiskIcon = themeIcon(QStringLiteral("user-home"), QStyle::SP_DirHomeIcon);
    m_IntDiskIcon = themeIcon(QStringLiteral("drive-harddisk"), QStyle::SP_DriveHDIcon);
    m_ExtDiskIcon = themeIcon(QStringLiteral("drive-removable-media"), QStyle::SP_DriveFDIcon);
}

void MainWindow::fitFonts()
{
    for (auto *label : {VerLabel, UIVer, messageText, stageText})
        label->setFont(fontThatFits(font(), 17));
    CopyRightsLabel->setFont(fontThatFits(font(), 17, CopyRightsLabel->text(), CopyRightsWidth));
    for (auto *label : {static_cast<QWidget *>(totalCaption), static_cast<QWidget *>(fileCaption),
                        static_cast<QWidget *>(totalText), static_cast<QWidget *>(fileText)})
        label->setFont(fontThatFits(font(), 15));
}

void MainWindow::displayDialog(int state, bool)
{
    m_layoutState = state == 1 || state == 2 ? state : 0;
    m_contentHeight = Heights[static_cast<std::size_t>(m_layoutState)];
    for (auto *view : {DiskInfoView, FileListView, CopyActionView})
        view->setHidden(m_layoutState == 0);
    showWhatToDoNext();
    placeViews();

    const int menuHeight = menuBar()->actions().isEmpty() ? 0 : menuBar()->sizeHint().height();
    const auto area = screen() ? screen()->availableGeometry() : QRect();
    const int room = std::max(area.height() - menuHeight, Heights[0]);
    const bool isCut = m_contentHeight > room;
    setFixedSize(ContentWidth + (isCut ? scroller->verticalScrollBar()->sizeHint().width() : 0),
                 menuHeight + std::min(m_contentHeight, room));
    if (isVisible())
        move(x(), area.y() + std::max(0, (area.height() - height()) / 2));

    if (m_layoutState != 2)
        hiddenPrpgressBar(true);
    placeFromBottom(CopyRightsLabel, 15, 15, CopyRightsWidth, 17);
    placeFromBottom(VerLabel, 313, 15, 157, 17);
    placeFromBottom(HelpBtn, 597, 10, 25, 25);
}

// The views keep their distance from the top. The space that a run adds lies between the actions and the
// banner.
void MainWindow::placeViews()
{
    content->setFixedSize(ContentWidth, m_contentHeight);
    place(TBDeviceView, 15, 15, 300, 70);
    place(FileListView, 15, 85, 300, 430);
    place(m_noEnclosure, 320, 15, 300, 70);
    place(DiskInfoView, 320, 15, 300, 500);
    place(CopyActionView, 15, 515, 605, 55);
    placeFromBottom(messageText, 15, 150, 385, 18);
    placeFromBottom(stageText, 405, 150, 215, 18);
    placeFromBottom(totalCaption, 15, 131, 75, 16);
    placeFromBottom(totalProgress, 95, 133, 305, 12);
    placeFromBottom(totalText, 405, 131, 215, 16);
    placeFromBottom(fileCaption, 15, 113, 75, 16);
    placeFromBottom(fileProgress, 95, 115, 305, 12);
    placeFromBottom(fileText, 405, 113, 215, 16);
    placeFromBottom(BannerLogo, 15, 40, 605, 70);
    placeFromBottom(UIVer, 475, 15, 115, 17);
    for (auto *label : {messageText, stageText})
        label->setVisible(m_layoutState == 2);
}

void MainWindow::place(QWidget *view, int x, int fromTop, int width, int height)
{
    view->setGeometry(mirrored({x, fromTop, width, height}, *content));
}

void MainWindow::placeFromBottom(QWidget *view, int x, int y, int width, int height)
{
    place(view, x, m_contentHeight - y - height, width, height);
}

void MainWindow::hiddenPrpgressBar(bool hidden)
{
    setProgressMsg(std::string());
    setTotalProgerss(hidden ? ProgressIndicator::Hidden : 0.0F);
    setFileProgerss(hidden ? ProgressIndicator::Hidden : 0.0F);
}

bool MainWindow::keyUp(int key)
{
    if (key != Qt::Key_Tab || !m_action->EraseDiskCheckBox->isChecked())
        return false;
    m_diskInfo->changeTargetDiskFocus();
    return true;
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *widget = qobject_cast<QWidget *>(watched);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isOurs = widget && widget->window() == this && key->modifiers() == Qt::NoModifier;
    return isOurs && m_diskInfo->SlotBVolume->isVisible() && m_diskInfo->SlotBVolume->isEnabled() &&
           keyUp(key->key());
}

void MainWindow::Help()
{
    m_context.host.workspace().openPage(webAddress(webpath::Help));
}

} // namespace orvana
