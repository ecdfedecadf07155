#pragma once

#include "foundation/Refusal.h"

#include <optional>
#include <string>

namespace orvana
{
class PlainMainQueue;
}

namespace orvana::enclosures
{
class EnclosureSetup;
}

namespace orvana::cli
{

class Terminal;

struct BaysOptions
{
    std::string action; ///< learn, list, check or forget
    std::string name;   ///< learn: as the user will see it; check: a file, or empty; forget: name or id
    int bays = 4;       ///< learn: how many bays to ask for
    bool json = false;  ///< list
};

/// `plurimoctl bays`: learns, lists, checks and removes enclosure definitions. No disk is written to. SIGINT
/// ends `learn` at once, with nothing written. `queue` is the queue of the host that `setup` belongs to.
ExitStatus runBays(enclosures::EnclosureSetup &setup, PlainMainQueue &queue, Terminal &terminal,
                   const BaysOptions &options);

} // namespace orvana::cli
