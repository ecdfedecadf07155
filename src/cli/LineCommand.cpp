#include "cli/LineCommand.h"

#include "cli/CopyPlan.h"
#include "cli/DeviceScan.h"
#include "cli/LineDisplay.h"
#include "cli/SelectionCensus.h"
#include "cli/Terminal.h"
#include "cli/TerminalRun.h"
#include "duplicate/line/LedgerText.h"
#include "foundation/DisplayPath.h"
#include "foundation/Paths.h"
#include "foundation/PlainMainQueue.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/SmallFiles.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/PrivateFolder.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

constexpr std::chrono::seconds PatienceAtTheEnd{10};
constexpr std::size_t LargestLedger = 268'435'456;

template <class Value>
using OrRefusal = tl::expected<Value, Refusal>;

tl::unexpected<Refusal> refusal(ExitStatus status, const std::string &reason)
{
    return tl::unexpected(Refusal{status, reason});
}

OrRefusal<std::vector<Bay>> baysToArm(const LineOptions &options)
{
    std::vector<std::string> words;
    std::string word;
    for (const char c : options.arm.value_or(std::string()) + ",") {
        if (c != ',')
            word += c;
        else if (!word.empty())
            words.push_back(std::exchange(word, {}));
    }
    return parseBays(words);
}

OrRefusal<ProductionLine::Consent> consentIn(const LineOptions &options)
{
    if (!options.consent)
        return ProductionLine::Consent::AskForContent;
    if (*options.consent != EraseConsentWords)
        return refusal(WrongUsage, std::string("the words of --consent are \"") + EraseConsentWords + "\"");
    return ProductionLine::Consent::EraseWhateverComes;
}

// "reel-7" for "/jobs/reel-7.plurimo"
std::string titleOfFile(const std::string &path)
{
    auto name = displayPath(lastComponent(path));
    constexpr std::string_view Ending = ".plurimo";
    if (name.size() > Ending.size() && name.ends_with(Ending))
        name.resize(name.size() - Ending.size());
    return name;
}

/// One call of the command.
class LineCommand
{
public:
    LineCommand(platform::Host &host, PlainMainQueue &queue, Terminal &terminal, const LineOptions &options)
        : m_host(host), m_queue(queue), m_terminal(terminal), m_options(options),
          m_folder(platform::stateFolder(host.account().homeFolder()))
    {
    }

    OrRefusal<ExitStatus> run()
    {
        if (m_options.action == "collect")
            return collect();
        if (m_options.action == "start")
            return start();
        if (m_options.action == "status")
            return status();
        return change();
    }

private:
    OrRefusal<ExitStatus> start();
    OrRefusal<ExitStatus> status();
    OrRefusal<ExitStatus> change();
    OrRefusal<ExitStatus> collect();
    OrRefusal<ExitStatus> work(LineStore store);
    OrRefusal<LineHead> newHead() const;
    OrRefusal<std::string> lineMeant() const;
    Json jsonOf(const LineStore &store) const;
    std::string textOfLine(const LineStore &store) const;

    platform::Host &m_host;
    PlainMainQueue &m_queue;
    Terminal &m_terminal;
    const LineOptions &m_options;
    const std::string m_folder;
};

OrRefusal<LineHead> LineCommand::newHead() const
{
    if (m_options.words.size() != 1)
        return refusal(WrongUsage, "line start needs one job file");
    const auto path = cleanPath(m_options.words.front());
    const auto job = readJob(path);
    if (!job)
        return refusal(WrongUsage, job.error());
    LineHead head;
    if (!m_options.count && !job->wanted)
        return refusal(WrongUsage, "the job has no wanted number; give it with --count");
    head.name = m_options.title.value_or(titleOfFile(path));
    head.job = textOf(*job);
    head.wanted = m_options.count ? *m_options.count : *job->wanted;
    head.pattern = m_options.pattern.value_or(std::string());
    head.certificates = m_options.certificates ? cleanPath(*m_options.certificates) : std::string();
    head.needsSerial = !m_options.withoutSerial;
    if (const auto work = readLine(head); !work)
        return tl::unexpected(work.error());
    return head;
}

