#pragma once

#include "discovery/ORVScanDevice.h"
#include "duplicate/line/LineStore.h"
#include "duplicate/run/LineRun.h"
#include "duplicate/run/LineWork.h"
#include "platform/DiskHealth.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

enum class LineBayState {
    Disarmed,     ///< nothing is ever done in this bay
    Waiting,      ///< for a disk
    Looking,      ///< at a disk that came
    NotTaken,     ///< the disk is none for the line
    Asking,       ///< a person has to say that the disk may be written
    CountingDown, ///< anybody can stop it
    Erasing,
    Copying,
    Verifying,
    Ejecting,
    Passed,
    NotProven,
    Failed,
};

/// "waiting", "counting down"; in English, for the terminal.
const char *nameOf(LineBayState state);

/// Returns the sign of the state with a blank behind it, as UTF-8: a tick, a cross, "?" or "!"; empty for
/// none. It tells good from bad without a colour.
const char *signOf(LineBayState state);

/// True when the disk in the bay has come to its end on the line.
bool isEndOfDisk(LineBayState state);

/// A bay of a line as it is shown.
struct LineBay
{
    LineBayState state = LineBayState::Disarmed;
    std::string health;                 ///< what there is to be warned of; valid UTF-8
    std::string text;                   ///< the question, or the reason of the state; valid UTF-8
    std::string disk;                   ///< model and serial number; valid UTF-8
    int countdown = 0;                  ///< seconds; 0 while it waits for bays that are to start with it
    std::optional<std::int64_t> number; ///< of the disk on the line, once it has one
    double fraction = 0;                ///< of its work, 0 to 1
    std::optional<double> secondsLeft;

    bool operator==(const LineBay &) const = default;
};

/// The words by which a person lets a line erase disks that hold something without a question. They are typed
/// as they stand in every language: who types them knows what they mean.
inline constexpr const char *EraseConsentWords = "erase whatever comes";

/// Shows a line. All functions are called on the main thread.
class LineView
{
public:
    virtual ~LineView() = default;

    /// Something changed. Called at least once a second while the line is armed or at work.
    virtual void lineChanged() = 0;

    /// A disk has come to its end, and the ledger has it.
    virtual void lineDiskEnded(const LineEntry &entry) = 0;

    /// No new disk is taken any more. Disks in work go on to their end.
    virtual void lineDisarmed(const std::string &reason) = 0;
};

/// Copies the same selection onto disk after disk, as they come into the bays that a person armed.
///
/// A disk is looked at, asked about when it holds anything, counted down for all to see, erased, written,
/// verified, noted in the ledger and ejected. Disks that are ready at the same time share a run, and with it
/// the reading of the source. Main thread only; the object looks at the machine once a second.
class ProductionLine
{
public:
    enum class Consent {
        AskForContent,      ///< a disk that holds anything asks first
        EraseWhateverComes, ///< given in words by a person, for this time of being armed
    };

    struct Surroundings
    {
        platform::Host &host;
        MainQueue &queue;
        const Clock &clock;
        std::string logFolder;
        std::string stateFolder;
        std::chrono::milliseconds patience{0};
    };

    static constexpr int Countdown = 10; ///< seconds

    /// Seconds for which a disk whose countdown is over waits for other bays that are about to be ready.
    static constexpr int LongestWait = 30;

    /// The store must be one that this program runs, and the work its work. All the others outlive the line.
    ProductionLine(const Surroundings &surroundings, LineStore store, LineWork work, LineView &view);
    ~ProductionLine();
    ProductionLine(const ProductionLine &) = delete;
    ProductionLine &operator=(const ProductionLine &) = delete;

    /// Arms bays of the work's enclosure, until `disarm`, the end of the line, or anything that goes wrong.
    /// A disk that is in a bay now always asks. Fails with the reason when the enclosure may not be used.
    tl::expected<void, Refusal> arm(const std::vector<Bay> &bays, Consent consent);
    void disarm(const std::string &reason);
    bool isArmed() const { return m_isArmed; }

    /// Agrees that the disk for which the bay asks is written. Its countdown begins then.
    void agree(Bay bay);

    /// Stops all countdowns. The disks ask from then on. Returns false when there was none.
    bool stopCountdowns();

