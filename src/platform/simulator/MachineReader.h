#pragma once

#include "foundation/PathJson.h"
#include "platform/simulator/Machine.h"

#include <memory>
#include <string>
#include <string_view>
#include <tl/expected.hpp>

namespace orvana::platform::simulator
{

/// The content of a file: its text as JSON, and the machine that it describes.
struct MachineFile
{
    std::shared_ptr<Json> json;
    Machine machine;
};

/// True for a text that can be the name of a volume's folder.
bool isVolumeName(const std::string &name);

/// Reads the description. The error names the entry by its path and says what is wrong with the entry. A
/// wrong file is rejected as a whole.
tl::expected<MachineFile, std::string> readMachine(std::string_view text);

} // namespace orvana::platform::simulator
