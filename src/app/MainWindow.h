#pragma once

#include "app/AppContext.h"
#include "app/Sheets.h"
#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "duplicate/run/DuplicationRun.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PendingUpdate.h"
#include "log/LogData.h"
#include "ui_MainWindow.h"

#include <QIcon>
#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

namespace orvana
{

class CopyActionViewController;
class DiskInfoViewController;
class FileListViewController;
class TBDeviceViewController;

/// The program's window and its main controller: it owns the workers and the panels, and turns every event
/// into action. The run itself is a `DuplicationRun`, of which this is a view. The functions stand in several
/// files: start-up and layout in MainWindow.cpp, the choice of enclosure and source in
/// MainWindowSelection.cpp, events in MainWindowMonitoring.cpp, what a run shows and holds off in
/// MainWindowProgress.cpp, what comes before a run in MainWindowStart.cpp, its start and its end in
/// MainWindowRunControl.cpp, the disks of an erase and eject in MainWindowDisks.cpp.
///
/// Main thread only, except what `RunDisplay`, `RunView` and `UserEventChange` say.
class MainWindow : public QMainWindow, public Ui::MainWindow, public RunView
{
    Q_OBJECT

public:
    explicit MainWindow(const AppContext &context, QWidget *parent = nullptr);
    ~MainWindow() override;

    // Start-up and layout

    /// "Orvana", or "Obsidio" for the partner edition. Set before `startMainWindow`.
    void setUIVersion(const std::string &edition) { m_uiVersion = edition; }

    /// Makes workers and panels, scans, and shows the window in state 0. Called once.
    void startMainWindow();

    /// Lays the window out: 1 with an enclosure, 2 during a run or an erase, any other value as 0, the picker
    /// alone. The window keeps its place from left and its width; windows here change size at once, so
    /// `animate` changes nothing.
    void displayDialog(int state, bool animate);

    /// The state shown: 0, 1 or 2.
    int layoutState() const { return m_layoutState; }

    /// Height of the window's content as the state has it, in points.
    int contentHeight() const { return m_contentHeight; }

    /// Empties the message line and hides the bars, or shows empty ones.
    void hiddenPrpgressBar(bool hidden);

    /// The Tab key moves among the names of an erase. True when the key was used.
    bool keyUp(int key);

    /// Opens the help page.
    void Help();

    // Selection

    void rescanDevice();
    void tbDevSelectionChange();
    void SourceDiskSelectionChange();
    void setSourceDiskInfo();
    void setTargetDiskInfo();
    bool isTBDevDiskArrayVolumes(const std::string &name) const;

    // Monitoring

    void monitorVolumesDevice();
    void monitorEvent();
    void devicevolumesChanged(const Notification &notification);

    /// Answers every notification of the program, on the thread that posts it.
    void UserEventChange(const Notification &notification);

    /// Colours the bays by whether the ticked files fit; on the main queue, whoever calls.
    void setTargetDiskInfoColor();

    // Run control

    void Duplicate();
    void StartDuplicate();
    void StopDuplicate();

    /// Callable from any thread, as `RunDisplay` is; what is shown follows on the main thread.
    void setProgressMsg(const std::string &message) override;
    void setFileProgerss(float percent) override;
    void setTotalProgerss(float fraction) override;
    void BackupFinish() override;

    // Eject

    void EjectTargetDisks();
    void EjectSourceDisk();

    /// A run or an erase is going on, whatever flags say; also until a cancelled run has ended.
    bool isBusy() const;

    /// Cancels what goes on, as the button does, and closes the window without a question.
    void endNow();

    /// Shows what the last run did; nothing before the first one.
    void showLastReport();
    bool hasReport() const { return m_run->hasStarted(); }

    Sheets &sheets() { return m_sheets; }

    ORVScanDevice &ScanDevice() { return m_ScanDevice; }
    FileCopy &fileCopy() { return m_run->fileCopy(); }
    DiskUtil &diskTool() { return m_run->diskTool(); }
    LogData &logData() { return *m_logData; }
    TBDeviceViewController &myTBDeviceViewController() { return *m_tbDevice; }
    DiskInfoViewController &myDiskInfoViewController() { return *m_diskInfo; }
    FileListViewController &myFileListViewController() { return *m_fileList; }
    CopyActionViewController &myCopyActionViewController() { return *m_action; }

Q_SIGNALS:
    /// The user wants to see the log at this path.
    void logWanted(const QString &path);

    /// The window was closed, and with it the program ends.
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // Start-up and layout
    void initWindowItems();
    void initTBDeviceView();
    void initDiskInfoView();
    void initFileListView();
    void initCopyActionView();
    void initProgressBar();
    void loadIcons();
    void fitFonts();
    void placeViews();
    void place(QWidget *view, int x, int fromTop, int width, int height);
    void placeFromBottom(QWidget *view, int x, int y, int width, int height);