    /// No new disk is taken until `resume`. Countdowns stop, disks in work go on.
    void pause();
    void resume();

    /// Ends the line for good. Disks in work go on.
    void end();

    /// Cancels the runs that are on. Their disks fail.
    void cancelRuns();

    /// Makes the disk utility stop before its next disk, even while it holds up the main thread. `cancelRuns`
    /// is to follow. Callable from any thread.
    void requestStop() { *m_isStopWanted = true; }

    bool isAtWork() const { return !m_runs.empty(); }

    /// True when a disk does not answer. Then the program should leave with `std::quick_exit`.
    bool hasHangingRun() const { return !m_hanging.empty(); }

    const LineBay &bay(Bay bay) const { return m_slots[bay].shown; }
    const LineStore &store() const { return m_store; }
    const LineWork &work() const { return m_work; }

private:
    struct Slot;
    using DiskPtr = std::shared_ptr<ORVHddInfo>;

    ScannedDevices look();
    void schedule();
    void tick();
    void takeWishes();
    std::optional<std::string> reasonToDisarm(const ScannedDevices &devices) const;
    void step(Bay bay, const ScannedDevices &devices);
    void begin(Bay bay, const DiskPtr &disk);
    void decide(Bay bay, const DiskPtr &disk, const ScannedDevices &devices);
    std::optional<std::string> reasonNotToTake(Bay bay, const ORVHddInfo &disk,
                                               const ScannedDevices &devices) const;
    std::string questionFor(Bay bay, const ORVHddInfo &disk, const DiskContent &content) const;
    bool isSerialInWork(Bay bay, const std::string &serial) const;
    std::int64_t missing() const;
    tl::expected<void, Refusal> lockBays(const std::vector<Bay> &bays);
    void releaseLocks();
    void remember(Bay bay, const char *reason);
    void startWhatIsReady();
    void start(std::vector<Bay> bays);
    bool isStillBlank(Bay bay, const DiskPtr &disk) const;
    tl::expected<RunOrder, std::string> orderFor(const std::vector<Bay> &bays,
                                                 const ScannedDevices &devices) const;
    bool note(const std::vector<Bay> &bays, const RunOrder &order);
    void showRun(LineRun &run);
    void ended(LineRun &run);
    void noteEnd(const LineRun::Disk &disk, const LineRun &run, const RunSummary &summary);
    platform::DiskHealth healthOf(const DiskFingerprint &disk) const;
    void eject(const LineRun::Disk &disk);
    void show(Bay bay, LineBayState state, const std::string &text = {});

    const Surroundings m_surroundings;
    LineStore m_store;
    LineWork m_work;
    LineView &m_view;
    ORVScanDevice m_scanner;
    UserHome m_user;
    bool m_isArmed = false;
    bool m_isScheduled = false;
    Consent m_consent = Consent::AskForContent;

    struct Slot
    {
        bool isArmed = false;
        LineBay shown;
        std::optional<DiskFingerprint> disk; ///< that `shown` is about
        std::string question;                ///< that was asked about it, or would have been
        bool wasBlank = false;
        platform::DiskHealth health;        ///< when the disk came
        std::shared_ptr<DiskSurvey> survey; ///< while it is looked at
        bool isAgreed = false;              ///< a person has said that the disk may be written
        int waited = 0;                     ///< seconds since its countdown was over
        bool isInRun = false;
    };

    /// A disk that always asks while the line is armed, and why.
    struct Remembered
    {
        DiskFingerprint disk;
        const char *reason;
    };

    PerBay<Slot> m_slots;
    std::vector<Remembered> m_remembered;
    PerBay<std::unique_ptr<platform::FolderLock>> m_locks; ///< on the bays, against other lines
    std::shared_ptr<std::atomic<bool>> m_isStopWanted = std::make_shared<std::atomic<bool>>(false);
    std::chrono::steady_clock::time_point m_nextLook;
    bool m_isLate = false; ///< the main thread was held up, so keys that were typed come first
    std::vector<std::unique_ptr<LineRun>> m_runs;
    std::vector<std::unique_ptr<LineRun>> m_hanging;
    const std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace orvana
