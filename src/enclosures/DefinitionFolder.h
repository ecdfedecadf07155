#pragma once

#include "enclosures/Definition.h"

#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana::enclosures
{

/// The folder that holds the definitions of a machine.
inline constexpr const char *SystemFolder = "/etc/orvana-plurimo/enclosures.d";

/// The owners whose folders and files of definitions count.
enum class Trust {
    Root,       ///< root alone: what decides which disks may be erased
    RootOrUser, ///< root and the user of this process: tests of programs that are not installed
};

/// The definitions of a folder, in the order of their files' names, and what is wrong with the others.
struct DefinitionSet
{
    std::vector<Definition> definitions;
    std::vector<std::string> problems; ///< "/etc/.../desk.json: /bays/A/port: must be a text"
};

/// Reads the definitions of a folder. A file counts only if it, its folder and every folder above can be
/// written to by the trusted owner alone. Links, special files and files of more than 64 KiB are refused
/// without being waited for. A folder that does not exist has no definitions.
DefinitionSet readDefinitions(const std::string &folder, Trust trust);

/// Writes a definition into the folder, which is made if it is missing. Never replaces a file. A reader sees
/// the whole file or none. The error names the file and the reason.
tl::expected<void, std::string> addDefinition(const std::string &folder, const Definition &definition);

/// Removes the definition of that id. The error names the file and the reason.
tl::expected<void, std::string> removeDefinition(const std::string &folder, const std::string &id);

} // namespace orvana::enclosures
