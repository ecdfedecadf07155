#include "enclosures/Definition.h"

#include "foundation/DisplayPath.h"
#include "foundation/JsonFields.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace orvana::enclosures
{

namespace
{

constexpr std::size_t LongestName = 64;
constexpr std::size_t LongestPort = 255;
constexpr std::uint16_t RootHubVendor = 0x1d6b; // the vendor number of the kernel's own root hubs

bool consistsOf(std::string_view text, std::string_view extra)
{
    return std::all_of(text.begin(), text.end(), [&](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               extra.find(c) != std::string_view::npos;
    });
}

std::string hex(std::uint16_t number)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%04x", number);
    return text.data();
}

std::string idsOf(const Anchor &anchor)
{
    return hex(anchor.vendor) + ":" + hex(anchor.product);
}

std::uint16_t readHex(const std::string &text, const std::string &where)
{
    std::uint16_t number = 0;
    for (const char c : text) {
        const int digit = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
        if (text.size() != 4 || digit < 0)
            rejectEntry(where, "must be two numbers of four hexadecimal digits, like \"2109:0817\"");
        number = static_cast<std::uint16_t>(number * 16 + digit);
    }
    return number;
}

Anchor readAnchor(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    const auto usb = fields.text("usb");
    const auto pci = fields.text("pci");
    if (usb.has_value() == pci.has_value())
        rejectEntry(where, "needs either \"usb\" or \"pci\"");
    Anchor anchor{usb ? Bus::Usb : Bus::Pci, 0, 0, fields.text("serial").value_or("")};
    const auto place = where + (usb ? "/usb" : "/pci");
    const auto &ids = usb ? *usb : *pci;
    const auto colon = std::min(ids.find(':'), ids.size());
    anchor.vendor = readHex(ids.substr(0, colon), place);
    anchor.product = readHex(ids.substr(std::min(colon + 1, ids.size())), place);
    if (colon == ids.size() || ids.size() != 9)
        rejectEntry(place, "must be two numbers of four hexadecimal digits, like \"2109:0817\"");
    if (pci && !anchor.serial.empty())
        rejectEntry(where + "/serial", "is known of USB devices only");
    if (usb && anchor.vendor == RootHubVendor)
        rejectEntry(place, "is the machine's own hub, which every machine has; name the port by \"path\"");
    if (anchor.serial.size() > LongestPort || displayPath(anchor.serial) != anchor.serial)
        rejectEntry(where + "/serial", "must be a short text on one line");
    fields.end();
    return anchor;
}

// Older versions of udev leave out the target number of a SATA disk, which is 0.
std::string withTarget(std::string path)
{
    const auto ata = path.rfind("-ata-");
    if (ata != std::string::npos && path.find_first_not_of("0123456789", ata + 5) == std::string::npos)
        path += ".0";
    return path;
}

void checkBelow(const Port &port, const std::string &where)
{
    const bool isUsb = port.anchor->bus == Bus::Usb;
    const auto allowed = isUsb ? std::string_view("0123456789.") : std::string_view();
    const bool isFine =
        isUsb ? port.below.find_first_not_of(allowed) == std::string::npos : consistsOf(port.below, ":./_-");
    if (!isFine || port.below.size() > LongestPort)
        rejectEntry(where, isUsb ? "must be the numbers of ports, like \"3\" or \"1.3\""
                                 : "must be a place below the bridge, like \"01.0/00.0-nvme-1\"");
}

Port readPort(const Json &json, const std::string &where, const std::optional<Anchor> &common)
{
    JsonFields fields(json, where);
    Port port;
    const auto path = fields.text("path");
    const auto below = fields.text("port");
    const auto *anchor = fields.value("anchor");
    if (const auto lun = fields.number("lun"))
        port.lun = static_cast<int>(std::min<std::int64_t>(*lun, 1 << 20));
    fields.end();
    if (path) {
        if (below || anchor || port.lun)
            rejectEntry(where, "\"path\" says all; it cannot stand beside \"port\", \"anchor\" or \"lun\"");
        if (path->empty() || path->size() > LongestPort || !consistsOf(*path, ":._+-"))
            rejectEntry(where + "/path", "must be a disk's ID_PATH, like \"pci-0000:00:17.0-ata-3.0\"");
        port.path = withTarget(*path);
        return port;
    }
    if (!below && !port.lun)
        rejectEntry(where, "needs \"path\", \"port\" or \"lun\"");
    port.below = below.value_or("");
    port.anchor = anchor ? std::optional(readAnchor(*anchor, where + "/anchor")) : common;
    if (!port.anchor)
        rejectEntry(where, "needs an \"anchor\", its own or the definition's");
    checkBelow(port, where + "/port");
    return port;
}

std::vector<Port> readPorts(const Json &json, const std::string &where, const std::optional<Anchor> &common)
{
    if (!json.is_array())
        return {readPort(json, where, common)};
    std::vector<Port> ports;
    ports.reserve(json.size());
    for (std::size_t i = 0; i < json.size(); ++i)
        ports.push_back(readPort(json[i], where + "/" + std::to_string(i), common));
    if (ports.empty() || ports.size() > 8)
        rejectEntry(where, "needs one to eight ports");
    return ports;
}

void readBays(const Json *json, const std::optional<Anchor> &common, Definition &definition)
{
    if (!json)
        rejectEntry("", "needs \"bays\"");
    JsonFields fields(*json, "/bays");
    std::map<Port, char> taken;
    for (const char bay : {'A', 'B', 'C', 'D'}) {
        const std::string key(1, bay);
        const auto *ports = fields.value(key.c_str());
        if (!ports)
            continue;
        definition.bays[bay] = readPorts(*ports, "/bays/" + key, common);
        for (const auto &port : definition.bays[bay]) {
            if (const auto [other, isNew] = taken.emplace(port, bay); !isNew)
                rejectEntry("/bays/" + key, nameOf(port) + " is given twice");
        }
    }
    fields.end();
    if (definition.bays.size() < 2)
        rejectEntry("/bays", "needs two to four bays");
}

Definition readAll(const std::string &id, const Json &json)
{
    JsonFields fields(json, "");
    if (fields.requiredNumber("version") != 1)
        rejectEntry("/version", "must be 1; a later version of the program may read this file");
    Definition definition{id, fields.requiredText("name"), {}};
    if (definition.name.empty() || definition.name.size() > LongestName ||
        displayPath(definition.name) != definition.name)
        rejectEntry("/name", "must be 1 to 64 bytes of text on one line");
    const auto *anchor = fields.value("anchor");
    const auto common = anchor ? std::optional(readAnchor(*anchor, "/anchor")) : std::nullopt;
    readBays(fields.value("bays"), common, definition);
    fields.end();
    return definition;
}

Json jsonOf(const Anchor &anchor)
{
    Json json{{anchor.bus == Bus::Usb ? "usb" : "pci", idsOf(anchor)}};
    if (!anchor.serial.empty())
        json["serial"] = anchor.serial;
    return json;
}

Json jsonOf(const Port &port, const std::optional<Anchor> &common)
{
    if (!port.anchor)
        return Json{{"path", port.path}};
    Json json = Json::object();
    if (port.anchor != common)
        json["anchor"] = jsonOf(*port.anchor);
    if (!port.below.empty() || !port.lun)
        json["port"] = port.below;
    if (port.lun)
        json["lun"] = *port.lun;
    return json;
}

} // namespace

