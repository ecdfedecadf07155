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
    /// `queue` is the host's; both must outlive the scan. Scans at once.
    DeviceScan(platform::Host &host, PlainMainQueue &queue);

    /// Looks at the whole machine anew, with all that has changed outside meanwhile; takes a moment.
    void scan();

    /// The same for the enclosures alone.
    void scanEnclosures();

    ScannedDevices devices() const { return scannedDevices(m_scanner); }
    const UserHome &user() const { return m_user; }

    /// The enclosure of this number, counted from 1 as `devices` lists them, as it is told from others from
    /// now on. Without a number it is the only one.
    tl::expected<ChosenEnclosure, Refusal> choose(std::optional<int> number) const;

private:
    void takeUpChanges();

    PlainMainQueue &m_queue;
    ORVScanDevice m_scanner;
    UserHome m_user;
};

/// The chosen enclosure as it is now; a run may start with it.
tl::expected<std::shared_ptr<ORVThunderboltInfo>, Refusal> usableEnclosure(const ScannedDevices &devices,
                                                                           const ChosenEnclosure &chosen);

Refusal refusalOf(EnclosureRefusal refusal);

/// "B" is bay B. Each bay once; else the refusal says what is wrong.
tl::expected<std::vector<Bay>, Refusal> parseBays(const std::vector<std::string> &words);

/// "B=COPY1" gives bay B that name. Each bay once.
tl::expected<PerBay<std::optional<std::string>>, Refusal> parseNames(const std::vector<std::string> &words);

} // namespace orvana::cli
