// The contract of disk utilities, kept by the real one.

#include "contract/DiskUtilityContract.h"
#include "diskutil/DiskUsers.h"
#include "diskutil/RealDisks.h"

namespace orvana::test
{

namespace
{

/// The image of a disk in a bay, used through the real disk service.
struct ImageInABay
{
    static const char *missing()
    {
        if (!hasPrivateSystem())
            return MissingSystem;
        return hasPlayedAuthority() || hasNoDiskService() ? "is run by itself, on another system" : nullptr;
    }

    ImageInABay()
    {
        disk.makeVolume("ext4", "OLD");
        disk.mount(tree.folder("OLD"));
        tree.file("OLD/file", "content");
    }

    const std::string &device() const { return disk.node(); }
    static std::string noDevice() { return "/dev/loop9999"; }

    Said run(std::vector<std::string> words) const
    {
        const auto known = disk.expectations();
        words.insert(words.end(), known.begin(), known.end());
        if (!spared.empty())
            words.push_back(spared);
        return runDiskUtility(words, tree.path("bays"), {});
    }

    void spare() { spared = sparingWord(disk); }
    void takeInUse() { user = std::make_unique<BusyProcess>(disk.mountPoint()); }

    std::vector<std::string> mountedVolumes() const
    {
        return disk.mountPoint().empty() ? std::vector<std::string>() : std::vector{disk.label()};
    }

    // A new ext4 file system already has its folder "lost+found".
    std::vector<std::string> filesOn(const std::string &) const
    {
        auto files = treeOf(disk.mountPoint());
        std::erase(files, "lost+found");
        return files;
    }

    TemporaryTree tree;
    ImageDisk disk{tree.folder("bays"), "disk", 64};
    std::string spared;
    std::unique_ptr<BusyProcess> user;
};

} // namespace

} // namespace orvana::test

namespace orvana::platform
{

INSTANTIATE_TYPED_TEST_SUITE_P(Real, DiskUtilityContract, test::ImageInABay);

} // namespace orvana::platform
