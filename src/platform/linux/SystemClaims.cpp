#include "platform/linux/SystemClaims.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/Disks.h"
#include "platform/linux/SystemState.h"
#include "platform/posix/BoundedRead.h"
#include "platform/posix/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

namespace orvana::platform::linux_host
{

namespace
{

// Below these folders users mount what they plug in.
bool isUsersPlace(const std::string &point)
{
    return isBelow(point, "/media") || isBelow(point, "/run/media");
}

/// The bytes of a file of at most 1 MiB; nullopt when there may be something in it that cannot be read.
std::optional<std::string> textOfFile(const std::string &path)
{
    constexpr std::size_t Most = 1'048'576;
    // Without O_NONBLOCK a FIFO would be waited for.
    const posix::Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return errno == ENOENT || errno == ENOTDIR ? std::optional<std::string>("") : std::nullopt;
    auto text = posix::readAtMost(file.number(), Most);
    return text ? std::move(*text) : std::nullopt;
}

std::string withoutQuotes(std::string text)
{
    std::erase(text, '"');
    return text;
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

bool isLetterOrDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string alphanumeric(std::string text)
{
    std::erase_if(text, [](char c) { return !isLetterOrDigit(c); });
    return lower(std::move(text));
}

// UUIDs have no case; labels have.
std::string normalized(std::string name)
{
    name = withoutQuotes(std::move(name));
    const auto equal = std::min(name.find('='), name.size());
    auto key = name.substr(0, equal);
    if (name.starts_with("/dev/disk/by-uuid/"))
        return "UUID=" + lower(name.substr(18));
    if (key == "UUID" || key == "PARTUUID")
        return key + lower(name.substr(equal));
    return name;
}

/// Returns the words of each line that is no comment.
std::vector<std::vector<std::string>> linesOf(const std::string &text)
{
    std::vector<std::vector<std::string>> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        lines.emplace_back();
        for (std::string word; words >> word && word.front() != '#';)
            lines.back().push_back(word);
    }
    return lines;
}

std::vector<std::string> normalized(std::vector<std::string> names)
{
    for (auto &name : names)
        name = normalized(std::move(name));
    return names;
}

/// Returns every name of a device in the text, wherever it stands: "/key:UUID=1", "logdev=/dev/sdb".
std::vector<std::string> namesAnywhereIn(const std::string &text)
{
    std::vector<std::string> names;
    for (const auto &words : linesOf(text)) {
        for (const auto &word : words) {
            std::string piece;
            for (const char c : word + ",") {
                if (c != ',' && c != ':') {
                    piece += c;
                    continue;
                }
                const auto equal = piece.find('=');
                if (equal != std::string::npos)
                    names.push_back(piece.substr(equal + 1));
                names.push_back(std::exchange(piece, {}));
            }
        }
    }
    return normalized(std::move(names));
}

std::vector<std::string> arraysIn(const std::string &text)
{
    std::vector<std::string> names;
    for (const auto &words : linesOf(text)) {
        for (const auto &word : words) {
            const auto key = lower(word.substr(0, word.find('=')));
            const auto value = word.substr(std::min(word.find('=') + 1, word.size()));
            if (key == "uuid")
                names.push_back("MD=" + alphanumeric(value));
            std::istringstream nodes(key == "devices" ? value : std::string());
            for (std::string node; std::getline(nodes, node, ',');)
                names.push_back(node);
        }
    }
    return names;
}

std::vector<std::string> groupsIn(const std::string &text)
{
    std::vector<std::string> names;
    for (const auto &words : linesOf(text)) {
        for (const auto &word : words) {
            if (word.starts_with("PVID="))
                names.push_back("PVID=" + alphanumeric(word.substr(5)));
        }
    }
    return names;
}

/// Returns all names by which a table could mean the device.
std::vector<std::string> namesOf(const Device &device)
{
    std::vector<std::string> names{"/dev/" + device.name};
    const auto add = [&](const char *key, const char *property) {
        if (const auto value = decoded(device.property(property)); !value.empty())
            names.push_back(normalized(std::string(key) + value));
    };
    add("UUID=", "ID_FS_UUID");
    add("UUID=", "ID_FS_UUID_SUB");
    add("LABEL=", "ID_FS_LABEL_ENC");
    add("LABEL=", "ID_FS_LABEL");
    add("PARTUUID=", "ID_PART_ENTRY_UUID");
    add("PARTLABEL=", "ID_PART_ENTRY_NAME");
    const auto type = device.property("ID_FS_TYPE");
    const auto uuid = alphanumeric(device.property("ID_FS_UUID"));
    if (type == "linux_raid_member")
        names.push_back("MD=" + uuid);
    if (type == "LVM2_member")
        names.push_back("PVID=" + uuid);
    std::istringstream links(device.property("DEVLINKS"));
    for (std::string link; links >> link;)
        names.push_back(normalized(link));
    return names;
}

bool namesDevice(const std::string &name, const std::vector<std::string> &names)
{
    if (std::find(names.begin(), names.end(), name) != names.end())
        return true;
    // Links that udev did not make lead to a device, too.
    std::error_code error;
    const auto place = name.starts_with("/dev/") ? std::filesystem::canonical(name, error).native() : "";
    return !place.empty() && std::find(names.begin(), names.end(), place) != names.end();
}

// The file is a packed list, in which paths stand between other bytes.
bool holdsPath(const std::string &bytes, const std::string &path)
{
    for (auto at = bytes.find(path); at != std::string::npos; at = bytes.find(path, at + 1)) {
        const char after = at + path.size() < bytes.size() ? bytes[at + path.size()] : '\0';
        if (!isLetterOrDigit(after) && after != '-' && after != '_')
            return true;
    }
    return false;
}

} // namespace

SystemClaims::SystemClaims(const std::string &folder) : m_folder(folder)
{
    const auto in = [&](const char *file) { return textOfFile(folder + "/" + file); };
    const auto crypttab = in("crypttab");
    m_isCrypttabHidden = !crypttab;
    auto fstab = normalized(readFileSystemTable(folder + "/fstab"));
    auto inOptions = namesAnywhereIn(in("fstab").value_or(""));
    fstab.insert(fstab.end(), std::make_move_iterator(inOptions.begin()),
                 std::make_move_iterator(inOptions.end()));
    m_tables = {{"fstab", std::move(fstab)},
                {"crypttab", namesAnywhereIn(crypttab.value_or(""))},
                {"mdadm/mdadm.conf", arraysIn(in("mdadm/mdadm.conf").value_or(""))},
                {"mdadm.conf", arraysIn(in("mdadm.conf").value_or(""))},
                {"lvm/devices/system.devices", groupsIn(in("lvm/devices/system.devices").value_or(""))}};
    m_pools = in("zfs/zpool.cache").value_or("");
}

std::string SystemClaims::tableNaming(const Device &device) const
{
    const auto names = namesOf(device);
    for (const auto &table : m_tables) {
        if (std::any_of(table.names.begin(), table.names.end(),
                        [&](const std::string &name) { return namesDevice(name, names); }))
            return m_folder + "/" + table.file;
    }
    const bool isInPool = std::any_of(names.begin(), names.end(), [&](const std::string &name) {
        return name.starts_with("/dev/") && holdsPath(m_pools, name);
    });
    return isInPool ? m_folder + "/zfs/zpool.cache" : std::string();
}

std::string SystemClaims::reasonFor(const SystemState &system, const Device &disk) const
{
    auto devices = system.devices.partitionsOf(disk);
    devices.push_back(&disk);
    if (std::any_of(devices.begin(), devices.end(),
                    [&](const Device *device) { return system.beneathRoot.contains(device->name); }))
        return {};
    for (const auto *device : devices) {
        if (const auto table = tableNaming(*device); !table.empty())
            return "is named by " + table;
        if (m_isCrypttabHidden && device->property("ID_FS_USAGE") == "crypto")
            return "is encrypted, and " + m_folder + "/crypttab, which may name it, cannot be read";
        if (system.isPooled(*device))
            return "belongs to a pool of several disks that is in use";
        for (const auto &mount : system.mounts) {
            if (deviceOf(system.devices, mount) == device && !isUsersPlace(mount.target))
                return "is mounted at " + displayPath(mount.target) + ", where users mount nothing";
        }
    }
    return {};
}

} // namespace orvana::platform::linux_host
