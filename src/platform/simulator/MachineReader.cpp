#include "platform/simulator/MachineReader.h"

#include "foundation/DisplayPath.h"
#include "foundation/JsonFields.h"

#include <nlohmann/json.hpp>
#include <set>

namespace orvana::platform::simulator
{

namespace
{

void checkName(const std::string &name, const std::string &where)
{
    if (!isVolumeName(name))
        rejectEntry(where, "\"" + name + "\" cannot be the name of a volume");
}

Content readContent(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    Content content;
    content.path = fields.requiredText("path");
    content.bytes = static_cast<std::uint64_t>(fields.number("bytes").value_or(0));
    content.files =
        static_cast<int>(std::min<std::int64_t>(fields.number("files", 1).value_or(1), 1'000'000));
    if (content.path.empty() || content.path.front() == '/' ||
        ("/" + content.path + "/").find("/../") != std::string::npos)
        rejectEntry(where + "/path", "must lie within the volume");
    fields.end();
    return content;
}

Volume readVolume(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    Volume volume;
    volume.where = where;
    volume.isStartup = fields.flag("startup", false);
    volume.name = fields.requiredText("name");
    checkName(volume.name, where + "/name");
    volume.id = fields.text("id").value_or(where + "/" + volume.name);
    volume.capacity = fields.requiredNumber("capacity");
    volume.isMounted = fields.flag("mounted", true);
    fields.list("content", [&](const Json &entry, const std::string &place) {
        volume.content.push_back(readContent(entry, place));
    });
    if (const auto *faults = fields.value("faults")) {
        JsonFields switches(*faults, where + "/faults");
        for (const char *name : {"writeErrorAfter", "readErrorAfter", "goneAfter", "delayMilliseconds",
                                 "gone", "readOnly", "writeOutError", "syncError", "closeError"}) {
            if (const auto value = switches.number(name))
                volume.faults[name] = *value;
        }
        switches.end();
    }
    fields.end();
    return volume;
}

DiskHealth readHealth(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    DiskHealth health;
    if (fields.value("failing"))
        health.isFailing = fields.flag("failing", false);
    health.badSectors = fields.number("badSectors");
    health.hours = fields.number("hours");
    health.errors = fields.number("errors");
    health.linkRate = fields.text("link");
    if (const auto celsius = fields.number("celsius"))
        health.celsius = static_cast<double>(*celsius);
    fields.end();
    return health;
}

void readCommon(Disk &disk, JsonFields &fields)
{
    disk.where = fields.where();
    disk.size = fields.requiredNumber("size");
    disk.isAttached = fields.flag("attached", true);
    disk.serial = fields.text("serial");
    disk.wwn = fields.text("wwn");
    disk.realSize = fields.number("realSize");
    if (const auto *health = fields.value("health"))
        disk.health = readHealth(*health, fields.where() + "/health");
    fields.list("volumes", [&](const Json &entry, const std::string &place) {
        disk.volumes.push_back(readVolume(entry, place));
    });
}

void readSata(Disk &disk, JsonFields &fields)
{
    disk.model = fields.text("model");
    disk.isFormatted = fields.flag("formatted", true);
    disk.isRaid = fields.flag("raid", false);
}

Disk readDisk(const Json &json, const std::string &where, DiskKind kind)
{
    JsonFields fields(json, where);
    Disk disk;
    disk.kind = kind;
    readCommon(disk, fields);
    if (kind == DiskKind::Internal) {
        readSata(disk, fields);
    } else {
        disk.vendor = fields.text("vendor");
        disk.product = fields.text("product");
        disk.location = fields.text("location").value_or("External");
    }
    fields.end();
    return disk;
}

Disk readBay(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    Disk disk;
    disk.bay = fields.requiredText("bay");
    if (disk.bay != "A" && disk.bay != "B" && disk.bay != "C" && disk.bay != "D")
        rejectEntry(where + "/bay", "must be \"A\", \"B\", \"C\" or \"D\"");
    disk.bridge = fields.number("bridge");
    disk.image = fields.text("image");
    readCommon(disk, fields);
    readSata(disk, fields);
    if (disk.image && disk.volumes.size() > 1)
        rejectEntry(where + "/volumes", "an image holds one volume");
    fields.end();
    return disk;
}

Enclosure readEnclosure(const Json &json, const std::string &where)
{
    JsonFields fields(json, where);
    Enclosure enclosure;
    enclosure.where = where;
    enclosure.name = fields.text("name").value_or("Orvana Storage");
    enclosure.vendorName = fields.text("vendorName").value_or("Orvana");
    enclosure.vendor = fields.number("vendor").value_or(MakerVendor);
    enclosure.model = fields.number("model").value_or(FourBayModels.front());
    enclosure.uid = fields.requiredNumber("uid");
    enclosure.depth = fields.number("depth").value_or(1);
    enclosure.route = fields.number("route").value_or(1);
    enclosure.controller = fields.text("controller").value_or("612");
    if (enclosure.controller != "612" && enclosure.controller != "625")
        rejectEntry(where + "/controller", "must be \"612\" or \"625\"");
    enclosure.isAttached = fields.flag("attached", true);
    std::set<std::string> bays;
    fields.list("bays", [&](const Json &entry, const std::string &place) {
        enclosure.bays.push_back(readBay(entry, place));
        if (!bays.insert(enclosure.bays.back().bay).second)
            rejectEntry(place + "/bay", "bay " + enclosure.bays.back().bay + " is given twice");
    });
    fields.end();
    return enclosure;
}

PortDisk readPortDisk(const Json &json, const std::string &where, bool isInDock)
{
    JsonFields fields(json, where);
    PortDisk port;
    if (isInDock) {
        port.port = fields.text("port").value_or("");
        if (const auto lun = fields.number("lun"))
            port.lun = static_cast<int>(std::min<std::int64_t>(*lun, 1 << 20));
        port.disk.vendor = fields.text("vendor");
        port.disk.product = fields.text("product");
    } else {
        port.port = fields.requiredText("path");
    }
    readCommon(port.disk, fields);
    readSata(port.disk, fields);
    fields.end();
    return port;
}

Dock readDock(const Json &json, const std::string &where, std::size_t index)
{
    JsonFields fields(json, where);
    Dock dock;
    dock.where = where;
    dock.at = fields.text("at").value_or(std::to_string(index + 1));
    dock.isAttached = fields.flag("attached", true);
    Json ids = Json::object();
    for (const char *key : {"usb", "pci", "serial"}) {
        if (const auto text = fields.text(key))
            ids[key] = *text;
    }
    // The ids are those of a definition, so the same reader takes them.
    const Json probe{{"version", 1},
                     {"name", "dock"},
                     {"anchor", ids},
                     {"bays", {{"A", {{"port", "1"}}}, {"B", {{"port", "2"}}}}}};
    const auto read = enclosures::readDefinition("dock", probe.dump());
    if (!read)
        rejectEntry(where, read.error());
    dock.ids = *read->bays.at('A').front().anchor;
    fields.list("disks", [&](const Json &entry, const std::string &place) {
        dock.disks.push_back(readPortDisk(entry, place, true));
    });
    fields.end();
    return dock;
}

enclosures::Definition readOneDefinition(const Json &json, const std::string &where)
{
    if (!json.is_object() || !json.contains("id") || !json["id"].is_string() ||
        !enclosures::isDefinitionId(json["id"].get<std::string>()))
        rejectEntry(where, "needs an \"id\" of a-z, 0-9 and \"-\"");
    auto entry = json;
    entry.erase("id");
    auto read = enclosures::readDefinition(json["id"].get<std::string>(), entry.dump());
    if (!read)
        rejectEntry(where, read.error());
    return std::move(*read);
}

void readPorts(Machine &machine, JsonFields &fields)
{
    fields.list("docks", [&](const Json &entry, const std::string &place) {
        machine.docks.push_back(readDock(entry, place, machine.docks.size()));
    });
    fields.list("backplane", [&](const Json &entry, const std::string &place) {
        machine.backplane.push_back(readPortDisk(entry, place, false));
    });
    fields.list("definitions", [&](const Json &entry, const std::string &place) {
        machine.definitions.push_back(readOneDefinition(entry, place));
        for (const auto &other : machine.definitions) {
            if (&other != &machine.definitions.back() && other.id == machine.definitions.back().id)
                rejectEntry(place + "/id", "\"" + other.id + "\" is given twice");
        }
    });
}

void readTrouble(Machine &machine, JsonFields &fields)
{
    if (const auto *delays = fields.value("delays")) {
        JsonFields times(*delays, "/delays");
        for (const char *command : {"df", "eraseDisk", "eject"}) {
            if (const auto milliseconds = times.number(command))
                machine.delays[command] = *milliseconds;
        }
        times.end();
    }
    fields.list("failing", [&](const Json &entry, const std::string &place) {
        if (!entry.is_string())
            rejectEntry(place, "must be a text");
        machine.failing.push_back(entry.get<std::string>());
    });
}

Machine readAll(const Json &json)
{
    JsonFields fields(json, "");
    Machine machine;
    machine.login = fields.requiredText("login");
    checkName(machine.login, "/login");
    const auto disks = [&](const char *key, DiskKind kind) {
        fields.list(key, [&](const Json &entry, const std::string &place) {
            machine.disks.push_back(readDisk(entry, place, kind));
        });
    };
    disks("internalDisks", DiskKind::Internal);
    disks("usbDisks", DiskKind::Usb);
    disks("fireWireDisks", DiskKind::FireWire);
    fields.list("enclosures", [&](const Json &entry, const std::string &place) {
        machine.enclosures.push_back(readEnclosure(entry, place));
    });
    readPorts(machine, fields);
    readTrouble(machine, fields);
    fields.end();
    putIntoBays(machine);
    return machine;
}

} // namespace

bool isVolumeName(const std::string &name)
{
    // A number may be added to the name, and the name of a folder has at most 255 bytes.
    constexpr std::size_t LongestName = 240;
    return !name.empty() && name != "." && name != ".." && name.size() <= LongestName &&
           name.find('/') == std::string::npos && name.find('\0') == std::string::npos;
}

tl::expected<MachineFile, std::string> readMachine(std::string_view text)
{
    auto json = std::make_shared<Json>(Json::parse(text, nullptr, false));
    if (json->is_discarded())
        return tl::unexpected(std::string("not JSON"));
    try {
        auto machine = readAll(*json);
        return MachineFile{std::move(json), std::move(machine)};
    } catch (const WrongJsonEntry &entry) {
        // The reason holds keys of the file as unchanged bytes.
        return tl::unexpected(displayPath(entry.reason));
    }
}

} // namespace orvana::platform::simulator
