#pragma once

#include "duplicate/line/LineStore.h"
#include "foundation/PathJson.h"

#include <string>
#include <variant>

namespace orvana
{

// The past of a line, as its folder keeps it: one JSON object an event.

struct LineEnd
{
    std::int64_t number = 0;
    LineResult result;
};

using LineEvent = std::variant<LineHead, LineDisk, LineEnd, LineState>;

std::string textOfEvent(const LineEvent &event);

/// Returns the event, or nullopt for a text that is none.
std::optional<LineEvent> parseEvent(std::string_view text);

} // namespace orvana