    // Selection
    UserHome user() const;
    ChosenEnclosure chosenNow() const;
    ORVThunderboltInfo *selectedEnclosure() const;
    void scanAll();
    bool isPlaceholderSelected() const;
    void rememberEnclosure();
    void showSource(const PathObject &root);
    void fillSourcePopup(const SourcePlan &plan);
    void disableSlots(bool disabled);
    void refuseEnclosure();
    void setRow(const std::string &name, const DiskRow &row);
    QIcon iconOf(const SourceCandidate &candidate);

    // Monitoring
    void makeDispatchTable();
    void rescanSoon();
    void eraseOptionChanged();
    void colourBays();

    // The run, as `DuplicationRun` asks and tells
    ScannedDevices devices() const override { return scannedDevices(m_ScanDevice); }
    void lookAtAllDevices() override;
    void lookAtEnclosures() override;
    bool hasSomethingToCopy() override;
    void disksLeftOut(const std::vector<DiskRefusal> &refusals) override;
    void refused(const RunRefusal &refusal) override;
    void ended(const RunSummary &summary) override;

    // Run control
    bool isStartRefused();
    void warn(const std::string &text);
    RunChoice choiceNow() const;
    std::vector<std::string> selectionNow() const;

    // From the click on Start to the run
    void afterCounting(const ChosenEnclosure &asked);
    void checkSpace(const ChosenEnclosure &asked);
    void startInOrder(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed);
    bool decideOrderNow();
    void afterSurvey(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed);
    void askForErase(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed);
    bool isUnchanged(const ChosenEnclosure &asked);
    void waitWith(const QString &text);
    void endWaiting();
    void copied(const RunSummary &summary);
    void showCancelled();
    void enclosureLost();
    void tellOfNoCopy(const RunSummary &summary);
    void showReportOfDisks();
    void restoreIdleControls();
    void showProgress();
    void requestProgress();
    void holdOffSleepWhileBusy();
    void tellDesktop(const QString &title, const QString &text);
    std::function<void()> logOpener();
    void askBeforeClosing();

    // Erase and eject
    void lockChoices(bool locked);
    void eject(tl::expected<EjectPlan, EnclosureRefusal> plan, std::vector<DiskFingerprint> spared,
               void (MainWindow::*ejected)());
    void ejectWhenIdle(std::vector<DiskUtilInfo> disks, std::uint64_t run, void (MainWindow::*ejected)());
    void targetsEjected();
    void sourceEjected();
    void tellEjects();
    void setEjectButtonsEnabled(bool enabled);

    /// Runs the work on the main queue, unless the window is gone by then. Callable from any thread.
    void later(std::chrono::milliseconds delay, std::function<void()> work);

    struct DispatchEntry
    {
        std::vector<std::string> names;
        std::function<void(const Notification &)> action;
    };

    struct ShownProgress
    {
        std::string message;
        float file = -1.0F;
        float total = -1.0F;
    };

    AppContext m_context;
    std::string m_uiVersion = "Orvana";
    Sheets m_sheets{*this};
    QIcon m_SysDiskIcon;
    QIcon m_IntDiskIcon;
    QIcon m_ExtDiskIcon;
    QIcon m_VolumeIcon;

    std::vector<DispatchEntry> m_dispatchTable;
    bool m_maySourceBeEjected = true;
    int m_layoutState = 0;
    int m_contentHeight = 0;
    ChosenEnclosure m_chosen;
    ShownDisks m_shown;
    SourceMemory m_source; // of the tree that is shown

    std::mutex m_progressMutex;
    ShownProgress m_progress;
    PendingUpdate m_progressUpdate;

    QPointer<QWidget> m_reportWindow;
    std::optional<RunOrder> m_order; // of the run that is about to be started
    std::unique_ptr<DiskSurvey> m_survey;
    std::optional<Sheets::Id> m_waitingSheet; // while Start waits for a count or a survey
    std::set<std::string> m_toldRefusals;     // of the present run
    std::shared_ptr<void> m_wakefulness;
    bool m_isClosing = false;

    ORVScanDevice m_ScanDevice;
    std::unique_ptr<LogData> m_logData;
    std::unique_ptr<DuplicationRun> m_run; // after what it works with
    std::unique_ptr<ThunderBoltMonitor> m_TBMonitor;
    TBDeviceViewController *m_tbDevice = nullptr; // panels belong to their host views
    DiskInfoViewController *m_diskInfo = nullptr;
    FileListViewController *m_fileList = nullptr;
    CopyActionViewController *m_action = nullptr;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    std::vector<NotificationCenter::Subscription> m_subscriptions; // last: they end first
};

} // namespace orvana