OrRefusal<ExitStatus> LineCommand::start()
{
    const auto head = newHead();
    if (!head)
        return tl::unexpected(head.error());
    if (const auto bays = baysToArm(m_options); !bays)
        return tl::unexpected(bays.error());
    if (const auto consent = consentIn(m_options); !consent)
        return tl::unexpected(consent.error());
    auto store = LineStore::create(m_host.volumeFiles(), m_folder, *head);
    if (!store)
        return refusal(SomethingFailed, store.error());
    const auto id = store->head().id;
    if (m_options.arm)
        return work(std::move(*store));
    m_terminal.print(m_options.json ? jsonOf(*store).dump()
                                    : "Line " + id + " is made. Arm bays for it: plurimoctl line resume " +
                                          id + " --arm B,C,D");
    return AllDone;
}

OrRefusal<ExitStatus> LineCommand::work(LineStore store)
{
    const auto bays = baysToArm(m_options);
    if (!bays)
        return tl::unexpected(bays.error());
    if (bays->empty())
        return refusal(WrongUsage, "--arm names no bay");
    const auto consent = consentIn(m_options);
    if (!consent)
        return tl::unexpected(consent.error());
    auto lineWork = readLine(store.head());
    if (!lineWork)
        return tl::unexpected(lineWork.error());
    const DeviceScan scan(m_host, m_queue);
    const auto chosen = scan.choose(m_options.enclosure);
    if (!chosen)
        return tl::unexpected(chosen.error());
    if (const auto usable = usableEnclosure(scan.devices(), *chosen); !usable)
        return tl::unexpected(usable.error());
    if (const auto found = findSource(*lineWork, m_host, scan.devices(), *chosen); !found)
        return tl::unexpected(found.error());
    const auto census = countSelection(m_host, lineWork->selection, [] { return false; });
    lineWork->files = census.files;
    lineWork->bytes = census.bytes;
    SystemClock clock;
    LineDisplay display(m_terminal, m_queue, m_options.json);
    ProductionLine line({.host = m_host,
                         .queue = m_queue,
                         .clock = clock,
                         .logFolder = logFolderOf(m_host, m_options.logFolder),
                         .stateFolder = m_folder,
                         .patience = PatienceAtTheEnd},
                        std::move(store), std::move(*lineWork), display);
    const platform::posix::CancelRequest cancelRequest([&] { display.requestCancel(); });
    if (line.store().state() == LineState::Paused)
        line.resume();
    if (const auto armed = line.arm(*bays, *consent); !armed)
        return tl::unexpected(armed.error());
    if (!m_options.json)
        m_terminal.print("Line " + line.store().head().id + ", ledger " +
                         displayPath(line.store().csvPath()));
    return display.run(line);
}

OrRefusal<std::string> LineCommand::lineMeant() const
{
    if (m_options.words.size() > 1)
        return refusal(WrongUsage, "one line at a time");
    if (!m_options.words.empty())
        return m_options.words.front();
    std::string meant;
    for (const auto &id : LineStore::idsIn(m_host.volumeFiles(), m_folder)) {
        const auto store = LineStore::open(m_host.volumeFiles(), m_folder, id, LineStore::Use::Look);
        if (!store || store->state() == LineState::Ended)
            continue;
        if (!meant.empty())
            return refusal(WrongUsage, "there are several lines; name one, as \"line status\" does");
        meant = id;
    }
    if (meant.empty())
        return refusal(NotThere, "there is no line that has not ended");
    return meant;
}

// Pauses, resumes or ends a line: by the program that runs it, or here if none does.
OrRefusal<ExitStatus> LineCommand::change()
{
    const auto id = lineMeant();
    if (!id)
        return tl::unexpected(id.error());
    auto &files = m_host.volumeFiles();
    const auto look = LineStore::open(files, m_folder, *id, LineStore::Use::Look);
    if (!look)
        return refusal(NotThere, look.error());
    const bool isResume = m_options.action == "resume";
    if (look->state() == LineState::Ended)
        return refusal(Refused, *id + ": the line has ended");
    if (look->isRunning(files) && !m_options.arm) {
        const auto wish = isResume                      ? LineWish::Resume
                          : m_options.action == "pause" ? LineWish::Pause
                                                        : LineWish::End;
        if (const auto left = look->wish(wish); !left)
            return refusal(SomethingFailed, left.error());
        m_terminal.print("The program that runs the line was told.");
        return AllDone;
    }
    auto store = LineStore::open(files, m_folder, *id, LineStore::Use::Run);
    if (!store)
        return refusal(Refused, store.error());
    if (isResume && m_options.arm)
        return work(std::move(*store));
    const auto state = isResume                      ? LineState::Open
                       : m_options.action == "pause" ? LineState::Paused
                                                     : LineState::Ended;
    if (const auto noted = store->setState(state); !noted)
        return refusal(SomethingFailed, noted.error());
    m_terminal.print(textOfLine(*store));
    return AllDone;
}