std::string nameOf(const Anchor &anchor)
{
    auto name = (anchor.bus == Bus::Usb ? "USB " : "PCI ") + idsOf(anchor);
    if (!anchor.serial.empty())
        name += " with serial number " + displayPath(anchor.serial);
    return name;
}

std::string nameOf(const Port &port)
{
    if (!port.anchor)
        return displayPath(port.path);
    std::string name;
    if (!port.below.empty())
        name = "port " + displayPath(port.below);
    if (port.lun)
        name.append(name.empty() ? "" : ", ").append("LUN ").append(std::to_string(*port.lun));
    return (name.empty() ? "the disk" : name) + " below " + nameOf(*port.anchor);
}

tl::expected<Definition, std::string> readDefinition(const std::string &id, std::string_view text)
{
    const auto json = parseJson(text);
    if (!json)
        return tl::unexpected(json.error());
    try {
        return readAll(id, *json);
    } catch (const WrongJsonEntry &entry) {
        return tl::unexpected(displayPath(entry.reason));
    }
}

std::string textOf(const Definition &definition)
{
    // The first port's anchor stands at the top, because most docks have only one.
    std::optional<Anchor> common;
    for (const auto &[bay, ports] : definition.bays) {
        for (const auto &port : ports) {
            if (!common)
                common = port.anchor;
        }
    }
    Json json{{"version", 1}, {"name", definition.name}};
    if (common)
        json["anchor"] = jsonOf(*common);
    for (const auto &[bay, ports] : definition.bays) {
        auto &entry = json["bays"][std::string(1, bay)];
        if (ports.size() == 1) {
            entry = jsonOf(ports.front(), common);
            continue;
        }
        for (const auto &port : ports)
            entry.push_back(jsonOf(port, common));
    }
    return json.dump(2) + "\n";
}

bool isDefinitionId(std::string_view id)
{
    return !id.empty() && id.size() <= LongestName &&
           id.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") == std::string_view::npos;
}

std::string idOfName(std::string_view name)
{
    std::string id;
    for (const char c : name.substr(0, LongestName)) {
        const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if ((lower >= 'a' && lower <= 'z') || (lower >= '0' && lower <= '9'))
            id += lower;
        else if (!id.empty() && id.back() != '-')
            id += '-';
    }
    while (!id.empty() && id.back() == '-')
        id.pop_back();
    return id;
}

std::string slotOf(char bay)
{
    return std::string("Slot-") + bay;
}

} // namespace orvana::enclosures
