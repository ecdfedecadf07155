#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

/// Enclosure definitions: which ports of the machine are the bays of which enclosure. A definition turns any
/// dock, hub or backplane into an enclosure like the maker's own. docs/enclosures.md explains the files.
namespace orvana::enclosures
{

/// The kind of device from which the ports of a dock are counted.
enum class Bus {
    Usb, ///< a hub, or the bridge chip of a case with several disks
    Pci, ///< a bridge or a controller
};

/// A device as a definition names it. Wherever a device like it is plugged in, there is the dock.
struct Anchor
{
    Bus bus = Bus::Usb;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::string serial; ///< USB only; empty when the definition names none

    auto operator<=>(const Anchor &) const = default;
};

/// Returns the anchor in words: "USB 2109:0817 with serial number D1".
std::string nameOf(const Anchor &anchor);

/// A place where a disk can be. Either `path` names it, or it lies below the anchor.
struct Port
{
    std::string path;             ///< udev's ID_PATH of the disk: "pci-0000:00:17.0-ata-3.0"
    std::optional<Anchor> anchor; ///< set exactly when `path` is empty
    std::string below;            ///< place below the anchor: "3", "1.3", "01.0/00.0-nvme-1"; may be empty
    std::optional<int> lun;       ///< one of several disks behind one bridge; otherwise whichever is there

    auto operator<=>(const Port &) const = default;
};

/// Returns the port in words: "port 3 below USB 2109:0817".
std::string nameOf(const Port &port);

/// One enclosure. Bays are 'A' to 'D'.
struct Definition
{
    std::string id;   ///< name of its file without ".json"
    std::string name; ///< as the user sees it
    std::map<char, std::vector<Port>> bays;

    bool operator==(const Definition &) const = default;
};

/// Reads the text of a definition. The error names the entry and the reason: "/bays/A/port: must be a text".
tl::expected<Definition, std::string> readDefinition(const std::string &id, std::string_view text);

/// Returns the definition as the text of a file, in the one form in which this program writes it.
std::string textOf(const Definition &definition);

/// True for a text that may be the name of a definition's file: 1 to 64 of a-z, 0-9 and "-".
bool isDefinitionId(std::string_view id);

/// Returns the file's name for an enclosure's name: "desk-dock" for "Desk dock". Empty when no letter or
/// digit is left.
std::string idOfName(std::string_view name);

/// The bays as in "Slot-A".
std::string slotOf(char bay);

} // namespace orvana::enclosures
