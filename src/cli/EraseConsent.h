#pragma once

#include "duplicate/plan/RunOrder.h"
#include "foundation/Refusal.h"

#include <functional>
#include <tl/expected.hpp>

namespace orvana::cli
{

class Terminal;

enum class Consent { Ask, Given };

/// What an erase is checked and asked for before anything is touched.
struct EraseRequest
{
    const ScannedDevices &devices;
    const RunChoice &choice;
    const UserHome &user;
    std::vector<Bay> bays; ///< only disks in these are erased
};

/// The disks that the request erases; refused when one of the names may not be given. Names that were typed
/// for bays of which nothing is erased are wrong usage.
tl::expected<ErasePlan, Refusal> planRequestedErase(const EraseRequest &request,
                                                    const PerBay<std::optional<std::string>> &typed);

/// A line for each disk that will lose what it holds; `present` are the names that they have now. Looks at
/// what the disks hold, for two seconds at most.
std::vector<std::string> eraseLines(platform::Host &host, const ScannedDevices &devices,
                                    const ErasePlan &plan, const PerBay<std::string> &present);

/// Asks, where there is somebody to ask, or refuses. Nothing when the user agrees or has agreed.
std::optional<Refusal> askFor(const std::string &question, const std::vector<std::string> &lines,
                              Consent consent, Terminal &terminal, const std::function<bool()> &givesUp);

/// What is said when the disks at the time of the act are not those that were shown.
Refusal changedMeanwhile();

} // namespace orvana::cli
