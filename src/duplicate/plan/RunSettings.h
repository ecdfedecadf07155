#pragma once

#include <array>

namespace orvana
{

/// The options of a run besides erasing and verifying. All of them are off unless they were chosen for the
/// run.
struct RunSettings
{
    bool ejectAtEnd = false; ///< eject each disk that holds every file

    bool operator==(const RunSettings &) const = default;
};

/// One option of `RunSettings`. Command line, job files and the window's sheet make their own list of options
/// from this table, so a new option needs its member above, a line here, and the run that obeys it.
struct RunSetting
{
    bool RunSettings::*member;
    const char *key;  ///< in job files: "ejectAtEnd"
    const char *flag; ///< on the command line: "--eject"
    const char *help; ///< a sentence without its stop, in English
};

inline constexpr std::array AllRunSettings{
    RunSetting{&RunSettings::ejectAtEnd, "ejectAtEnd", "--eject",
               "Eject each disk that holds every file at the end"},
};

} // namespace orvana
