#include "cli/DuplicateCommand.h"

#include "cli/EraseConsent.h"
#include "cli/SelectionCensus.h"
#include "cli/Terminal.h"
#include "cli/TerminalRun.h"
#include "foundation/DisplayPath.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana::cli
{

namespace
{

constexpr const char *TooSmall = "There is insufficient free disk space on the destination drive(s)";

// True if at least one destination bay has room. Without room an erase would be for nothing.
bool isRoomLeft(const RunChoice &choice)
{
    return std::any_of(AllBays.begin(), AllBays.end(), [&](Bay bay) {
        return !choice.isSourceBay(bay) && choice.names[bay] != NoVolume && !choice.isOverSize[bay];
    });
}

/// One call of the command, from its options to the end of the run.
class DuplicateCommand
{
public:
    DuplicateCommand(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                     const DuplicateOptions &options)
        : m_host(host), m_terminal(terminal), m_options(options), m_scan(host, queue),
          m_run(host, terminal, {.logFolder = options.logFolder, .json = options.json})
    {
    }

    ExitStatus run();

private:
    using Check = std::optional<Refusal>;
    using EnclosurePtr = std::shared_ptr<ORVThunderboltInfo>;

    Check prepare();
    void sayWhatIsLeftOut() const;
    Check askForSpace();
    Check askForErase();
    Check decideDestinations();
    Check checkOnceMore();
    tl::expected<EnclosurePtr, Refusal> enclosure() const
    {
        return usableEnclosure(m_scan.devices(), m_plan.choice.enclosure);
    }
    tl::expected<ErasePlan, Refusal> presentErase() const;
    Check ask(const std::string &question, const std::vector<std::string> &lines);
    RunOrder newOrder() const;

    platform::Host &m_host;
    Terminal &m_terminal;
    const DuplicateOptions &m_options;
    DeviceScan m_scan;
    TerminalRun m_run;
    Duplication m_plan;
    CopyCensus m_census;
    RunOrder m_order;
};

ExitStatus DuplicateCommand::run()
{
    if (const auto refusal = prepare()) {
        m_terminal.printError("plurimoctl: " + refusal->reason);
        return refusal->status;
    }
    return m_run.run(std::move(m_order), &m_scan);
}

// Makes all checks and asks all questions before any disk is touched.
DuplicateCommand::Check DuplicateCommand::prepare()
{
    auto plan = planDuplication(m_host, m_scan, m_options);
    if (!plan)
        return plan.error();
    m_plan = std::move(*plan);
    // Refuse a bad name now: the count takes time.
    if (const auto erase = presentErase(); m_options.erase && !erase)
        return erase.error();
    m_census = countSelection(m_host, m_plan.job.SrcFileArray, [this] { return m_run.isCancelled(); });
    if (m_run.isCancelled())
        return Refusal{Cancelled, "cancelled while counting; nothing was touched"};
    m_scan.scan();
    const auto present = enclosure();
    if (!present)
        return present.error();
    markOverSize(m_plan.choice, **present, m_census.bytes);
    sayWhatIsLeftOut();
    if (const auto refusal = askForSpace())
        return refusal;
    if (const auto refusal = m_options.erase ? askForErase() : decideDestinations())
        return refusal;
    return checkOnceMore();
}

// The copy will use some of these destinations, and no others.
DuplicateCommand::Check DuplicateCommand::decideDestinations()
{
    auto plan = planDestinations(m_scan.devices(), m_plan.choice, m_scan.user());
    if (!plan)
        return refusalOf(plan.error());
    refuseWhatIsNotMounted(m_host, *plan);
    refuseWhatIsInUse(m_host, *plan);
    for (const auto &refusal : plan->refusals) {
        if (refusal.reason == RefusalReason::ReadOnly || refusal.reason == RefusalReason::InUse)
            m_terminal.printError("plurimoctl: " + refusalText(refusal));
    }
    m_order = newOrder();
    m_order.destinations = std::move(*plan);
    return std::nullopt;
}

RunOrder DuplicateCommand::newOrder() const
{
    return {.selection = m_plan.job.SrcFileArray,
            .totalFiles = m_census.files,
            .totalBytes = m_census.bytes,
            .choice = m_plan.choice,
            .source = m_plan.source,
            .erase = {},
            .destinations = {}};
}

tl::expected<ErasePlan, Refusal> DuplicateCommand::presentErase() const
{
    const auto devices = m_scan.devices();
    return planRequestedErase({devices, m_plan.choice, m_scan.user(), {AllBays.begin(), AllBays.end()}},
                              m_plan.typed);
}

DuplicateCommand::Check DuplicateCommand::ask(const std::string &question,
                                              const std::vector<std::string> &lines)
{
    return askFor(question, lines, m_options.yes ? Consent::Given : Consent::Ask, m_terminal,
                  [this] { return m_run.isCancelled(); });
}

void DuplicateCommand::sayWhatIsLeftOut() const
{
    std::vector<DiskRefusal> refusals;
    if (m_options.erase) {
        if (const auto plan = presentErase())
            refusals = plan->refusals;
    } else if (const auto plan = planDestinations(m_scan.devices(), m_plan.choice, m_scan.user())) {
        refusals = plan->refusals;
    }
    for (const auto &refusal : refusals)
        m_terminal.printError("plurimoctl: " + refusalText(refusal));
}

DuplicateCommand::Check DuplicateCommand::askForSpace()
{
    if (isOverSizeInAll(m_plan.choice) || (isOverSizeInSome(m_plan.choice) && !isRoomLeft(m_plan.choice)))
        return Refusal{Refused, std::string(TooSmall) + "."};
    if (!isOverSizeInSome(m_plan.choice))
        return std::nullopt;
    return ask("Continue duplicating to the remaining drive(s)?",
               {TooSmall + displayPath(overSizeText(m_plan.choice))});
}

DuplicateCommand::Check DuplicateCommand::askForErase()
{
    auto plan = presentErase();
    if (!plan)
        return plan.error();
    m_order = newOrder();
    m_order.erase = std::move(*plan);
    if (m_order.erase.disks.empty() || m_options.yes)
        return std::nullopt;
    auto lines = eraseLines(m_host, m_scan.devices(), m_order.erase, m_plan.present);
    lines.insert(lines.begin(), "These disks will lose everything they hold:");
    return ask("Erase them?", lines);
}

// Time has passed since the answers. The run does only what the user has agreed to.
DuplicateCommand::Check DuplicateCommand::checkOnceMore()
{
    m_scan.scan();
    if (const auto present = enclosure(); !present)
        return present.error();
    if (!isStillThere(m_host, m_scan.devices(), m_plan.source))
        return sourceGone(m_plan.source, SoFar::Untouched);
    if (!m_options.erase)
        return std::nullopt;
    const auto present = presentErase();
    return present && present->disks == m_order.erase.disks ? std::nullopt : Check(changedMeanwhile());
}

} // namespace

ExitStatus runDuplicate(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                        const DuplicateOptions &options)
{
    const auto whole = withJob(options);
    if (!whole) {
        terminal.printError("plurimoctl: " + whole.error().reason);
        return whole.error().status;
    }
    return DuplicateCommand(host, queue, terminal, *whole).run();
}

} // namespace orvana::cli
