#include "platform/simulator/SimulatedVolumes.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/simulator/MachineReader.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace orvana::platform::simulator
{

namespace
{

constexpr std::size_t LargestPiece = 65'536;

std::string keyOf(const Volume &volume)
{
    std::string key = volume.where;
    std::replace(key.begin(), key.end(), '/', '-');
    return key;
}

// Writes a file of bytes that look like data and are the same every time.
void writeFile(const fs::path &path, std::uint64_t bytes, std::uint32_t seed)
{
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    std::string piece;
    for (std::uint64_t done = 0; done < bytes; done += piece.size()) {
        piece.resize(std::min<std::uint64_t>(bytes - done, LargestPiece));
        for (auto &byte : piece) {
            seed = seed * 1664525U + 1013904223U;
            byte = static_cast<char>(seed >> 24U);
        }
        file << piece;
    }
}

void fill(const std::string &folder, const Content &content)
{
    const auto path = fs::path(folder) / content.path;
    if (content.files == 1) {
        writeFile(path, content.bytes, 1);
        return;
    }
    // Each folder gets forty files. Their sizes differ, and add up to the content's bytes.
    const auto count = static_cast<std::uint64_t>(content.files);
    const auto share = 2 * content.bytes / (count * (count + 1));
    std::uint64_t left = content.bytes;
    for (std::uint64_t i = 1; i <= count; ++i) {
        const auto size = i == count ? left : share * i;
        left -= size;
        const auto name = "File " + std::to_string(i) + ".dat";
        writeFile(path / ("Folder " + std::to_string((i - 1) / 40 + 1)) / name, size,
                  static_cast<std::uint32_t>(i));
    }
}

// True for the label itself, and for the label with a number after it.
bool isNameFor(const std::string &folder, const std::string &label)
{
    if (!folder.starts_with(label))
        return false;
    const auto rest = folder.substr(label.size());
    return rest.empty() || (rest.size() > 1 && rest[0] == ' ' &&
                            rest.find_first_not_of("0123456789", 1) == std::string::npos);
}

template <class Visit>
void visitVolumes(const Machine &machine, Visit visit)
{
    for (const auto &disk : machine.disks) {
        for (const auto &volume : disk.volumes)
            visit(disk, volume, disk.isAttached);
    }
    for (const auto &enclosure : machine.enclosures) {
        for (const auto &disk : enclosure.bays) {
            for (const auto &volume : disk.volumes)
                visit(disk, volume, enclosure.isAttached && disk.isAttached && !disk.isRaid);
        }
    }
}

} // namespace

SimulatedVolumes::SimulatedVolumes(std::string root) : m_root(std::move(root))
{
    for (const char *folder : {"/Volumes", "/Store", "/Users", "/Mounted", "/Images"}) {
        if (const auto made = makePrivateFolder(m_root + folder); !made)
            throw std::runtime_error(made.error());
    }
    readMounted();
}

// Each file in "Mounted" is named after a volume's key and holds the name under "Volumes". A file that names
// no folder there is ignored.
void SimulatedVolumes::readMounted()
{
    m_mounted.clear();
    const auto folder = m_root + "/Mounted";
    posix::PosixVolumeFiles files;
    auto keys = files.workingFolder().list(folder);
    if (!keys || keys->error())
        throw std::runtime_error(folder + " cannot be read");
    while (!keys->empty()) {
        const std::string key(keys->takeNext());
        const auto path = std::string(folder).append("/").append(key);
        std::ifstream file(path);
        std::string name;
        std::getline(file, name);
        // If the volume counted as unmounted, its folder would be lost.
        if (!file.is_open() || file.bad())
            throw std::runtime_error(path + " cannot be read");
        if (isVolumeName(name) && fs::is_directory(fs::symlink_status(m_root + "/Volumes/" + name)))
            m_mounted[key] = name;
    }
}

std::string SimulatedVolumes::placeOf(const Volume &volume) const
{
    const auto found = m_mounted.find(keyOf(volume));
    return found == m_mounted.end() ? m_root + "/Store/" + keyOf(volume)
                                    : m_root + "/Volumes/" + found->second;
}

std::string SimulatedVolumes::freeName(const std::string &wanted) const
{
    auto name = wanted;
    for (int number = 1; fs::exists(m_root + "/Volumes/" + name); ++number)
        name = wanted + " " + std::to_string(number);
    return name;
}

void SimulatedVolumes::prepare(const Machine &machine, const Volume &volume)
{
    const auto folder = volume.isStartup ? homeFolder(machine.login) : placeOf(volume);
    if (fs::exists(folder))
        return;
    fs::create_directories(folder);
    if (volume.isStartup)
        fs::create_directories(folder + "/Documents");
    for (const auto &content : volume.content)
        fill(folder, content);
    m_used.forgetAll();
}

// An image's path is relative to the folder of the machine's file.
std::optional<ImageDisk> SimulatedVolumes::imageOf(const Disk &disk) const
{
    if (!disk.image)
        return std::nullopt;
    auto key = disk.where;
    std::replace(key.begin(), key.end(), '/', '-');
    return ImageDisk((fs::path(m_root).parent_path() / *disk.image).native(),
                     static_cast<std::uint64_t>(disk.size), m_root + "/Images/" + key);
}

void SimulatedVolumes::mount(const Disk &disk, const Volume &volume)
{
    const auto key = keyOf(volume);
    const auto name = freeName(volume.name);
    const auto folder = m_root + "/Volumes/" + name;
    if (const auto image = imageOf(disk)) {
        if (!image->mount(folder, volume.name))
            return;
        if (fs::is_empty(folder) || std::distance(fs::directory_iterator(folder), {}) == 1) {
            for (const auto &content : volume.content)
                fill(folder, content);
        }
    } else {
        fs::rename(m_root + "/Store/" + key, folder);
    }
    std::ofstream(m_root + "/Mounted/" + key) << name << '\n';
    m_mounted[key] = name;
    m_used.forgetAll();
}

void SimulatedVolumes::unmount(const Disk &disk, const Volume &volume)
{
    const auto key = keyOf(volume);
    const auto folder = m_root + "/Volumes/" + m_mounted[key];
    std::error_code error;
    if (const auto image = imageOf(disk))
        image->unmount(folder);
    else
        fs::rename(folder, m_root + "/Store/" + key, error);
    fs::remove(m_root + "/Mounted/" + key, error);
    m_mounted.erase(key);
    m_used.forgetAll();
}

void SimulatedVolumes::agreeWith(const Machine &machine)
{
    // Another program may have mounted or renamed volumes meanwhile.
    readMounted();
    // Volumes are unmounted first, so that their names are free for the volumes to mount.
    visitVolumes(machine, [&](const Disk &disk, const Volume &volume, bool isThere) {
        const auto found = m_mounted.find(keyOf(volume));
        if (found == m_mounted.end())
            return;
        if (!isThere || !volume.isMounted || !isNameFor(found->second, volume.name))
            unmount(disk, volume);
    });
    visitVolumes(machine, [&](const Disk &disk, const Volume &volume, bool isThere) {
        if (!isThere || !volume.isMounted)
            return;
        if (!disk.image)
            prepare(machine, volume);
        if (!volume.isStartup && !m_mounted.contains(keyOf(volume)))
            mount(disk, volume);
    });
}

void SimulatedVolumes::remove(const Disk &disk, const Volume &volume)
{
    if (const auto image = imageOf(disk)) {
        if (m_mounted.contains(keyOf(volume)))
            unmount(disk, volume);
        image->wipe();
        return;
    }
    fs::remove_all(placeOf(volume));
    fs::remove(m_root + "/Mounted/" + keyOf(volume));
    m_mounted.erase(keyOf(volume));
    m_used.forgetAll();
}

std::optional<std::string> SimulatedVolumes::mountPoint(const Volume &volume) const
{
    if (volume.isStartup)
        return "/";
    const auto found = m_mounted.find(keyOf(volume));
    return found == m_mounted.end() ? std::nullopt : std::optional(m_root + "/Volumes/" + found->second);
}

SimulatedVolumes::Space SimulatedVolumes::space(const Machine &machine, const Disk &disk,
                                                const Volume &volume) const
{
    if (disk.image && m_mounted.contains(keyOf(volume))) {
        std::error_code error;
        const auto info = fs::space(placeOf(volume), error);
        if (!error)
            return {static_cast<std::int64_t>(info.capacity), static_cast<std::int64_t>(info.available)};
    }
    const auto used = m_used.of(volume.isStartup ? homeFolder(machine.login) : placeOf(volume));
    return {volume.capacity, std::max<std::int64_t>(0, volume.capacity - static_cast<std::int64_t>(used))};
}

} // namespace orvana::platform::simulator
