#include "platform/simulator/SimulatedMachine.h"

#include "foundation/DeviceBlocks.h"
#include "foundation/DisplayPath.h"
#include "foundation/Paths.h"
#include "foundation/SystemLog.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/simulator/MachinePlaces.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orvana::platform::simulator
{

namespace
{

std::optional<std::string> textOfFile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Keeps other processes from changing the file while this object lives.
class FileLock
{
public:
    explicit FileLock(const std::string &file)
        : m_number(::open((file + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644))
    {
        ::flock(m_number, LOCK_EX);
    }
    ~FileLock() { ::close(m_number); }
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

private:
    int m_number;
};

// Writes to another file first, so that a full disk does not destroy the file.
bool replaceFile(const std::string &path, const std::string &text)
{
    const auto unfinished = path + "." + std::to_string(::getpid()) + ".part";
    std::ofstream file(unfinished, std::ios::binary);
    file << text;
    file.close();
    if (file && ::rename(unfinished.c_str(), path.c_str()) == 0)
        return true;
    ::unlink(unfinished.c_str());
    return false;
}

} // namespace

tl::expected<std::unique_ptr<SimulatedMachine>, std::string> SimulatedMachine::open(const std::string &file)
{
    auto text = textOfFile(file);
    if (!text)
        return tl::unexpected(displayPath(file) + ": cannot be read");
    auto content = readMachine(*text);
    if (!content)
        return tl::unexpected(displayPath(file) + ": " + content.error());
    if (const auto made = makePrivateFolder(file + ".volumes"); !made)
        return tl::unexpected(made.error());
    const FileLock lock(file);
    try {
        return std::unique_ptr<SimulatedMachine>(
            new SimulatedMachine(file, std::move(*content), std::move(*text)));
    } catch (const std::exception &error) {
        return tl::unexpected(displayPath(file) +
                              ": its volumes cannot be made: " + displayPath(error.what()));
    }
}

SimulatedMachine::SimulatedMachine(std::string file, MachineFile content, std::string text)
    : m_file(std::move(file)), m_text(std::move(text)), m_volumes(m_file + ".volumes")
{
    apply(std::move(content));
}

int SimulatedMachine::numberOf(const std::string &where)
{
    const auto [found, isNew] = m_numbers.try_emplace(where, m_nextNumber);
    if (isNew)
        ++m_nextNumber;
    return found->second;
}

// A disk that comes back gets a new number, so that nothing bound to the old number reaches the disk.
void SimulatedMachine::forgetNumbersOfDetached()
{
    std::set<std::string> attached;
    visitAllDisks(m_machine, [&](const Disk &disk, bool isAttached) {
        if (isAttached)
            attached.insert(disk.where);
    });
    std::erase_if(m_numbers, [&](const auto &entry) { return !attached.contains(entry.first); });
}

void SimulatedMachine::apply(MachineFile content)
{
    m_json = std::move(content.json);
    m_machine = std::move(content.machine);
    m_volumes.agreeWith(m_machine);
    forgetNumbersOfDetached();
    m_tree = makeTree(m_machine, [this](const std::string &where) { return numberOf(where); });
}

bool SimulatedMachine::refresh()
{
    const auto text = textOfFile(m_file);
    if (!text || *text == m_text || *text == m_rejected)
        return false;
    // The program that wrote the file may still be moving the volumes.
    const FileLock lock(m_file);
    return refreshLocked();
}

bool SimulatedMachine::refreshLocked()
{
    auto text = textOfFile(m_file);
    if (!text || *text == m_text || *text == m_rejected)
        return false;
    auto content = readMachine(*text);
    if (!content) {
        systemLog(displayPath(m_file) + ": " + content.error() + "; the last good state stays");
        m_rejected = std::move(*text);
        return false;
    }
    m_text = std::move(*text);
    try {
        apply(std::move(*content));
    } catch (const std::exception &error) {
        systemLog(displayPath(m_file) + ": its volumes cannot be made: " + displayPath(error.what()));
    }
    return true;
}

SimulatedMachine::Outcome SimulatedMachine::change(const std::function<void(Json &)> &edit,
                                                   const std::function<void()> &onceAccepted)
{
    const FileLock lock(m_file);
    refreshLocked();
    Json next = *m_json;
    edit(next);
    auto text = next.dump(2) + "\n";
    auto content = readMachine(text);
    if (!content)
        return tl::unexpected(content.error());
    if (!replaceFile(m_file, text))
        return tl::unexpected(displayPath(m_file) + ": cannot be written");
    m_text = std::move(text);
    try {
        onceAccepted();
        apply(std::move(*content));
    } catch (const std::exception &error) {
        return tl::unexpected(displayPath(m_file) +
                              ": its volumes cannot be made: " + displayPath(error.what()));
    }
    return {};
}

std::vector<std::string> SimulatedMachine::mountPoints() const
{
    std::vector<std::string> points;
    visitAllDisks(m_machine, [&](const Disk &disk, bool) {
        for (const auto &volume : disk.volumes) {
            if (auto point = m_volumes.mountPoint(volume))
                points.push_back(std::move(*point));
        }
    });
    return points;
}

// A path counts for the volume that it lies in. A folder above several volumes counts for all of them.
std::vector<std::string> SimulatedMachine::disksBeneath(const std::vector<std::string> &paths) const
{
    std::set<std::string> places;
    for (const auto &path : paths) {
        std::error_code error;
        if (const auto place = fs::canonical(path, error); !error)
            places.insert(place.native());
    }
    const auto holdsPath = [&](const Volume &volume) {
        const auto point = m_volumes.mountPoint(volume);
        std::error_code error;
        const auto folder = !point             ? fs::path()
                            : volume.isStartup ? fs::canonical(m_volumes.homeFolder(m_machine.login), error)
                                               : fs::canonical(*point, error);
        return !folder.empty() && std::any_of(places.begin(), places.end(), [&](const std::string &place) {
            // What is mounted below "/" does not count, as on a real machine.
            return isAtOrBelow(place, folder.native()) ||
                   (place != "/" && isAtOrBelow(folder.native(), place));
        });
    };
    std::vector<std::string> nodes;
    visitAllDisks(m_machine, [&](const Disk &disk, bool isAttached) {
        const auto number = m_numbers.find(disk.where);
        if (isAttached && number != m_numbers.end() &&
            std::any_of(disk.volumes.begin(), disk.volumes.end(), holdsPath))
            nodes.push_back("/dev/disk" + std::to_string(number->second));
    });
    return nodes;
}

std::string SimulatedMachine::diskFree() const
{
    delay("df");
    std::ostringstream listing;
    listing << "Filesystem 512-blocks Used Available Capacity iused ifree %iused Mounted on\n";
    auto numbers = m_numbers;
    const auto numberAt = [&](const std::string &where) { return numbers.at(where); };
    for (const auto &[disk, volume, device] : mountedVolumes(m_machine, numberAt)) {
        const auto point = m_volumes.mountPoint(*volume);
        if (!point)
            continue;
        const auto [capacity, free] = m_volumes.space(m_machine, *disk, *volume);
        const auto blocks = capacity / DeviceBlockBytes;
        const auto available = free / DeviceBlockBytes;
        listing << device << ' ' << blocks << ' ' << blocks - available << ' ' << available << ' '
                << (blocks > 0 ? 100 * (blocks - available) / blocks : 0) << "% 0 0 0% " << *point << '\n';
    }
    return listing.str();
}

const Disk *SimulatedMachine::diskAt(const std::string &device) const
{
    const Disk *found = nullptr;
    visitAllDisks(m_machine, [&](const Disk &disk, bool isAttached) {
        const auto number = m_numbers.find(disk.where);
        if (isAttached && number != m_numbers.end() && "/dev/disk" + std::to_string(number->second) == device)
            found = &disk;
    });
    return found;
}

SimulatedMachine::Outcome SimulatedMachine::setAttached(const std::string &target, bool isAttached)
{
    const auto where = placeOfTarget(m_machine, target);
    if (!where)
        return tl::unexpected(displayPath(target) + ": no such device");
    return change([&](Json &json) {
        auto &entry = entryAt(json, *where);
        // When a disk is put in, its volumes are mounted, as on a desktop.
        const bool isPutIn = isAttached && !entry.value("attached", true);
        if (isPutIn && entry.contains("volumes")) {
            for (auto &volume : entry["volumes"])
                volume.erase("mounted");
        }
        entry["attached"] = isAttached;
    });
}

SimulatedMachine::Outcome SimulatedMachine::setMounted(const std::string &volume, bool isMounted)
{
    const auto where = placeOfVolume(m_machine, volume);
    if (!where)
        return tl::unexpected(displayPath(volume) + ": no such volume");
    return change([&](Json &json) { entryAt(json, *where)["mounted"] = isMounted; });
}

SimulatedMachine::Outcome SimulatedMachine::renameVolume(const std::string &volume,
                                                         const std::string &newName)
{
    const auto where = placeOfVolume(m_machine, volume);
    if (!where)
        return tl::unexpected(displayPath(volume) + ": no such volume");
    return change([&](Json &json) { entryAt(json, *where)["name"] = newName; });
}

} // namespace orvana::platform::simulator
