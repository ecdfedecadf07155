#include "cli/DiskCommands.h"

#include "cli/DeviceScan.h"
#include "cli/EraseConsent.h"
#include "cli/Terminal.h"
#include "cli/TerminalRun.h"
#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/run/JournalChoice.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/PrivateFolder.h"

#include <algorithm>
#include <atomic>

namespace orvana::cli
{

namespace
{

/// The common parts of both commands: the devices, the chosen bays, and the disk tool with its log.
class DiskCommand final : public RunDisplay
{
public:
    DiskCommand(platform::Host &host, PlainMainQueue &queue, Terminal &terminal, const DiskOptions &options)
        : m_host(host), m_terminal(terminal), m_options(options), m_scan(host, queue),
          m_log(logFolderOf(host, options.logFolder), m_clock), m_relay(m_log, *this),
          m_messages(m_center.subscribe(notification::DiskMessage,
                                        [this](const Notification &n) { m_relay.relay(n); })),
          m_tool(host.launcher(), m_center), m_cancelRequest([this] { m_isCancelled = true; })
    {
        m_tool.setGoesOn([this] { return !m_isCancelled; });
    }

    ExitStatus erase();
    ExitStatus eject();
    ExitStatus mount();

    void setProgressMsg(const std::string &message) override { m_terminal.print(message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override {}

private:
    using Check = std::optional<Refusal>;

    Check chooseBays();
    Check checkBays(const ORVThunderboltInfo &enclosure) const;
    tl::expected<ErasePlan, Refusal> presentErase();
    tl::expected<EjectPlan, Refusal> presentEject();
    Check ask(const std::string &question, const std::vector<std::string> &lines);
    ExitStatus refuse(const Refusal &refusal);
    ExitStatus statusOfResults(const char *failed) const;

    platform::Host &m_host;
    Terminal &m_terminal;
    const DiskOptions &m_options;
    DeviceScan m_scan;
    SystemClock m_clock;
    LogData m_log;
    RunRelay m_relay;
    NotificationCenter m_center;
    NotificationCenter::Subscription m_messages;
    DiskUtil m_tool;
    RunChoice m_choice;
    std::vector<Bay> m_bays;
    PerBay<std::optional<std::string>> m_typed;
    PerBay<std::string> m_present;
    std::atomic<bool> m_isCancelled{false};
    platform::posix::CancelRequest m_cancelRequest; // last member, so that its thread ends first
};

DiskCommand::Check DiskCommand::chooseBays()
{
    auto bays = parseBays(m_options.bays);
    if (!bays)
        return bays.error();
    m_bays = bays->empty() ? std::vector{Bay::B, Bay::C, Bay::D} : *bays;
    auto typed = parseNames(m_options.names);
    if (!typed)
        return typed.error();
    m_typed = *typed;
    const auto chosen = m_scan.choose(m_options.enclosure);
    if (!chosen)
        return chosen.error();
    m_choice.enclosure = *chosen;
    m_choice.slotAisSource = std::find(m_bays.begin(), m_bays.end(), Bay::A) == m_bays.end();
    const auto enclosure = chosenEnclosure(m_scan.devices(), m_choice.enclosure);
    if (!enclosure)
        return refusalOf(enclosure.error());
    m_present = m_choice.names = volumeNamesOf(**enclosure, m_scan.user());
    for (const auto bay : AllBays)
        m_choice.names[bay] = m_typed[bay].value_or(m_choice.names[bay]);
    m_choice.shown = shownDisks(**enclosure);
    return checkBays(**enclosure);
}

// A bay that the user named must hold a disk.
DiskCommand::Check DiskCommand::checkBays(const ORVThunderboltInfo &enclosure) const
{
    const auto &disks = enclosure.hddArray();
    for (const auto bay : m_bays) {
        const bool isThere = std::any_of(disks.begin(), disks.end(),
                                         [&](const auto &disk) { return bayOfDisk(*disk) == bay; });
        if (!isThere && !m_options.bays.empty())
            return Refusal{NotThere, slotNameOf(bay) + " holds no disk"};
    }
    return std::nullopt;
}

// Plans the erase for the disks that are there at this moment.
tl::expected<ErasePlan, Refusal> DiskCommand::presentErase()
{
    const auto devices = m_scan.devices();
    if (const auto enclosure = usableEnclosure(devices, m_choice.enclosure); !enclosure)
        return tl::unexpected(enclosure.error());
    auto plan = planRequestedErase({devices, m_choice, m_scan.user(), m_bays}, m_typed);
    if (plan && !plan->refusals.empty())
        return tl::unexpected(Refusal{Refused, textOf(plan->refusals)});
    if (plan && plan->disks.empty())
        return tl::unexpected(Refusal{NotThere, "there is no disk to erase"});
    return plan;
}

// Plans the eject for the chosen enclosure only. All enclosures count as other devices here, so that the plan
// still checks their records.
tl::expected<EjectPlan, Refusal> DiskCommand::presentEject()
{
    auto devices = m_scan.devices();
    const auto enclosure = chosenEnclosure(devices, m_choice.enclosure);
    if (!enclosure)
        return tl::unexpected(refusalOf(enclosure.error()));
    auto wanted = std::make_shared<ORVThunderboltInfo>(**enclosure);
    std::erase_if(wanted->hddArray(), [&](const auto &disk) {
        const auto bay = bayOfDisk(*disk);
        return !bay || std::find(m_bays.begin(), m_bays.end(), *bay) == m_bays.end();
    });
    devices.otherTBArray.insert(devices.otherTBArray.end(), devices.tbArray.begin(), devices.tbArray.end());
    devices.tbArray = {wanted};
    auto choice = m_choice;
    choice.enclosure.pickerIndex = 1;
    auto plan = planTargetEject(devices, choice, m_scan.user());
    if (!plan)
        return tl::unexpected(refusalOf(plan.error()));
    if (!plan->refusals.empty())
        return tl::unexpected(Refusal{Refused, textOf(plan->refusals)});
    if (plan->disks.empty())
        return tl::unexpected(Refusal{NotThere, "there is no disk to eject"});
    return std::move(*plan);
}

DiskCommand::Check DiskCommand::ask(const std::string &question, const std::vector<std::string> &lines)
{
    return askFor(question, lines, m_options.yes ? Consent::Given : Consent::Ask, m_terminal,
                  [this] { return m_isCancelled.load(); });
}

ExitStatus DiskCommand::refuse(const Refusal &refusal)
{
    m_terminal.printError("plurimoctl: " + refusal.reason);
    return refusal.status;
}

ExitStatus DiskCommand::statusOfResults(const char *failed) const
{
    auto status = AllDone;
    for (const auto &result : m_tool.results()) {
        if (result.succeeded)
            continue;
        status = SomethingFailed;
        m_terminal.printError(displayPath(result.disk.diskPath) + " (" + displayPath(result.disk.diskVolume) +
                              "): " + failed + ": " + result.reason);
    }
    return m_isCancelled ? Cancelled : status;
}

ExitStatus DiskCommand::erase()
{
    if (const auto refusal = chooseBays())
        return refuse(*refusal);
    const auto plan = presentErase();
    if (!plan)
        return refuse(plan.error());
    auto lines =
        m_options.yes ? std::vector<std::string>() : eraseLines(m_host, m_scan.devices(), *plan, m_present);
    lines.insert(lines.begin(), "These disks will lose everything they hold:");
    if (const auto refusal = ask("Erase them?", lines))
        return refuse(*refusal);
    m_scan.scan();
    const auto present = presentErase();
    if (!present || present->disks != plan->disks)
        return refuse(changedMeanwhile());
    m_log.initLogFile();
    std::vector<DiskUtilInfo> disks;
    disks.reserve(plan->disks.size());
    for (const auto &disk : plan->disks)
        disks.push_back(disk.info);
    endJournalsOf(m_host, disks, platform::stateFolder(m_host.account().homeFolder()));
    m_tool.setDiskArray(std::move(disks));
    m_tool.startEraseDiskThread();
    return statusOfResults("could not be erased");
}

ExitStatus DiskCommand::eject()
{
    if (const auto refusal = chooseBays())
        return refuse(*refusal);
    const auto plan = presentEject();
    if (!plan)
        return refuse(plan.error());
    std::vector<std::string> lines;
    lines.reserve(plan->disks.size());
    for (const auto &disk : plan->disks)
        lines.push_back("  " + displayPath(disk.diskModule) + ", serial number " + displayPath(disk.diskSN) +
                        ", " + displayPath(disk.diskVolume));
    if (const auto refusal = ask("Eject?", lines))
        return refuse(*refusal);
    m_scan.scan();
    const auto present = presentEject();
    if (!present || present->disks != plan->disks)
        return refuse(changedMeanwhile());
    m_log.initLogFile();
    m_tool.setDiskArray(plan->disks);
    m_tool.EjectDisks();
    return statusOfResults("could not be ejected");
}

ExitStatus DiskCommand::mount()
{
    if (const auto refusal = chooseBays())
        return refuse(*refusal);
    const auto devices = m_scan.devices();
    const auto enclosure = chosenEnclosure(devices, m_choice.enclosure);
    if (!enclosure)
        return refuse(refusalOf(enclosure.error()));
    auto wanted = **enclosure;
    std::erase_if(wanted.hddArray(), [&](const auto &disk) {
        const auto bay = bayOfDisk(*disk);
        return !m_options.bays.empty() &&
               (!bay || std::find(m_bays.begin(), m_bays.end(), *bay) == m_bays.end());
    });
    auto disks = planMount(wanted);
    if (disks.empty()) {
        m_terminal.print("No disk in a bay has a volume that is not mounted.");
        return AllDone;
    }
    m_log.initLogFile();
    m_tool.setDiskArray(std::move(disks));
    m_tool.MountDisks();
    return statusOfResults("could not be mounted");
}

} // namespace

ExitStatus runErase(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options)
{
    return DiskCommand(host, queue, terminal, options).erase();
}

ExitStatus runMount(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options)
{
    return DiskCommand(host, queue, terminal, options).mount();
}

ExitStatus runEject(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options)
{
    return DiskCommand(host, queue, terminal, options).eject();
}

} // namespace orvana::cli
