#pragma once

#include "discovery/ORVScanDevice.h"
#include "duplicate/report/RunReport.h"
#include "duplicate/run/DuplicationRun.h"
#include "foundation/NotificationNames.h"
#include "foundation/PathJson.h"
#include "foundation/SystemLog.h"
#include "log/LogData.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "support/ManualMainQueue.h"
#include "support/SmallMachine.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"
#include "support/WatchedHost.h"

#include <gtest/gtest.h>
#include <mutex>

namespace orvana
{

using Lines = std::vector<std::string>;

/// The simulated machine with switches for faults of its volumes.
class FaultyHost final : public test::WatchedHost
{
public:
    explicit FaultyHost(platform::Host &host) : WatchedHost(host), m_faulty(host.volumeFiles()) {}

    platform::VolumeFiles &volumeFiles() override { return m_faulty; }
    platform::VolumeFaults &faults(const std::string &root) { return m_faulty.volume(root); }

private:
    platform::FaultyVolumeFiles m_faulty;
};

/// A run on the simulated machine: "Master" in bay A to "COPY1", "COPY2" and the blank disk in D. The fixture
/// records everything that the run reports. A test may act at each of these moments.
class DuplicationRunTest : public testing::Test, public RunView
{
protected:
    DuplicationRunTest() : m_machine(Json::parse(test::SmallMachine)) {}

    ~DuplicationRunTest() override { m_run.reset(); }

    /// Makes the machine of `m_machine`, its devices and the run.
    void start();
    void makeRun();
    RunChoice choice(bool erase) const;
    RunOrder order(bool erase);

    /// Lets time pass until the condition holds, for at most half a minute.
    void until(const std::function<bool()> &condition);
    void untilEnded();

    std::string volume(const std::string &name) const
    {
        return m_tree.path("machine.json.volumes/Volumes/" + name);
    }

    /// The report that was written, empty without one.
    Json report() const;

    bool told(const std::string &line)
    {
        const std::lock_guard lock(m_mutex);
        return std::find(m_told.begin(), m_told.end(), line) != m_told.end();
    }

    Lines everythingTold()
    {
        const std::lock_guard lock(m_mutex);
        return m_told;
    }

    /// Calls `act` once, at the moment of that name.
    void at(const std::string &moment, std::function<void()> act)
    {
        m_moment = moment;
        m_act = std::move(act);
    }

    ScannedDevices devices() const override { return scannedDevices(*m_scanner); }

    void lookAtAllDevices() override;
    void lookAtEnclosures() override
    {
        tell("look at enclosures");
        m_scanner->scanEnclosuresAnew();
    }

    bool hasSomethingToCopy() override
    {
        tell("something to copy?");
        return m_hasSomethingToCopy;
    }

    void disksLeftOut(const std::vector<DiskRefusal> &refusals) override;
    std::optional<EnclosureRefusal> refusalOfCopy(const ChosenEnclosure &) override { return m_refusal; }

    void copyStarts(const CopyJob &) override { tell("copy starts"); }
    void problem(const RunProblem &problem) override { tell("problem: " + problem.reason); }
    void refused(const RunRefusal &refusal) override { tell("refused: " + refusalText(refusal)); }

    void ended(const RunSummary &summary) override;

    void setProgressMsg(const std::string &message) override { tell("message: " + message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float fraction) override
    {
        if (fraction == 1.0F)
            tell("total 1");
    }
    void BackupFinish() override
    {
        tell("copy thread ends");
        m_run->copyEnded();
    }

    void tell(const std::string &line);
    std::string withoutRoot(std::string text) const;

    test::TemporaryTree m_tree;
    Json m_machine;
    test::ManualMainQueue m_queue;
    test::StoppedClock m_clock;
    NotificationCenter m_center;
    SystemLogCapture m_silence{[](const std::string &) {}};
    std::unique_ptr<platform::Host> m_simulator;
    std::unique_ptr<FaultyHost> m_host;
    std::unique_ptr<ORVScanDevice> m_scanner;
    std::unique_ptr<LogData> m_log;
    std::unique_ptr<DuplicationRun> m_run;
    std::vector<NotificationCenter::Subscription> m_subscriptions;

    std::mutex m_mutex;
    Lines m_told;
    std::string m_moment;
    std::function<void()> m_act;
    Lines m_erasedNames;
    bool m_hasSomethingToCopy = true;
    std::optional<EnclosureRefusal> m_refusal;
    int m_ends = 0;
    RunSummary m_summary;
};

} // namespace orvana
