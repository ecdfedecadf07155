#pragma once

#include "discovery/ORVScanDevice.h"
#include "duplicate/plan/RunGuards.h"
#include "foundation/Refusal.h"

#include <tl/expected.hpp>

namespace orvana
{
class PlainMainQueue;
}

namespace orvana::cli
{

/// The machine's devices as a command sees them.
class DeviceScan
{
public:
    /// `queue` is the queue of `host`. Both must outlive the scan. The constructor scans at once.
    DeviceScan(platform::Host &host, PlainMainQueue &queue);

    /// Scans the whole machine anew, with all outside changes until now. Takes a moment.
    void scan();

    /// Scans the enclosures anew, with all outside changes until now. Takes a moment.
    void scanEnclosures();

    ScannedDevices devices() const { return scannedDevices(m_scanner); }
    const UserHome &user() const { return m_user; }

    /// Returns the enclosure with this number, counted from 1 in the order of `devices`, by its place and its
    /// UID. Without a number, returns the only enclosure.
    tl::expected<ChosenEnclosure, Refusal> choose(std::optional<int> number) const;

private:
    void takeUpChanges();

    PlainMainQueue &m_queue;
    ORVScanDevice m_scanner;
    UserHome m_user;
};

/// Returns the chosen enclosure as it is now, or the reason why a run may not start with it.
tl::expected<std::shared_ptr<ORVThunderboltInfo>, Refusal> usableEnclosure(const ScannedDevices &devices,
                                                                           const ChosenEnclosure &chosen);

Refusal refusalOf(EnclosureRefusal refusal);

/// Reads bays: "B" is bay B. Refuses any other text, and a bay that is given twice.
tl::expected<std::vector<Bay>, Refusal> parseBays(const std::vector<std::string> &words);

/// Reads names: "B=COPY1" gives bay B the name COPY1. Refuses any other text, and a second name for a bay.
tl::expected<PerBay<std::optional<std::string>>, Refusal> parseNames(const std::vector<std::string> &words);

} // namespace orvana::cli
