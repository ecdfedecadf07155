#include "platform/simulator/MachineReader.h"

#include "foundation/DisplayPath.h"

#include <nlohmann/json.hpp>
#include <set>

namespace orvana::platform::simulator
{

namespace
{

struct WrongEntry
{
    std::string reason;
};

[[noreturn]] void reject(const std::string &where, const std::string &reason)
{
    throw WrongEntry{(where.empty() ? "/" : where) + ": " + reason};
}

/// The members of one JSON object. Every known key must be asked for before `end`, which rejects all other
/// keys, such as a misspelt key.
class Fields
{
public:
    Fields(const Json &object, std::string where) : m_object(object), m_where(std::move(where))
    {
        if (!m_object.is_object())
            reject(m_where, "must be an object");
    }

    const std::string &where() const { return m_where; }

    std::optional<std::string> text(const char *key)
    {
        const auto *value = find(key);
        if (!value)
            return std::nullopt;
        if (!value->is_string())
            reject(m_where + "/" + key, "must be a text");
        return value->get<std::string>();
    }

    std::optional<std::int64_t> number(const char *key, std::int64_t least = 0)
    {
        const auto *value = find(key);
        if (!value)
            return std::nullopt;
        if (!value->is_number_integer() ||
            (value->is_number_unsigned() && value->get<std::uint64_t>() > std::uint64_t{INT64_MAX}))
            reject(m_where + "/" + key, "must be a whole number");
        if (value->get<std::int64_t>() < least)
            reject(m_where + "/" + key, "must not be less than " + std::to_string(least));
        return value->get<std::int64_t>();
    }

    bool flag(const char *key, bool otherwise)
    {
        const auto *value = find(key);
        if (!value)
            return otherwise;
        if (!value->is_boolean())
            reject(m_where + "/" + key, "must be true or false");
        return value->get<bool>();
    }

    std::string requiredText(const char *key)
    {
        auto value = text(key);
        if (!value)
            reject(m_where, std::string("needs \"") + key + "\"");
        return *value;
    }

    std::int64_t requiredNumber(const char *key)
    {
        const auto value = number(key);
        if (!value)
            reject(m_where, std::string("needs \"") + key + "\"");
        return *value;
    }

    /// Calls `read(entry, where)` for each entry of a list, if there is one.
    template <class Read>
    void list(const char *key, Read read)
    {
        const auto *value = find(key);
        if (!value)
            return;
        const auto place = m_where + "/" + key;
        if (!value->is_array())
            reject(place, "must be a list");
        for (std::size_t i = 0; i < value->size(); ++i)
            read((*value)[i], place + "/" + std::to_string(i));
    }

    const Json *object(const char *key) { return find(key); }

    void end() const
    {
        for (const auto &[key, value] : m_object.items()) {
            if (!m_known.contains(key))
                reject(m_where + "/" + key, "is not a known key");
        }
    }

private:
    const Json *find(const char *key)
    {
        m_known.insert(key);
        const auto found = m_object.find(key);
        return found == m_object.end() ? nullptr : &*found;
    }

    const Json &m_object;
    std::string m_where;
    std::set<std::string> m_known;
};

void checkName(const std::string &name, const std::string &where)
{
    if (!isVolumeName(name))
        reject(where, "\"" + name + "\" cannot be the name of a volume");
}

Content readContent(const Json &json, const std::string &where)
{
    Fields fields(json, where);
    Content content;
    content.path = fields.requiredText("path");
    content.bytes = static_cast<std::uint64_t>(fields.number("bytes").value_or(0));
    content.files =
        static_cast<int>(std::min<std::int64_t>(fields.number("files", 1).value_or(1), 1'000'000));
    if (content.path.empty() || content.path.front() == '/' ||
        ("/" + content.path + "/").find("/../") != std::string::npos)
        reject(where + "/path", "must lie within the volume");
    fields.end();
    return content;
}

Volume readVolume(const Json &json, const std::string &where)
{
    Fields fields(json, where);
    Volume volume;
    volume.where = where;
    volume.isStartup = fields.flag("startup", false);
    volume.name = fields.requiredText("name");
    checkName(volume.name, where + "/name");
    volume.capacity = fields.requiredNumber("capacity");
    volume.isMounted = fields.flag("mounted", true);
    fields.list("content", [&](const Json &entry, const std::string &place) {
        volume.content.push_back(readContent(entry, place));
    });
    if (const auto *faults = fields.object("faults")) {
        Fields switches(*faults, where + "/faults");
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

void readCommon(Disk &disk, Fields &fields)
{
    disk.where = fields.where();
    disk.size = fields.requiredNumber("size");
    disk.isAttached = fields.flag("attached", true);
    disk.serial = fields.text("serial");
    disk.wwn = fields.text("wwn");
    fields.list("volumes", [&](const Json &entry, const std::string &place) {
        disk.volumes.push_back(readVolume(entry, place));
    });
}

void readSata(Disk &disk, Fields &fields)
{
    disk.model = fields.text("model");
    disk.isFormatted = fields.flag("formatted", true);
    disk.isRaid = fields.flag("raid", false);
}

Disk readDisk(const Json &json, const std::string &where, DiskKind kind)
{
    Fields fields(json, where);
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
    Fields fields(json, where);
    Disk disk;
    disk.bay = fields.requiredText("bay");
    if (disk.bay != "A" && disk.bay != "B" && disk.bay != "C" && disk.bay != "D")
        reject(where + "/bay", "must be \"A\", \"B\", \"C\" or \"D\"");
    disk.bridge = fields.number("bridge");
    disk.image = fields.text("image");
    readCommon(disk, fields);
    readSata(disk, fields);
    if (disk.image && disk.volumes.size() > 1)
        reject(where + "/volumes", "an image holds one volume");
    fields.end();
    return disk;
}

Enclosure readEnclosure(const Json &json, const std::string &where)
{
    Fields fields(json, where);
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
        reject(where + "/controller", "must be \"612\" or \"625\"");
    enclosure.isAttached = fields.flag("attached", true);
    std::set<std::string> bays;
    fields.list("bays", [&](const Json &entry, const std::string &place) {
        enclosure.bays.push_back(readBay(entry, place));
        if (!bays.insert(enclosure.bays.back().bay).second)
            reject(place + "/bay", "bay " + enclosure.bays.back().bay + " is given twice");
    });
    fields.end();
    return enclosure;
}

void readTrouble(Machine &machine, Fields &fields)
{
    if (const auto *delays = fields.object("delays")) {
        Fields times(*delays, "/delays");
        for (const char *command : {"df", "eraseDisk", "eject"}) {
            if (const auto milliseconds = times.number(command))
                machine.delays[command] = *milliseconds;
        }
        times.end();
    }
    fields.list("failing", [&](const Json &entry, const std::string &place) {
        if (!entry.is_string())
            reject(place, "must be a text");
        machine.failing.push_back(entry.get<std::string>());
    });
}

Machine readAll(const Json &json)
{
    Fields fields(json, "");
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
    readTrouble(machine, fields);
    fields.end();
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
    } catch (const WrongEntry &entry) {
        // The reason holds keys of the file as unchanged bytes.
        return tl::unexpected(displayPath(entry.reason));
    }
}

} // namespace orvana::platform::simulator
