#include "platform/linux/DeviceList.h"

#include "platform/posix/PosixVolumeFiles.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <utility>

namespace orvana::platform::linux_host
{

namespace
{

std::string valueIn(const std::map<std::string, std::string> &values, const std::string &key)
{
    const auto found = values.find(key);
    return found == values.end() ? std::string() : found->second;
}

long numberIn(std::string_view text, int base)
{
    long number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size() ? number : -1;
}

} // namespace

std::string Device::property(const std::string &key) const
{
    return valueIn(properties, key);
}

std::string Device::attribute(const std::string &key) const
{
    return valueIn(attributes, key);
}

void DeviceList::add(Device device)
{
    const auto path = device.path;
    const auto &kept = m_devices.insert_or_assign(path, std::move(device)).first->second;
    if (kept.subsystem == "block")
        m_blocksByName[kept.name] = &kept;
}

std::vector<const Device *> DeviceList::ofSubsystem(std::string_view subsystem) const
{
    std::vector<const Device *> found;
    for (const auto &[path, device] : m_devices) {
        if (device.subsystem == subsystem)
            found.push_back(&device);
    }
    return found;
}

std::vector<const Device *> DeviceList::ofType(std::string_view type) const
{
    std::vector<const Device *> found;
    for (const auto &[path, device] : m_devices) {
        if (device.type == type)
            found.push_back(&device);
    }
    return found;
}

const Device *DeviceList::at(const std::string &path) const
{
    const auto found = m_devices.find(path);
    return found == m_devices.end() ? nullptr : &found->second;
}

const Device *DeviceList::above(const Device &device, std::string_view subsystem) const
{
    for (auto path = pathAbove(device.path); !path.empty(); path = pathAbove(path)) {
        const auto *found = at(path);
        if (found && found->subsystem == subsystem)
            return found;
    }
    return nullptr;
}

std::vector<const Device *> DeviceList::childrenOf(const Device &device) const
{
    std::vector<const Device *> found;
    for (auto next = m_devices.upper_bound(device.path); next != m_devices.end(); ++next) {
        if (!next->first.starts_with(device.path))
            break;
        if (next->second.subsystem == device.subsystem && pathAbove(next->first) == device.path)
            found.push_back(&next->second);
    }
    return found;
}

const Device *DeviceList::blockNamed(const std::string &name) const
{
    const auto found = m_blocksByName.find(name);
    return found == m_blocksByName.end() ? nullptr : found->second;
}

const Device *DeviceList::blockNumbered(const std::string &number) const
{
    const auto hasNumber = [&](const auto &entry) {
        return entry.second->property("MAJOR") + ":" + entry.second->property("MINOR") == number;
    };
    const auto found = std::find_if(m_blocksByName.begin(), m_blocksByName.end(), hasNumber);
    return found == m_blocksByName.end() ? nullptr : found->second;
}

const Device *DeviceList::blockAtNode(const std::string &node) const
{
    const auto isNode = [&](const auto &entry) {
        if ("/dev/" + entry.first == node || entry.second->property("DEVNAME") == node)
            return true;
        std::istringstream links(entry.second->property("DEVLINKS"));
        for (std::string link; links >> link;) {
            if (link == node)
                return true;
        }
        return false;
    };
    const auto found = std::find_if(m_blocksByName.begin(), m_blocksByName.end(), isNode);
    return found == m_blocksByName.end() ? nullptr : found->second;
}

std::vector<const Device *> DeviceList::partitionsOf(const Device &disk) const
{
    auto found = childrenOf(disk);
    std::erase_if(found, [](const Device *device) { return device->type != "partition"; });
    const auto place = [](const Device *device) {
        return std::pair(decimalNumber(device->attribute("partition")), device->path);
    };
    std::sort(found.begin(), found.end(),
              [&](const Device *a, const Device *b) { return place(a) < place(b); });
    return found;
}

std::string pathAbove(const std::string &path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

long hexNumber(const std::string &text)
{
    return numberIn(text.starts_with("0x") ? std::string_view(text).substr(2) : text, 16);
}

long decimalNumber(const std::string &text)
{
    return numberIn(text, 10);
}

std::vector<std::string> namesIn(const std::filesystem::path &folder)
{
    std::vector<std::string> names;
    posix::PosixVolumeFiles files;
    for (auto list = files.workingFolder().list(folder.native()); list && !list->empty();)
        names.emplace_back(list->takeNext());
    return names;
}

bool isBelow(std::string_view path, std::string_view above)
{
    return path.size() > above.size() && path.starts_with(above) && path[above.size()] == '/';
}

} // namespace orvana::platform::linux_host
