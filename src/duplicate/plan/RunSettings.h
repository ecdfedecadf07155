#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/evidence/Digest.h"
#include "duplicate/evidence/Manifest.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The options of a run besides erasing and verifying. All of them are off unless they were chosen for the
/// run.
struct RunSettings
{
    bool ejectAtEnd = false;                    ///< eject each disk that holds every file
    bool health = false;                        ///< leave out disks that call themselves failing
    bool resume = false;                        ///< go on with the last run
    CopyManner manner;                          ///< how files are treated that are on a destination already
    ManifestKind manifest = ManifestKind::None; ///< what list of its files each copy gets
    /// The format of the digests. Without it none are made, or, for manifests, those of `EvidenceOrder`.
    std::optional<DigestFormat> digest;

    bool operator==(const RunSettings &) const = default;
};

/// One option of `RunSettings`. Command line, job files and the window's sheet make their own list of options
/// from this table, so a new option needs its member above, a line here, and the run that obeys it.
struct RunSetting
{
    bool &(*of)(RunSettings &settings);
    const char *key;  ///< in job files: "ejectAtEnd"
    const char *flag; ///< on the command line: "--eject"
    const char *help; ///< a sentence without its stop, in English
    bool isForDisks;  ///< of no use for copies into folders

    bool isOn(RunSettings settings) const { return of(settings); }
};

inline constexpr std::array AllRunSettings{
    RunSetting{[](RunSettings &settings) -> bool & { return settings.ejectAtEnd; }, "ejectAtEnd", "--eject",
               "Eject each disk that holds every file at the end", true},
    RunSetting{[](RunSettings &settings) -> bool & { return settings.health; }, "health", "--health",
               "Ask each disk how it is, and leave out one that calls itself failing", true},
    RunSetting{[](RunSettings &settings) -> bool & { return settings.resume; }, "resume", "--resume",
               "Go on with the last run: what it has brought to the disks is not copied again", false},
    RunSetting{[](RunSettings &settings) -> bool & { return settings.manner.update; }, "update", "--update",
               "Compare what is there already with the source, and write only the blocks that differ", false},
    RunSetting{[](RunSettings &settings) -> bool & { return settings.manner.exact; }, "exact", "--exact",
               "Cut longer files that are there already to the length of their source", false},
    RunSetting{[](RunSettings &settings) -> bool & { return settings.manner.repair; }, "repair", "--repair",
               "When verifying, write blocks that differ once more", false},
};

/// One option of `RunSettings` with a choice of values, which are words in all places.
struct ListedRunSetting
{
    const char *key;      ///< in job files: "manifest"
    const char *flag;     ///< on the command line: "--manifest"
    const char *typeName; ///< what the command line calls its value: "KIND"
    const char *help;     ///< a sentence without its stop, in English
    std::vector<std::string> (*values)();
    std::string (*get)(const RunSettings &settings); ///< empty for none
    void (*set)(RunSettings &settings, std::string_view value);
};

extern const std::array<ListedRunSetting, 4> AllListedRunSettings;

/// Returns why the settings do not go together: "an ASC MHL manifest cannot hold sha256 digests".
std::optional<std::string> conflictIn(const RunSettings &settings);

} // namespace orvana
