#include "duplicate/plan/RunSettings.h"

#include "duplicate/evidence/MhlXml.h"
#include "duplicate/evidence/SumsWriter.h"

namespace orvana
{

using platform::Keep;

namespace
{

constexpr std::string_view Mhl = "mhl";
constexpr std::string_view Sums = "sums";

std::vector<std::string> manifestKinds()
{
    return {std::string(Mhl), std::string(Sums)};
}

std::string manifestOf(const RunSettings &settings)
{
    switch (settings.manifest) {
    case ManifestKind::None:
        return {};
    case ManifestKind::Mhl:
        return std::string(Mhl);
    case ManifestKind::Sums:
        return std::string(Sums);
    }
    return {};
}

void setManifest(RunSettings &settings, std::string_view value)
{
    settings.manifest = value == Mhl    ? ManifestKind::Mhl
                        : value == Sums ? ManifestKind::Sums
                                        : ManifestKind::None;
}

std::vector<std::string> digestFormats()
{
    std::vector<std::string> names;
    names.reserve(AllDigestFormats.size());
    for (const auto format : AllDigestFormats)
        names.emplace_back(nameOf(format));
    return names;
}

std::string digestOf(const RunSettings &settings)
{
    return settings.digest ? std::string(nameOf(*settings.digest)) : std::string();
}

void setDigest(RunSettings &settings, std::string_view value)
{
    settings.digest = digestFormatNamed(value);
}

constexpr std::string_view Dates = "dates";
constexpr std::string_view All = "all";

std::vector<std::string> keepKinds()
{
    return {std::string(Dates), std::string(All)};
}

std::string keepOf(const RunSettings &settings)
{
    switch (settings.manner.keep) {
    case Keep::Nothing:
        return {};
    case Keep::Dates:
        return std::string(Dates);
    case Keep::All:
        return std::string(All);
    }
    return {};
}

void setKeep(RunSettings &settings, std::string_view value)
{
    settings.manner.keep = value == Dates ? Keep::Dates : value == All ? Keep::All : Keep::Nothing;
}

constexpr std::string_view GoOn = "go-on";
constexpr std::string_view LeaveOut = "leave-out";
constexpr std::string_view Stop = "stop";

std::vector<std::string> preflightKinds()
{
    return {std::string(Stop), std::string(LeaveOut), std::string(GoOn)};
}

std::string preflightOf(const RunSettings &settings)
{
    switch (settings.manner.preflight) {
    case PreflightAction::Off:
        return {};
    case PreflightAction::GoOn:
        return std::string(GoOn);
    case PreflightAction::LeaveOut:
        return std::string(LeaveOut);
    case PreflightAction::Stop:
        return std::string(Stop);
    }
    return {};
}

void setPreflight(RunSettings &settings, std::string_view value)
{
    settings.manner.preflight = value == GoOn       ? PreflightAction::GoOn
                                : value == LeaveOut ? PreflightAction::LeaveOut
                                : value == Stop     ? PreflightAction::Stop
                                                    : PreflightAction::Off;
}

} // namespace

const std::array<ListedRunSetting, 4> AllListedRunSettings{
    ListedRunSetting{"manifest", "--manifest", "KIND",
                     "Leave a list of the files with their digests on each copy: an ASC MHL history, or a "
                     "checksum file",
                     manifestKinds, manifestOf, setManifest},
    ListedRunSetting{"digest", "--digest", "FORMAT",
                     "Make a digest of each file while it is copied, and compare it when verifying",
                     digestFormats, digestOf, setDigest},
    ListedRunSetting{"keep", "--keep", "WHAT",
                     "Keep the dates of files and folders, or all: also owners, permissions, extended "
                     "attributes, links, hard links and holes",
                     keepKinds, keepOf, setKeep},
    ListedRunSetting{"preflight", "--preflight", "ACTION",
                     "Look before the first write whether each destination can hold the selection; where it "
                     "cannot, stop, leave it out, or go on",
                     preflightKinds, preflightOf, setPreflight},
};

// No other pairs exclude each other, so each sentence names its format.
std::optional<std::string> conflictIn(const RunSettings &settings)
{
    if (settings.manifest == ManifestKind::Mhl && settings.digest && !canBeInMhl(*settings.digest))
        return "an ASC MHL manifest cannot hold sha256 digests";
    if (settings.manifest == ManifestKind::Sums && settings.digest && !canBeInSums(*settings.digest))
        return "a checksum file cannot hold c4 digests";
    return std::nullopt;
}

} // namespace orvana
