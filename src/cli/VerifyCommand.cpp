#include "cli/VerifyCommand.h"

#include "cli/DeviceScan.h"
#include "cli/Terminal.h"
#include "cli/TerminalRun.h"
#include "duplicate/evidence/VerdictText.h"
#include "duplicate/evidence/Verification.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/report/ReportTable.h"
#include "foundation/DisplayPath.h"
#include "foundation/PathJson.h"
#include "foundation/SizeText.h"
#include "platform/Host.h"
#include "platform/posix/CancelRequest.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

namespace orvana::cli
{

namespace
{

constexpr std::chrono::milliseconds BetweenUpdates{200};

struct DiskToVerify
{
    std::string root;
    std::string bay; ///< empty for a folder
};

/// Prints what a verification finds out.
class VerifyDisplay
{
public:
    virtual ~VerifyDisplay() = default;
    virtual void finding(const DiskToVerify &disk, const Finding &finding) = 0;
    virtual void progress(const Verification &verification, const std::vector<DiskToVerify> &disks) = 0;
    virtual void ended(const DiskToVerify &disk, const DiskVerdict &verdict) = 0;
    virtual void allEnded(ExitStatus status) = 0;
};

class TextDisplay final : public VerifyDisplay
{
public:
    explicit TextDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void finding(const DiskToVerify &disk, const Finding &finding) override
    {
        m_terminal.printError(displayPath(disk.root) + ": " + textOf(finding));
    }

    void progress(const Verification &verification, const std::vector<DiskToVerify> &disks) override
    {
        if (!m_terminal.isScreen())
            return;
        std::string block;
        for (std::size_t i = 0; i < disks.size(); ++i) {
            const auto &progress = verification.progress(i);
            block +=
                fitted(displayPath(disks[i].root) + "  " + std::to_string(progress.files) + " file(s)  " +
                           sizeText(progress.bytes) + " of " + sizeText(progress.totalBytes),
                       m_terminal.width() - 1) +
                "\n";
        }
        m_terminal.showBlock(block);
    }

    void ended(const DiskToVerify &disk, const DiskVerdict &verdict) override
    {
        const auto lines = linesOf(verdict);
        m_terminal.print((disk.bay.empty() ? "" : disk.bay + " ") + displayPath(disk.root) + ": " +
                         lines.front());
        for (std::size_t i = 1; i < lines.size(); ++i)
            m_terminal.print("    " + lines[i]);
    }

    void allEnded(ExitStatus) override {}

private:
    Terminal &m_terminal;
};

/// Prints one JSON object a line, for programs. docs/terminal-json.md documents the objects.
class JsonDisplay final : public VerifyDisplay
{
public:
    explicit JsonDisplay(Terminal &terminal) : m_terminal(terminal) {}

    void finding(const DiskToVerify &disk, const Finding &finding) override
    {
        Json event = {{"event", "finding"}, {"finding", nameOf(finding.finding)}};
        putPath(event, "disk", disk.root);
        putPath(event, "path", finding.path);
        if (!finding.reason.empty())
            event["reason"] = finding.reason;
        m_terminal.print(event.dump());
    }

    void progress(const Verification &verification, const std::vector<DiskToVerify> &disks) override
    {
        Json event = {{"event", "progress"}, {"disks", Json::array()}};
        for (std::size_t i = 0; i < disks.size(); ++i) {
            const auto &progress = verification.progress(i);
            event["disks"].push_back({{"files", progress.files.load()},
                                      {"bytes", progress.bytes.load()},
                                      {"totalBytes", progress.totalBytes.load()}});
        }
        m_terminal.print(event.dump());
    }

    void ended(const DiskToVerify &disk, const DiskVerdict &verdict) override
    {
        Json event = {{"event", "disk"}};
        putPath(event, "disk", disk.root);
        if (!disk.bay.empty())
            event["bay"] = disk.bay;
        event.update({{"isWhole", verdict.isWhole()},
                      {"whole", verdict.whole},
                      {"changed", verdict.changed},
                      {"missing", verdict.missing},
                      {"new", verdict.added},
                      {"unreadable", verdict.unreadable},
                      {"bytes", verdict.bytes},
                      {"cancelled", verdict.isCancelled},
                      {"lists", Json::array()}});
        if (!verdict.error.empty())
            event["error"] = verdict.error;
        for (const auto &verified : verdict.lists)
            event["lists"].push_back(listJson(verified));
        m_terminal.print(event.dump());
    }

    void allEnded(ExitStatus status) override
    {
        m_terminal.print(Json{{"event", "end"}, {"status", static_cast<int>(status)}}.dump());
    }

private:
    static const char *wordOf(StationCopy copy)
    {
        switch (copy) {
        case StationCopy::Unknown:
            return "unknown";
        case StationCopy::Agrees:
            return "agrees";
        case StationCopy::Differs:
            return "differs";
        }
        return "";
    }

