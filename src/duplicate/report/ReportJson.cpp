#include "duplicate/report/ReportJson.h"

#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

const char *nameOf(VerifiedFrom from)
{
    switch (from) {
    case VerifiedFrom::None:
        return "none";
    case VerifiedFrom::Disk:
        return "disk";
    case VerifiedFrom::Cache:
        return "cache";
    }
    return "";
}

Json onDiskJson(Durability durability)
{
    return durability == Durability::Memory ? Json("memory") : Json(durability == Durability::OnDisk);
}

Json manifestsJson(const DestinationSummary &destination)
{
    Json list = Json::array();
    for (const auto &manifest : destination.manifests) {
        Json json = Json::object();
        putPath(json, "path", manifest.path);
        json["files"] = manifest.files;
        json[manifest.digestName] = manifest.digest;
        list.push_back(std::move(json));
    }
    return list;
}

Json notKeptJson(const DestinationSummary &destination)
{
    Json json = Json::object();
    for (std::size_t i = 0; i < platform::PartCount; ++i) {
        if (destination.notKept[i] > 0)
            json[orvana::nameOf(static_cast<platform::Part>(i))] = destination.notKept[i];
    }
    return json;
}

Json destinationJson(const DestinationSummary &destination)
{
    Json json = Json::object();
    putPath(json, "path", destination.path);
    if (const auto &disk = destination.disk; !disk.bay.empty()) {
        json["bay"] = disk.bay;
        putPath(json, "name", disk.name);
        putPath(json, "model", disk.model);
        putPath(json, "serial", disk.serial);
        if (!disk.health.empty())
            json["health"] = disk.health;
        if (!disk.healthAfter.empty())
            json["healthAfter"] = disk.healthAfter;
        json["diskSize"] = disk.size ? Json(*disk.size) : Json(nullptr);
    }
    json["copied"] = destination.copied;
    json["alreadyThere"] = destination.alreadyThere;
    json["failed"] = destination.failed;
    json["verified"] = destination.verified;
    json["mismatched"] = destination.mismatched;
    json["unverified"] = destination.unverified;
    json["bytes"] = destination.bytes;
    json["blocksWritten"] = destination.blocksWritten;
    json["secondsWriting"] = destination.secondsWriting;
    json["secondsSyncing"] = destination.secondsSyncing;
    json["verifiedFrom"] = nameOf(destination.verifiedFrom);
    json["repaired"] = destination.repaired;
    if (destination.isSuspect)
        json["suspect"] = true;
    if (!destination.manifests.empty() || destination.evidenceFailures > 0)
        json["manifests"] = manifestsJson(destination);
    if (destination.notInManifest > 0)
        json["notInManifest"] = destination.notInManifest;
    if (destination.cannotHold > 0)
        json["cannotHold"] = destination.cannotHold;
    if (auto notKept = notKeptJson(destination); !notKept.empty())
        json["notKept"] = std::move(notKept);
    json["slowest"] = destination.isSlowest;
    json["onDisk"] = onDiskJson(destination.durability);
    if (destination.durability == Durability::NotKnown) {
        json["notKnownToBeOnDisk"] = destination.notKnownToBeOnDisk;
        json["reason"] = destination.reason;
    }
    return json;
}

} // namespace

Json reportJson(const RunSummary &summary)
{
    Json json = {{"version", 2},
                 {"program", "Orvana Plurimo " PLURIMO_VERSION},
                 {"started", summary.started},
                 {"ended", summary.ended},
                 {"outcome", summary.outcome == RunOutcome::Finished ? "finished" : "cancelled"}};
    if (!summary.note.empty())
        json["note"] = summary.note;
    putPath(json, "source", summary.source);
    json["filesStarted"] = summary.filesStarted;
    json["sourceBytes"] = summary.sourceBytes;
    json["leftOut"] = summary.leftOut;
    json["verify"] = summary.verify;
    json["seconds"] = {
        {"copy", summary.seconds.copy}, {"verify", summary.seconds.verify}, {"sync", summary.seconds.sync}};
    json["disks"] = disksJson(summary);
    json["destinations"] = destinationsJson(summary);
    return json;
}

Json destinationsJson(const RunSummary &summary)
{
    Json list = Json::array();
    for (const auto &destination : summary.destinations)
        list.push_back(destinationJson(destination));
    return list;
}

Json disksJson(const RunSummary &summary)
{
    Json list = Json::array();
    for (const auto &entry : summary.disks)
        list.push_back(diskJson(entry));
    return list;
}

Json problemJson(const RunProblem &problem)
{
    Json json = {{"kind", nameOf(problem.kind)}};
    putPath(json, "file", problem.file);
    putPath(json, "destination", problem.destination);
    if (problem.kind == ProblemKind::Mismatched) {
        json["firstOffset"] = problem.firstOffset;
        json["blocks"] = problem.blocks;
    } else {
        json["reason"] = problem.reason;
    }
    return json;
}

Json leftOutJson(std::string_view item, std::string_view rule)
{
    Json json = {{"kind", "leftOut"}};
    putPath(json, "file", item);
    json["reason"] = rule;
    return json;
}

} // namespace orvana
