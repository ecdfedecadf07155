#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "duplicate/disktool/VolumeName.h"
#include "platform/DiskFingerprint.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

using platform::DiskFingerprint;

enum class Bay : std::size_t { A, B, C, D };

inline constexpr std::array AllBays{Bay::A, Bay::B, Bay::C, Bay::D};

/// One value for each bay.
template <class Value>
class PerBay
{
public:
    Value &operator[](Bay bay) { return m_values[static_cast<std::size_t>(bay)]; }
    const Value &operator[](Bay bay) const { return m_values[static_cast<std::size_t>(bay)]; }

private:
    std::array<Value, AllBays.size()> m_values{};
};

/// "Slot-A" to "Slot-D": what a disk record's `slotPath` and the rows of the slot panel are called.
std::string slotNameOf(Bay bay);

/// The bay of that name; nothing for any other text.
std::optional<Bay> bayNamed(std::string_view slotName);

/// The enclosure that the user chose: its place in the picker, whose item 0 is a placeholder, and its UID as
/// it was when it was chosen. The place alone is not enough: enclosures come and go.
struct ChosenEnclosure
{
    int pickerIndex = 0;
    std::optional<std::int64_t> uid;
};

/// A disk as it was when the user saw it.
struct ShownDisk
{
    DiskUtilInfo info;
    DiskFingerprint fingerprint;

    bool operator==(const ShownDisk &) const = default;
};

/// The disk in each bay as it was when the user saw it; nullopt for an empty bay.
using ShownDisks = PerBay<std::optional<ShownDisk>>;

/// What the user chose for a run, in the window or in the terminal. Texts are bytes as they came from the
/// disks or were typed.
struct RunChoice
{
    ChosenEnclosure enclosure;
    std::string source;                       ///< the source row's name: a volume's, or the login name
    std::string sourceItem;                   ///< title of the chosen item in the source pop-up
    std::string sourceRoot;                   ///< root of the file tree; empty when there is none
    std::vector<DiskFingerprint> sourceDisks; ///< all disks that the run reads from; none of them is touched
    bool slotAisSource = true;
    PerBay<std::string> names; ///< the bays' name fields; with erase on, the new names
    PerBay<bool> isOverSize;   ///< the bay is shown as too small for the selection
    PerBay<bool> isNotErased;  ///< the run was to erase the bay's disk first, and did not
    /// The disks whose rows the bays showed; a disk that is another one by the time of the run is passed
    /// over. Without it that is not compared.
    std::optional<ShownDisks> shown;
    /// The bytes of the selection as counted, which the plan fits into the bays itself. Without them, and
    /// once a run has erased, a bay is too small only when it is shown so.
    std::optional<std::uint64_t> selectedBytes;
    bool erase = false;
    bool verify = false;

    /// Bay A while the source is the disk in it.
    bool isSourceBay(Bay bay) const { return bay == Bay::A && slotAisSource; }
};

} // namespace orvana
