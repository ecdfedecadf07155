#pragma once

#include "duplicate/disktool/VolumeName.h"
#include "duplicate/plan/ScannedDevices.h"

#include <tl/expected.hpp>

namespace orvana
{

// What is never done, whatever a flag says. Decided by disk records; each answer names what it is about, so
// that window and terminal can tell it.

/// Why nothing at all is done with the chosen enclosure.
enum class EnclosureRefusal {
    NoneChosen,  ///< the picker shows its placeholder
    NotThere,    ///< there is none at that place of the picker any more
    AnotherOne,  ///< there is another one, or it cannot be told apart from another
    StartupDisk, ///< one of its disks is the start-up disk
    RaidSet,     ///< one of its disks belongs to a RAID set
};

std::string refusalText(EnclosureRefusal refusal);

/// The chosen enclosure as it is now.
tl::expected<std::shared_ptr<ORVThunderboltInfo>, EnclosureRefusal>
chosenEnclosure(const ScannedDevices &devices, const ChosenEnclosure &chosen);

/// The chosen enclosure with its place in the picker as it is now: a rescan may have moved it, and put the
/// picker back. Unchanged when it is not there any more.
ChosenEnclosure whereItIsNow(const ScannedDevices &devices, ChosenEnclosure chosen);

/// Why no run may start with the enclosure; looks at all of its disks.
std::optional<EnclosureRefusal> refusalOfStart(const ORVThunderboltInfo &enclosure,
                                               const ScannedDevices &devices);

/// Why one disk is passed over.
enum class RefusalReason {
    CarriesSource, ///< one of its volumes is the source
    MayBeSource,   ///< it cannot be told from a disk of the source
    StartupDisk,   ///< it carries the start-up volume
    RaidSet,       ///< it belongs to a RAID set
    NoDevice,      ///< it has no device node
    NotCertain,    ///< another disk claims the same bay, or the same device node
    NoName,        ///< its volume has no name
    NotMounted,    ///< its volume is mounted nowhere, or something else is there
    NotErased,     ///< the run was to erase it first, and did not
    OtherDisk,     ///< it is not the disk that was shown
    OtherVolume,   ///< it no longer holds the volume that was shown
    InUse,         ///< another run works on its volume
    ReadOnly,      ///< its volume is mounted read-only, and the run does not erase it first
    SameName,      ///< a bay before it shows the same name
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

/// True when the disk is one of the disks that the run reads from, or carries a volume that the tree's root
/// lies in, or one called like the source row or the chosen pop-up item.
bool carriesSource(const ORVHddInfo &disk, const ScannedDevices &devices, const RunChoice &choice,
                   const UserHome &user);

/// Why the disk may neither be erased nor written to nor ejected with the destinations, whatever its bay
/// shows; nothing when it may.
std::optional<RefusalReason> refusalOf(const ORVHddInfo &disk, const ScannedDevices &devices,
                                       const RunChoice &choice, const UserHome &user);

/// Why a disk of the chosen enclosure, in one of its bays, may neither be erased nor written to: what
/// `refusalOf` says, and that it belongs to a RAID set, cannot be told from another, or is not the one that
/// was shown.
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
