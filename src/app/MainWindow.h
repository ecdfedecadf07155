#pragma once

#include "app/AppContext.h"
#include "app/DispatchEntry.h"
#include "app/SetupWriter.h"
#include "app/SharedProgress.h"
#include "app/Sheets.h"
#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "duplicate/job/BrokenOffRun.h"
#include "duplicate/run/DuplicationRun.h"
#include "duplicate/run/RunMonitor.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PendingUpdate.h"
#include "log/LogData.h"
#include "ui_MainWindow.h"

#include <QIcon>
#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace orvana
{

class BaySetupSheet;
class CopyActionViewController;
class DiskInfoViewController;
class FileListViewController;
class NoEnclosureView;
class TBDeviceViewController;

/// The program's window and its main controller. It owns the workers and the panels, and answers every event.
/// A `DuplicationRun` does the run itself; this window is its view. The functions are in several files:
/// start-up and layout in MainWindow.cpp, the choice of enclosure and source in MainWindowSelection.cpp,
/// events in MainWindowMonitoring.cpp, what a run shows and holds off in MainWindowProgress.cpp, the bays,
/// bars and verdicts of a run in MainWindowRunDisplay.cpp, the waits and questions before a run in
/// MainWindowStart.cpp, the start and the end of a run in MainWindowRunControl.cpp, the disks of an erase, of
/// an eject and of a mount in MainWindowDisks.cpp, what to do without an enclosure in MainWindowSetup.cpp,
/// options and job files in MainWindowJobs.cpp, going on with a run in MainWindowGoOn.cpp.
///
/// Main thread only, unless `RunDisplay`, `RunView` or the comment of a function says otherwise.
class MainWindow : public QMainWindow, public Ui::MainWindow, public RunView
{
    Q_OBJECT

public:
    explicit MainWindow(const AppContext &context, QWidget *parent = nullptr);
    ~MainWindow() override;

    // Start-up and layout

    /// Sets the edition: "Orvana", or "Obsidio" for the partner edition. Call it before `startMainWindow`.
    void setUIVersion(const std::string &edition) { m_uiVersion = edition; }

    /// Makes the workers and the panels, scans the devices, and lays the window out in state 0. Called once.
    void startMainWindow();

    /// Lays the window out for a state: 1 with an enclosure, 2 during a run or an erase. Any other value
    /// counts as 0, the picker alone. It becomes wider only for the scroll bar that a low screen needs.
    /// `animate` changes nothing, because windows here change size at once.
    void displayDialog(int state, bool animate);

    /// The present layout state: 0, 1 or 2.
    int layoutState() const { return m_layoutState; }

    /// Height of the window's content in the present state, in points.
    int contentHeight() const { return m_contentHeight; }

    /// Empties the message line. Hides both bars if `hidden` is true, otherwise shows them empty.
    void hiddenPrpgressBar(bool hidden);

    /// Moves the focus to the next name field if the key is Tab and an erase is chosen; tells whether it did.
    bool keyUp(int key);

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

    /// Answers every notification of panels and workers, on the thread that posts it.
    void UserEventChange(const Notification &notification);

    /// Colours each bay by whether the ticked files fit into it. Callable from any thread; the work is done
    /// on the main queue.
    void setTargetDiskInfoColor();

    // Run control

    void Duplicate();
    void StartDuplicate();
    void StopDuplicate();

    /// Callable from any thread, as `RunDisplay` demands. The main thread then shows the new value.
    void setProgressMsg(const std::string &message) override;
    void setFileProgerss(float percent) override;
    void setTotalProgerss(float fraction) override;
    void BackupFinish() override;

    // Setup

    /// Opens the sheet that makes an enclosure of a dock, unless it is open. Disks must not be at work.
    void setUpBays();

    /// The open sheet of `setUpBays`, or null.
    BaySetupSheet *baySetup() const;

    // Options and jobs

    /// True while the options of the next run may be chosen, and jobs opened and saved.
    bool mayUseJobs() const;

    /// Opens the sheet with the options of the next run.
    void chooseOptions();
    const RunSettings &settings() const { return m_settings; }
    void setSettings(const RunSettings &settings);

    /// Asks for a file, and opens or saves a job there.
    void askForJob(bool isToSave);

    /// Take source, ticks, names and options from a job file, or write them there. Warn on failure.
    void openJob(const QString &path);
    void saveJob(const QString &path);

    tl::expected<Job, std::string> jobNow() const;
    ChosenEnclosure chosenNow() const;

    /// True when a run was broken off whose source and disks are here. `goOn` does what is left of it.
    bool mayGoOn() const { return mayUseJobs() && brokenOffRun().has_value(); }
    void goOn();

    // Eject and mount

    void EjectTargetDisks();
    void EjectSourceDisk();

    /// Mounts what is in bays of the chosen enclosure and not mounted. Does nothing unless it may.
    void mountDisks();
    bool mayMountDisks() const;

    /// True while disks are erased or copied to, whatever the flags of the action panel say. This includes
    /// the time until the copy thread of a cancelled run has ended.
    bool isBusy() const;

    /// Cancels a run or an erase, as the Cancel button does, and closes the window without a question.
    void endNow();

    /// Shows the report of the last run. Does nothing before the first run.
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
    NoEnclosureView &noEnclosureView() { return *m_noEnclosure; }

Q_SIGNALS:
    /// The user wants to see the log at this path.
    void logWanted(const QString &path);

    /// The window was closed. The program ends as well.
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // Start-up and layout
    void initWindowItems();
    void initTBDeviceView();
    void initNoEnclosureView();
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
    ORVThunderboltInfo *selectedEnclosure() const;
    void scanAll();
    bool isPlaceholderSelected() const;
    void rememberEnclosure();
    int itemOfDefined(const ChosenEnclosure &chosen) const;
    void showEnclosureAgain(bool wasRefused);
    void keepSource(const std::string &title);
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

    // Functions that `DuplicationRun` calls
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

    // The run as it goes on
    void copyStarts(const CopyJob &job) override;
    void followRun(std::uint64_t run);
    void showStatus(const RunStatus &status);
    void showErase();
    void showVerdicts(const RunSummary &summary);
    void clearRuns();
    void showVerdictsOfPresentDisks();
    void holdOffSleepWhileBusy();
    void tellDesktop(const QString &title, const QString &text);
    std::function<void()> logOpener();
    void askBeforeClosing();

    // Setup
    void showWhatToDoNext();
    void startDemo();

    // Options and jobs
    std::optional<std::string> takeOver(const Job &job);
    std::optional<BrokenOffRun> brokenOffRun() const;
    void offerToGoOn();
    void notEjected(const std::vector<DiskResult> &disks) override;

    // Erase, eject and mount
    void lockChoices(bool locked);
    void eject(tl::expected<EjectPlan, EnclosureRefusal> plan, std::vector<DiskFingerprint> spared,
               void (MainWindow::*ejected)());
    void ejectWhenIdle(std::vector<DiskUtilInfo> disks, std::uint64_t run, void (MainWindow::*ejected)());
    void targetsEjected();
    void sourceEjected();
    void tellEjects();
    void tellMounts();
    void setEjectButtonsEnabled(bool enabled);

    /// Runs the work on the main queue after `delay`, unless the window is destroyed before. Callable from
    /// any thread.
    void later(std::chrono::milliseconds delay, std::function<void()> work);

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
    SourceMemory m_source;  // source of the shown tree
    RunSettings m_settings; // of the next run
    std::string m_offered;  // the broken off run that the user was asked about last

    RunMonitor m_monitor;
    FilePace m_filePace;
    PerBay<std::optional<DiskFingerprint>> m_judged; // the disks with a verdict beside their bay

    SharedProgress m_progress;
    PendingUpdate m_progressUpdate;

    SetupWriter m_setupWriter;
    QPointer<BaySetupSheet> m_baySetup;
    QPointer<QWidget> m_reportWindow;
    std::optional<RunOrder> m_order; // the order of the run that is about to start
    std::unique_ptr<DiskSurvey> m_survey;
    std::optional<Sheets::Id> m_waitingSheet; // set while Start waits for a count or a survey
    std::set<std::string> m_toldRefusals;     // shown since the last click on Start
    std::shared_ptr<void> m_wakefulness;
    bool m_isClosing = false;

    ORVScanDevice m_ScanDevice;
    std::unique_ptr<LogData> m_logData;
    std::unique_ptr<DuplicationRun> m_run; // after the members that it uses
    std::unique_ptr<ThunderBoltMonitor> m_TBMonitor;
    TBDeviceViewController *m_tbDevice = nullptr; // each panel belongs to its host view
    DiskInfoViewController *m_diskInfo = nullptr;
    FileListViewController *m_fileList = nullptr;
    CopyActionViewController *m_action = nullptr;
    NoEnclosureView *m_noEnclosure = nullptr;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    std::vector<NotificationCenter::Subscription> m_subscriptions; // last, so that they end first
};

} // namespace orvana
