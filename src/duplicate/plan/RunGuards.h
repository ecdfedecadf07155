#pragma once

#include "duplicate/disktool/VolumeName.h"
#include "duplicate/plan/ScannedDevices.h"

#include <tl/expected.hpp>

namespace orvana
{

// The things that a run never does, whatever a flag says. The disk records decide. Each refusal names the
// thing that it is about, so that window and terminal can report it.

/// The reasons to do nothing at all with the chosen enclosure.
enum class EnclosureRefusal {
    NoneChosen,  ///< the picker shows its placeholder
    NotThere,    ///< there is no enclosure at that place of the picker any more
    AnotherOne,  ///< another enclosure is there, or two enclosures cannot be told apart
    StartupDisk, ///< one of its disks is the start-up disk
    RaidSet,     ///< one of its disks belongs to a RAID set
};

std::string refusalText(EnclosureRefusal refusal);

/// Returns the chosen enclosure as it is now.
tl::expected<std::shared_ptr<ORVThunderboltInfo>, EnclosureRefusal>
chosenEnclosure(const ScannedDevices &devices, const ChosenEnclosure &chosen);

/// Returns `chosen` with the present place of the enclosure in the picker: a rescan may have moved the
/// enclosure and reset the picker. Returns it unchanged when the enclosure is not there any more.
ChosenEnclosure whereItIsNow(const ScannedDevices &devices, ChosenEnclosure chosen);

/// Returns why no run may start with the enclosure, or nullopt. Looks at all disks of the enclosure.
std::optional<EnclosureRefusal> refusalOfStart(const ORVThunderboltInfo &enclosure,
                                               const ScannedDevices &devices);

/// The reasons to leave a disk out.
enum class RefusalReason {
    CarriesSource, ///< one of its volumes is the source
    MayBeSource,   ///< it cannot be distinguished from a disk of the source
    StartupDisk,   ///< it carries the start-up volume
    RaidSet,       ///< it belongs to a RAID set
    NoDevice,      ///< it has no device node
    NotCertain,    ///< another disk claims the same bay, or the same device node
    NoName,        ///< its volume has no name
    NotMounted,    ///< its volume is mounted nowhere, or something else is there
    NotErased,     ///< the run had to erase it first, but did not
    OtherDisk,     ///< it is not the disk that was shown
    OtherVolume,   ///< it no longer holds the volume that was shown
    InUse,         ///< another run works on its volume
    ReadOnly,      ///< its volume is mounted read-only, and the run does not erase it first
    TooSmall,      ///< it was to be erased, and the counted selection does not fit into it
    Failing,       ///< it calls itself failing, and the run goes by that
    SameName,      ///< an earlier bay shows the same name, or its volume has the same mount point
};

/// "it carries the source"
std::string reasonText(RefusalReason reason);

struct DiskRefusal
{
    std::string bay;  ///< "Slot-A" to "Slot-D"
    std::string name; ///< as shown in the bay
    RefusalReason reason;
};

/// "Slot-B (COPY1): it carries the source"
std::string refusalText(const DiskRefusal &refusal);

/// True when the run reads from the disk, or when one of the disk's volumes is the source. A volume is the
/// source when the tree's root lies in it, or when it has the name of the source row or of the chosen pop-up
/// item.
bool carriesSource(const ORVHddInfo &disk, const ScannedDevices &devices, const RunChoice &choice,
                   const UserHome &user);

/// Returns why the disk may not be erased, written to or ejected with the destinations, whatever its bay
/// shows. Returns nullopt when it may.
std::optional<RefusalReason> refusalOf(const ORVHddInfo &disk, const ScannedDevices &devices,
                                       const RunChoice &choice, const UserHome &user);

/// Returns why a disk in a bay of the chosen enclosure may not be erased or written to, or nullopt. The
/// reasons are those of `refusalOf` and four more: the disk belongs to a RAID set, another disk claims its
/// place, it is not the disk that was shown, or it calls itself failing.
std::optional<RefusalReason> refusalOfTarget(const ORVHddInfo &disk, const ORVThunderboltInfo &enclosure,
                                             const ScannedDevices &devices, const RunChoice &choice,
                                             const UserHome &user);

struct NameRefusal
{
    std::string bay;
    std::string name;
    NameRefusalReason reason;
    EraseFormat format;
};

/// "Slot-B (A name that is too long): longer than 16 bytes, which is the limit of ext4"
std::string refusalText(const NameRefusal &refusal);

} // namespace orvana
