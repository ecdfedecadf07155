#include "duplicate/report/DiskEntry.h"

#include "foundation/DisplayPath.h"

#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

const char *nameOf(DiskOutcome outcome)
{
    switch (outcome) {
    case DiskOutcome::Erased:
        return "erased";
    case DiskOutcome::EraseFailed:
        return "eraseFailed";
    case DiskOutcome::LeftOut:
        return "leftOut";
    case DiskOutcome::Refused:
        return "refused";
    }
    return "";
}

const char *textOf(DiskOutcome outcome)
{
    switch (outcome) {
    case DiskOutcome::Erased:
        return "erased";
    case DiskOutcome::EraseFailed:
        return "could not be erased";
    case DiskOutcome::LeftOut:
        return "left out";
    case DiskOutcome::Refused:
        return "refused";
    }
    return "";
}

} // namespace

Json diskJson(const DiskEntry &entry)
{
    Json json = {{"bay", entry.bay}};
    putPath(json, "name", entry.name);
    putPath(json, "model", entry.disk.diskModule);
    putPath(json, "serial", entry.disk.diskSN);
    putPath(json, "device", entry.disk.diskPath);
    json["outcome"] = nameOf(entry.outcome);
    if (entry.outcome != DiskOutcome::Erased)
        json["reason"] = entry.reason;
    return json;
}

std::string diskText(const DiskEntry &entry)
{
    auto text = entry.bay + " (" + displayPath(entry.name) + "): " + textOf(entry.outcome);
    if (!entry.reason.empty())
        text.append(": ").append(entry.reason);
    return text;
}

} // namespace orvana
