#pragma once

#include "duplicate/plan/RunOrder.h"
#include "foundation/Refusal.h"

#include <functional>
#include <tl/expected.hpp>

namespace orvana::cli
{

class Terminal;

enum class Consent { Ask, Given };

/// The data for checking an erase and for asking the user, before any disk is touched.
struct EraseRequest
{
    const ScannedDevices &devices;
    const RunChoice &choice;
    const UserHome &user;
    std::vector<Bay> bays; ///< only disks in these bays are erased
};

/// Plans the erase that the request asks for. Refuses a name that a volume may not have. It is wrong usage to
/// type a name for a bay whose disk is not erased, unless that disk is too small.
tl::expected<ErasePlan, Refusal> planRequestedErase(const EraseRequest &request,
                                                    const PerBay<std::optional<std::string>> &typed);

/// Returns a line for each disk that will lose its content. `present` are the names that the volumes have
/// now. Examines the content of the disks for at most two seconds.
std::vector<std::string> eraseLines(platform::Host &host, const ScannedDevices &devices,
                                    const ErasePlan &plan, const PerBay<std::string> &present);

/// Asks the user, or refuses if there is nobody to ask. Returns nullopt if the user agrees or has already
/// agreed.
std::optional<Refusal> askFor(const std::string &question, const std::vector<std::string> &lines,
                              Consent consent, Terminal &terminal, const std::function<bool()> &givesUp);

/// Returns the refusal for disks that have changed since the user saw them.
Refusal changedMeanwhile();

} // namespace orvana::cli
