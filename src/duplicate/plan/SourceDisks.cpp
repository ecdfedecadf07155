#include "duplicate/plan/SourceDisks.h"

#include "platform/Host.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"

#include <algorithm>

namespace orvana
{

namespace
{

using platform::FileType;
using platform::Links;
using platform::Want;

std::optional<FolderIdentity> identityOf(platform::Host &host, const std::string &folder)
{
    const auto read = host.volumeFiles().workingFolder().attributes(folder, Links::Follow, Want::Basics);
    return read ? std::optional(FolderIdentity{read->device, read->inode}) : std::nullopt;
}

bool isSharedSerial(const DiskFingerprint &disk, const std::vector<std::shared_ptr<ORVHddInfo>> &all)
{
    return std::any_of(all.begin(), all.end(), [&](const auto &other) {
        const auto marks = other->fingerprint();
        return disk.serial && marks.serial == disk.serial && marks.device != disk.device;
    });
}

// Returns the marks of the disks at these nodes. A disk that no scan lists is known by its node alone.
std::vector<DiskFingerprint> fingerprintsOf(const std::vector<std::string> &nodes,
                                            const ScannedDevices &devices)
{
    const auto all = devices.allDisks();
    std::vector<DiskFingerprint> found;
    for (const auto &node : nodes) {
        const auto record =
            std::find_if(all.begin(), all.end(), [&](const auto &disk) { return disk->devPath() == node; });
        auto &marks = found.emplace_back();
        marks.device = node;
        if (record != all.end())
            marks = (*record)->fingerprint();
        // A serial number that several disks report does not identify this disk.
        if (isSharedSerial(marks, all))
            marks.serial.reset();
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.device < b.device; });
    return found;
}

// Adds the links directly in a folder to `paths`, because a run copies their targets too.
void addLinksIn(platform::Host &host, const std::string &folder, std::vector<std::string> &paths)
{
    auto &files = host.volumeFiles().workingFolder();
    auto names = files.list(folder);
    while (names && !names->empty()) {
        auto path = folder + "/";
        path.append(names->takeNext());
        const auto entry = files.attributes(path, Links::DoNotFollow, Want::Basics);
        if (entry && entry->type == FileType::SymbolicLink)
            paths.push_back(std::move(path));
    }
}

} // namespace

SourceMemory rememberSource(platform::Host &host, const ScannedDevices &devices, const std::string &root)
{
    if (root.empty())
        return {};
    return {root, identityOf(host, root), fingerprintsOf(host.places().disksBeneath({root}), devices)};
}

bool isStillThere(platform::Host &host, const ScannedDevices &devices, const SourceMemory &source)
{
    const auto now = rememberSource(host, devices, source.root);
    return source.folder && now.folder == source.folder && now.disks == source.disks;
}

void addDisksOf(platform::Host &host, const ScannedDevices &devices,
                const std::vector<std::string> &selection, std::vector<DiskFingerprint> &disks)
{
    auto paths = selection;
    for (const auto &item : selection)
        addLinksIn(host, item, paths);
    for (auto &marks : fingerprintsOf(host.places().disksBeneath(paths), devices)) {
        if (std::find(disks.begin(), disks.end(), marks) == disks.end())
            disks.push_back(std::move(marks));
    }
}

bool isAmong(const ORVHddInfo &disk, const std::vector<DiskFingerprint> &protectedDisks)
{
    const auto marks = disk.fingerprint();
    return std::any_of(protectedDisks.begin(), protectedDisks.end(),
                       [&](const auto &known) { return mayBeTheSame(known, marks); });
}

} // namespace orvana
