#pragma once

#include "duplicate/journal/JournalLine.h"

#include <string>
#include <vector>

namespace orvana
{

/// How a run keeps its journal.
struct JournalOrder
{
    std::string folder;                     ///< of the journals
    JournalPlace source;                    ///< what is known of it
    std::vector<JournalPlace> destinations; ///< in the order of the job
    std::string job;                        ///< the run as a job; empty if it is none
    bool resume = false;                    ///< go on with the journal of an earlier run, if there is one
};

} // namespace orvana
