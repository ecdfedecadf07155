#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "duplicate/disktool/VolumeName.h"
#include "duplicate/plan/RunSettings.h"
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

    bool operator==(const PerBay &) const = default;

private:
    std::array<Value, AllBays.size()> m_values{};
};

/// Returns "Slot-A" to "Slot-D". Disk records (`slotPath`) and the rows of the slot panel use these names.
std::string slotNameOf(Bay bay);

/// Returns the bay of that name, or nullopt for any other text.
std::optional<Bay> bayNamed(std::string_view slotName);

/// The enclosure that the user chose: its place in the picker, and its UID when it was chosen. Item 0 of the
/// picker is a placeholder. The place alone is not enough, because enclosures come and go.
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

/// The user's choices for a run, made in the window or in the terminal. Texts are bytes as they came from the
/// disks or were typed.
struct RunChoice
{
    ChosenEnclosure enclosure;
    std::string source;     ///< the source row's name: the name of a volume, or the login name
    std::string sourceItem; ///< title of the chosen item in the source pop-up
    std::string sourceRoot; ///< root of the file tree; empty when there is none
    std::vector<DiskFingerprint> sourceDisks; ///< all disks that the run reads from, and must not change
    bool slotAisSource = true;
    PerBay<std::string> names; ///< the bays' name fields; with erase on, the new names
    PerBay<bool> isOverSize;   ///< the bay is shown as too small for the selection
    PerBay<bool> isLeftAlone;  ///< the run has nothing to do with the bay, whatever is in it
    PerBay<bool> isFailing;    ///< the bay's disk calls itself failing, and must not be used
    std::vector<std::string>
        insisted;             ///< serial numbers of disks that are used although they call themselves failing
    PerBay<bool> isNotErased; ///< the run had to erase the bay's disk first, but did not
    /// The disks that the bays showed. A bay that holds another disk at the time of the run is left out.
    /// Without a value the disks are not compared.
    std::optional<ShownDisks> shown;
    /// The bytes of the selection, as counted. A disk that cannot hold them is not erased, also when its bay
    /// is not shown as too small. Nullopt: that is not checked.
    std::optional<std::uint64_t> selectedBytes;
    bool erase = false;
    bool verify = false;
    RunSettings settings;

    /// True for bay A while the source is the disk in bay A.
    bool isSourceBay(Bay bay) const { return bay == Bay::A && slotAisSource; }
};

} // namespace orvana
