// Measures the time of counting against `du`, in the same run on the same warm tree. Also measures which
// share of that time goes into reading the hidden-extension flag, and how much memory counting needs.
//
//     plurimo_count_benchmark [FILES] [ROUNDS]      200,000 files and 9 rounds by default

#include "filetree/SizeCounter.h"
#include "platform/hosts/HostFactory.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sys/resource.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace
{

using namespace orvana;
using platform::Expected;
namespace fs = std::filesystem;

/// A folder of the machine whose entries are never asked for the flag.
class FlaglessFolder final : public platform::Folder
{
public:
    explicit FlaglessFolder(Folder &real) : m_real(real) {}
    explicit FlaglessFolder(std::unique_ptr<Folder> real) : m_owned(std::move(real)), m_real(*m_owned) {}

    Expected<platform::Attributes> attributes(std::string_view path, platform::Links links,
                                              platform::Want) const override
    {
        return m_real.attributes(path, links, platform::Want::Basics);
    }
    Expected<std::string> realPath(std::string_view path) const override { return m_real.realPath(path); }
    Expected<platform::NameList> list(std::string_view path) const override { return m_real.list(path); }
    Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const override
    {
        auto opened = m_real.openFolder(path);
        if (!opened)
            return opened;
        return std::make_unique<FlaglessFolder>(std::move(*opened));
    }
    Expected<std::unique_ptr<platform::File>> openFile(std::string_view path,
                                                       platform::Access access) const override
    {
        return m_real.openFile(path, access);
    }
    Expected<std::unique_ptr<platform::File>> createFile(std::string_view path,
                                                         const platform::Attributes &like) const override
    {
        return m_real.createFile(path, like);
    }
    Expected<void> makeFolder(std::string_view path, const platform::Attributes &like) const override
    {
        return m_real.makeFolder(path, like);
    }
    Expected<void> finishFolder(std::string_view path, const platform::Attributes &like) const override
    {
        return m_real.finishFolder(path, like);
    }
    Expected<void> rename(std::string_view from, std::string_view to,
                          platform::Existing existing) const override
    {
        return m_real.rename(from, to, existing);
    }
    Expected<std::string> linkText(std::string_view path) const override { return m_real.linkText(path); }
    Expected<void> makeLink(std::string_view path, const std::string &text) const override
    {
        return m_real.makeLink(path, text);
    }
    Expected<void> addName(std::string_view path, std::string_view name) const override
    {
        return m_real.addName(path, name);
    }
    Expected<platform::Metadata> metadata(std::string_view path, platform::Keep keep) const override
    {
        return m_real.metadata(path, keep);
    }
    Expected<platform::MissingParts> apply(std::string_view path, const platform::Metadata &metadata,
                                           platform::Keep keep) const override
    {
        return m_real.apply(path, metadata, keep);
    }
    Expected<void> remove(std::string_view path) const override { return m_real.remove(path); }
    Expected<void> syncVolume() override { return m_real.syncVolume(); }
    platform::VolumeTraits traits() const override { return m_real.traits(); }
    Expected<std::uint64_t> freeBytes() const override { return m_real.freeBytes(); }

private:
    std::unique_ptr<Folder> m_owned;
    Folder &m_real;
};

class FlaglessFiles final : public platform::VolumeFiles
{
public:
    explicit FlaglessFiles(platform::VolumeFiles &real) : m_real(real), m_workingFolder(real.workingFolder())
    {
    }

    Expected<std::unique_ptr<platform::Folder>> openFolder(const std::string &path, platform::Reach) override
    {
        return m_workingFolder.openFolder(path);
    }
    Expected<std::unique_ptr<platform::FolderLock>> lockFolder(const std::string &path,
                                                               platform::Sharing sharing) override
    {
        return m_real.lockFolder(path, sharing);
    }
    platform::Folder &workingFolder() override { return m_workingFolder; }

private:
    platform::VolumeFiles &m_real;
    FlaglessFolder m_workingFolder;
};

/// The given host, but with the given files in place of its own.
class OtherFiles final : public platform::Host
{
public:
    OtherFiles(platform::Host &host, platform::VolumeFiles &files) : m_host(host), m_files(files) {}

    platform::Account &account() override { return m_host.account(); }
    platform::Places &places() override { return m_host.places(); }
    platform::VolumeFiles &volumeFiles() override { return m_files; }
    platform::HardwareRegistry &registry() override { return m_host.registry(); }
    platform::VolumeEvents &volumeEvents() override { return m_host.volumeEvents(); }
    platform::CommandLauncher &launcher() override { return m_host.launcher(); }
    platform::Workspace &workspace() override { return m_host.workspace(); }
    enclosures::EnclosureSetup &enclosureSetup() override { return m_host.enclosureSetup(); }
    platform::HealthReader &health() override { return m_host.health(); }

private:
    platform::Host &m_host;
    platform::VolumeFiles &m_files;
};

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

long peakKilobytes()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void makeTree(const fs::path &root, int files)
{
    constexpr int FilesAFolder = 100;
    for (int i = 0; i < files; ++i) {
        const auto folder = root / ("Reel " + std::to_string(i / (FilesAFolder * 100))) /
                            ("Scene " + std::to_string(i / FilesAFolder % 100));
        if (i % FilesAFolder == 0)
            fs::create_directories(folder);
        std::ofstream(folder / ("Take " + std::to_string(i) + ".mov")) << "x";
    }
}

std::int64_t count(platform::Host &host, const std::string &root)
{
    CountTotals totals;
    std::int64_t told = 0;
    SizeCounter counter(host, totals, [&] { ++told; });
    counter.sizeOfFolder(root);
    return totals.totalFiles;
}

} // namespace

int main(int argc, char **argv)
{
    const int files = argc > 1 ? std::atoi(argv[1]) : 200'000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 9;
    std::string root = fs::temp_directory_path() / "plurimo-count-XXXXXX";
    if (!::mkdtemp(root.data()))
        return 1;
    makeTree(root, files);
    const auto host = platform::makeMachineHost();
    FlaglessFiles flagless(host->volumeFiles());
    OtherFiles flaglessHost(*host, flagless);

    const auto du = "du -s --apparent-size '" + root + "' >/dev/null";
    std::int64_t counted = 0;
    std::vector<double> peers;
    std::vector<double> ours;
    std::vector<double> withoutFlag;
    const auto peakBefore = peakKilobytes();
    for (int round = -1; round < rounds; ++round) {
        const double peer = seconds([&] { std::ignore = std::system(du.c_str()); });
        const double own = seconds([&] { counted = count(*host, root); });
        const double bare = seconds([&] { count(flaglessHost, root); });
        if (round < 0)
            continue; // the first round only warms the caches
        peers.push_back(peer);
        ours.push_back(own);
        withoutFlag.push_back(bare);
    }
    std::printf("%lld files counted\n", static_cast<long long>(counted));
    std::printf("du -s --apparent-size   %7.1f ms\n", median(peers) * 1e3);
    std::printf("counting                %7.1f ms   %.2f of du\n", median(ours) * 1e3,
                median(ours) / median(peers));
    std::printf("the hidden flag's share %7.0f %%\n", 100 * (1 - median(withoutFlag) / median(ours)));
    std::printf("memory grown by         %7ld KB\n", peakKilobytes() - peakBefore);
    fs::remove_all(root);
    return counted == files ? 0 : 1;
}