    static Json listJson(const VerifiedList &verified)
    {
        Json json = Json::object();
        putPath(json, "file", verified.list.file);
        json["c4"] = verified.list.digest;
        json["stationCopy"] = wordOf(verified.station);
        if (!verified.error.empty())
            json["error"] = verified.error;
        if (!verified.recorded.empty())
            putPath(json, "recorded", verified.recorded);
        if (!verified.notRecorded.empty())
            json["notRecorded"] = verified.notRecorded;
        return json;
    }

    Terminal &m_terminal;
};

using Disks = tl::expected<std::vector<DiskToVerify>, Refusal>;

// The mounted volumes in the chosen bays, those without the user's choice in B, C and D.
Disks disksInBays(platform::Host &host, PlainMainQueue &queue, const VerifyCommandOptions &options)
{
    auto bays = parseBays(options.bays);
    if (!bays)
        return tl::unexpected(bays.error());
    if (bays->empty())
        *bays = {Bay::B, Bay::C, Bay::D};
    const DeviceScan scan(host, queue);
    const auto chosen = scan.choose(options.enclosure);
    if (!chosen)
        return tl::unexpected(chosen.error());
    const auto devices = scan.devices();
    const auto enclosure = chosenEnclosure(devices, *chosen);
    if (!enclosure)
        return tl::unexpected(refusalOf(enclosure.error()));
    std::vector<DiskToVerify> disks;
    for (const auto &volume : volumesInBays(**enclosure)) {
        if (std::find(bays->begin(), bays->end(), volume.bay) != bays->end())
            disks.push_back({volume.root, slotNameOf(volume.bay)});
    }
    if (disks.empty())
        return tl::unexpected(Refusal{NotThere, "there is no mounted disk to verify"});
    return disks;
}

Disks disksToVerify(platform::Host &host, PlainMainQueue &queue, const VerifyCommandOptions &options)
{
    if (options.manifest && options.record)
        return tl::unexpected(
            Refusal{WrongUsage, "--record appends to the history on a disk, so it goes without --manifest"});
    if (options.folders.empty() && !options.enclosure)
        return tl::unexpected(Refusal{WrongUsage, "name a folder, or an enclosure with --enclosure"});
    if (!options.folders.empty() && (options.enclosure || !options.bays.empty()))
        return tl::unexpected(Refusal{WrongUsage, "name either folders or an enclosure"});
    if (options.folders.empty())
        return disksInBays(host, queue, options);
    std::vector<DiskToVerify> disks;
    for (const auto &folder : options.folders) {
        const auto there = host.volumeFiles().workingFolder().attributes(folder, platform::Links::Follow,
                                                                         platform::Want::Basics);
        if (!there || there->type != platform::FileType::Folder)
            return tl::unexpected(Refusal{NotThere, displayPath(folder) + ": no such folder"});
        disks.push_back({folder, {}});
    }
    return disks;
}

ExitStatus statusOf(const Verification &verification)
{
    ExitStatus status = AllDone;
    for (std::size_t i = 0; i < verification.count(); ++i) {
        const auto &verdict = verification.verdict(i);
        const bool isNotRecorded =
            std::any_of(verdict.lists.begin(), verdict.lists.end(),
                        [](const VerifiedList &list) { return !list.notRecorded.empty(); });
        if (verdict.isCancelled)
            return Cancelled;
        if (verdict.hasNoList() && status == AllDone)
            status = NotThere;
        else if (!verdict.hasNoList() && (!verdict.isWhole() || isNotRecorded))
            status = SomethingFailed;
    }
    return status;
}

} // namespace

ExitStatus runVerify(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                     const VerifyCommandOptions &options)
{
    const auto disks = disksToVerify(host, queue, options);
    if (!disks) {
        terminal.printError("plurimoctl: " + disks.error().reason);
        return disks.error().status;
    }
    std::unique_ptr<VerifyDisplay> display;
    if (options.json)
        display = std::make_unique<JsonDisplay>(terminal);
    else
        display = std::make_unique<TextDisplay>(terminal);
    const auto logs = logFolderOf(host, options.logFolder);
    std::vector<std::string> roots;
    for (const auto &disk : *disks)
        roots.push_back(disk.root);
    VerifyOptions how;
    how.manifest = options.manifest;
    how.record = options.record;
    how.folderForSorting = logs;
    how.station = std::make_shared<StationCopies>(logs);
    how.started =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
            .count();
    std::atomic<std::size_t> atWork = roots.size();
    Verification verification(
        host.volumeFiles(), roots, how,
        {.finding = [&](std::size_t i, const Finding &finding) { display->finding((*disks)[i], finding); },
         .ended = [&](std::size_t) { --atWork; }});
    const platform::posix::CancelRequest cancelRequest([&] { verification.cancel(); });
    while (atWork > 0) {
        display->progress(verification, *disks);
        std::this_thread::sleep_for(BetweenUpdates);
    }
    if (terminal.isScreen())
        terminal.showBlock("");
    for (std::size_t i = 0; i < disks->size(); ++i)
        display->ended((*disks)[i], verification.verdict(i));
    const auto status = statusOf(verification);
    display->allEnded(status);
    return status;
}

} // namespace orvana::cli