Json LineCommand::jsonOf(const LineStore &store) const
{
    const auto counts = store.counts();
    Json json{{"id", store.head().id},
              {"station", store.head().station},
              {"title", displayPath(store.head().name)},
              {"state", wordOf(store.state())},
              {"running", store.isRunning(m_host.volumeFiles())},
              {"wanted", counts.wanted},
              {"passed", counts.passed},
              {"notProven", counts.notProven},
              {"failed", counts.failed},
              {"inWork", counts.inWork}};
    putPath(json, "ledger", store.csvPath());
    putPath(json, "certificates", store.head().certificates);
    return json;
}

std::string LineCommand::textOfLine(const LineStore &store) const
{
    auto text = store.head().id + "  " + displayPath(store.head().name) + ": " + textOf(store.counts()) +
                ", " + wordOf(store.state());
    if (store.isRunning(m_host.volumeFiles()))
        text += ", a program runs it";
    return text;
}

OrRefusal<ExitStatus> LineCommand::status()
{
    auto ids = m_options.words;
    const bool isAll = ids.empty();
    ids = isAll ? LineStore::idsIn(m_host.volumeFiles(), m_folder) : ids;
    Json all = Json::array();
    ExitStatus end = AllDone;
    for (const auto &id : ids) {
        const auto store = LineStore::open(m_host.volumeFiles(), m_folder, id, LineStore::Use::Look);
        if (!store && !isAll)
            return refusal(NotThere, store.error());
        if (!store) {
            m_terminal.printError("plurimoctl: " + store.error()); // the other lines are told all the same
            end = NotThere;
            continue;
        }
        if (m_options.json) {
            all.push_back(jsonOf(*store));
            continue;
        }
        m_terminal.print(textOfLine(*store));
        if (isAll)
            continue;
        for (const auto &entry : store->entries())
            m_terminal.print(
                "  " + std::to_string(entry.disk.number) + "  " + displayPath(entry.disk.serial) + "  " +
                displayPath(entry.disk.name) + "  " + entry.disk.bay + "  " +
                (entry.result ? wordOf(entry.result->verdict) : "in work") +
                (entry.result && !entry.result->reason.empty() ? ": " + displayPath(entry.result->reason)
                                                               : ""));
        m_terminal.print("  ledger " + displayPath(store->csvPath()));
    }
    if (m_options.json)
        m_terminal.print(all.dump(2));
    else if (ids.empty())
        m_terminal.print("There is no line.");
    return end;
}

OrRefusal<ExitStatus> LineCommand::collect()
{
    if (m_options.words.empty())
        return refusal(WrongUsage, "line collect needs ledgers");
    std::vector<LedgerFile> files;
    for (const auto &word : m_options.words) {
        const auto path = cleanPath(word);
        auto text = platform::readSmallFile(m_host.volumeFiles().workingFolder(), path, LargestLedger);
        if (!text)
            return refusal(NotThere, displayPath(path) + ": " + text.error().reason());
        files.push_back({path, std::move(*text)});
    }
    const auto rows = collectLedgers(files);
    if (!rows)
        return refusal(SomethingFailed, rows.error());
    m_terminal.write(ledgerHeading() + csvText(*rows));
    return AllDone;
}

} // namespace

ExitStatus runLine(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                   const LineOptions &options)
{
    const auto status = LineCommand(host, queue, terminal, options).run();
    if (status)
        return *status;
    terminal.printError("plurimoctl: " + status.error().reason);
    return status.error().status;
}

} // namespace orvana::cli
