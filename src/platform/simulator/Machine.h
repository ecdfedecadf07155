#pragma once

#include "enclosures/BayClaims.h"
#include "platform/DiskHealth.h"
#include "platform/EnclosureModels.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// The simulated machine as its file describes it. The fields are explained in docs/simulator-file.md.
namespace orvana::platform::simulator
{

/// Content that a volume is given when it is first made.
struct Content
{
    std::string path;        ///< relative to the volume; the name of a folder of files when `files` > 1
    std::uint64_t bytes = 0; ///< of all files together
    int files = 1;
};

struct Volume
{
    std::string name;
    std::string id;         ///< the file system's id; made of place and name unless the file gives one
    bool isStartup = false; ///< mounted at "/", and holds the user's home
    bool isMounted = true;
    std::int64_t capacity = 0; ///< bytes
    std::vector<Content> content;
    std::map<std::string, std::int64_t> faults; ///< switches of `VolumeFaults`, by name
    std::string where;                          ///< JSON pointer of the entry in the file
};

enum class DiskKind { Bay, Internal, Usb, FireWire };

struct Disk
{
    DiskKind kind = DiskKind::Bay;
    std::string bay;                    ///< "A" to "D" in an enclosure
    std::optional<std::int64_t> bridge; ///< PCI bridge to use instead of the bay's own
    std::optional<std::string> model;   ///< SATA disks
    std::optional<std::string> serial;
    std::optional<std::string> wwn;     ///< World Wide Name
    std::optional<std::string> vendor;  ///< USB and FireWire disks
    std::optional<std::string> product; ///< USB and FireWire disks
    std::string location = "External";  ///< USB and FireWire disks
    std::int64_t size = 0;              ///< bytes
    std::optional<std::string> image;   ///< for bays: the file that holds the disk's bytes
    bool isFormatted = true;
    bool isRaid = false;
    bool isAttached = true;
    std::optional<std::int64_t> realSize; ///< bytes that a fake really holds
    DiskHealth health;
    std::vector<Volume> volumes;
    std::string where;
};

struct Enclosure
{
    std::string name;
    std::string vendorName;
    std::int64_t vendor = MakerVendor;
    std::int64_t model = FourBayModels.front();
    std::int64_t uid = 0;
    std::int64_t depth = 1;
    std::int64_t route = 1;
    std::string controller = "612"; ///< "612" has one port, "625" has two ports
    std::string definition;         ///< id of the definition that made it, or empty
    bool isAttached = true;
    std::vector<Disk> bays;
    std::string where;
};

/// A disk at a port that a definition may name.
struct PortDisk
{
    Disk disk;
    std::string port;       ///< below its dock: "3"; on the backplane: the whole path, as udev's ID_PATH
    std::optional<int> lun; ///< one of several disks behind one bridge
};

/// A device with ports: a hub, a dock, a case with several disks.
struct Dock
{
    enclosures::Anchor ids;
    std::string at; ///< port of the machine where it is plugged in
    bool isAttached = true;
    std::vector<PortDisk> disks;
    std::string where;
};

struct Machine
{
    std::string login;
    std::vector<Disk> disks; ///< internal, USB and FireWire, in this order
    std::vector<Enclosure> enclosures;
    std::map<std::string, std::int64_t> delays; ///< milliseconds, by command
    std::vector<std::string> failing;           ///< bays and commands that fail, like "eraseDisk B"
    std::vector<Dock> docks;
    std::vector<PortDisk> backplane;
    std::vector<enclosures::Definition> definitions;

    // Found by `putIntoBays`.
    std::vector<std::string> remarks;                    ///< what the definitions do not settle
    std::map<std::string, enclosures::DiskPlace> places; ///< of all disks outside the maker's enclosures
    std::vector<enclosures::AnchorDevice> anchors;       ///< the docks that are attached
};

/// Puts each disk of the docks and the backplane where the definitions say: into a bay of an enclosure that
/// is added for its definition, or else among the internal or USB disks.
void putIntoBays(Machine &machine);

} // namespace orvana::platform::simulator
