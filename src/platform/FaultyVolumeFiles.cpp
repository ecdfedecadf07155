#include "platform/FaultyVolumeFiles.h"

#include "platform/FaultyFile.h"

#include <cerrno>
#include <chrono>
#include <thread>

namespace orvana::platform
{

namespace
{

class FaultyFolder final : public Folder
{
public:
    /// `path` is empty for the working folder, whose callers use absolute paths. `own` points to the faults
    /// of the volume on which the folder was opened, or is null.
    FaultyFolder(const FaultyVolumeFiles &files, std::unique_ptr<Folder> owned, Folder &real,
                 std::string path, VolumeFaults *own)
        : m_files(files), m_owned(std::move(owned)), m_real(real), m_path(std::move(path)), m_own(own)
    {
    }

    Expected<Attributes> attributes(std::string_view path, Links links, Want want) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        return m_real.attributes(path, links, want);
    }

    Expected<std::string> realPath(std::string_view path) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        return m_real.realPath(path);
    }

    Expected<NameList> list(std::string_view path) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        auto names = m_real.list(path);
        const auto *faults = faultsAt(path);
        if (!names || !faults || faults->listErrorAfter < 0)
            return names;
        NameList some;
        for (auto left = faults->listErrorAfter.load(); left > 0 && !names->empty(); --left)
            some.add(names->takeNext());
        some.breakOff(fileError(EIO));
        return some;
    }

    Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        auto opened = m_real.openFolder(path);
        if (!opened)
            return opened;
        Folder &folder = **opened;
        return std::make_unique<FaultyFolder>(m_files, std::move(*opened), folder, fullPath(path),
                                              faultsAt(path));
    }

    Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const override
    {
        if (const int code = refusal(path, access); code != 0)
            return failure(code);
        return wrapped(m_real.openFile(path, access), path, access);
    }

    Expected<std::unique_ptr<File>> createFile(std::string_view path, const Attributes &like) const override
    {
        if (const int code = refusal(path, Access::Write); code != 0)
            return failure(code);
        return wrapped(m_real.createFile(path, like), path, Access::Write);
    }

    Expected<void> makeFolder(std::string_view path, const Attributes &like) const override
    {
        if (const int code = refusal(path, Access::Write); code != 0)
            return failure(code);
        return m_real.makeFolder(path, like);
    }

    Expected<void> finishFolder(std::string_view path, const Attributes &like) const override
    {
        return m_real.finishFolder(path, like);
    }

    Expected<void> rename(std::string_view from, std::string_view to, Existing existing) const override
    {
        if (const int code = refusal(to, Access::Write); code != 0)
            return failure(code);
        return m_real.rename(from, to, existing);
    }

    Expected<std::string> linkText(std::string_view path) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        return m_real.linkText(path);
    }

    Expected<void> makeLink(std::string_view path, const std::string &text) const override
    {
        if (const int code = refusal(path, Access::Write); code != 0)
            return failure(code);
        return isPlain(path) ? failure(EPERM) : m_real.makeLink(path, text);
    }

    Expected<void> addName(std::string_view path, std::string_view name) const override
    {
        if (const int code = refusal(name, Access::Write); code != 0)
            return failure(code);
        return isPlain(name) ? failure(EPERM) : m_real.addName(path, name);
    }

    Expected<Metadata> metadata(std::string_view path, Keep keep) const override
    {
        if (isGone(path))
            return failure(ENODEV);
        return m_real.metadata(path, keep);
    }

    Expected<MissingParts> apply(std::string_view path, const Metadata &metadata, Keep keep) const override
    {
        if (const int code = refusal(path, Access::Write); code != 0)
            return failure(code);
        return m_real.apply(path, metadata, keep);
    }

    Expected<void> remove(std::string_view path) const override
    {
        if (const int code = refusal(path, Access::Write); code != 0)
            return failure(code);
        return m_real.remove(path);
    }

    Expected<void> syncVolume() override
    {
        const auto *faults = faultsAt("");
        if (faults)
            std::this_thread::sleep_for(std::chrono::milliseconds(faults->syncDelayMilliseconds.load()));
        if (faults && (faults->syncError || faults->gone))
            return failure(EIO);
        return m_real.syncVolume();
    }

    VolumeTraits traits() const override
    {
        auto traits = m_real.traits();
        const auto *faults = faultsAt(".");
        traits.isReadOnly = traits.isReadOnly || (faults && faults->readOnly);
        if (faults && faults->family != VolumeFamily::Unix)
            traits.family = faults->family;
        return traits;
    }
    Expected<std::uint64_t> freeBytes() const override
    {
        const auto *faults = faultsAt(".");
        if (faults && faults->freeBytes >= 0)
            return static_cast<std::uint64_t>(faults->freeBytes.load());
        return m_real.freeBytes();
    }

private:
    std::string fullPath(std::string_view path) const { return m_path + "/" + std::string(path); }

    VolumeFaults *faultsAt(std::string_view path) const
    {
        return m_own ? m_own : m_files.faultsAt(fullPath(path));
    }

    bool isGone(std::string_view path) const
    {
        const auto *faults = faultsAt(path);
        return faults && faults->gone;
    }

    bool isPlain(std::string_view path) const
    {
        const auto *faults = faultsAt(path);
        return faults && faults->isPlain;
    }

    int refusal(std::string_view path, Access access) const
    {
        const auto *faults = faultsAt(path);
        if (!faults)
            return 0;
        if (faults->gone)
            return ENODEV;
        return faults->readOnly && access != Access::Read ? EROFS : 0;
    }

    Expected<std::unique_ptr<File>> wrapped(Expected<std::unique_ptr<File>> real, std::string_view path,
                                            Access access) const
    {
        auto *faults = faultsAt(path);
        if (!real || !faults)
            return real;
        return std::make_unique<FaultyFile>(std::move(*real), *faults, access);
    }

    const FaultyVolumeFiles &m_files;
    std::unique_ptr<Folder> m_owned;
    Folder &m_real;
    std::string m_path;
    VolumeFaults *m_own;
};

std::string withoutDoubleSlashes(const std::string &path)
{
    std::string clean;
    for (const char c : path) {
        if (c != '/' || clean.empty() || clean.back() != '/')
            clean += c;
    }
    return clean;
}

} // namespace

FaultyVolumeFiles::FaultyVolumeFiles(VolumeFiles &real)
    : m_real(real), m_workingFolder(std::make_unique<FaultyFolder>(*this, nullptr, real.workingFolder(),
                                                                   std::string(), nullptr))
{
}

FaultyVolumeFiles::~FaultyVolumeFiles() = default;

VolumeFaults &FaultyVolumeFiles::volume(const std::string &root)
{
    const std::lock_guard lock(m_mutex);
    return m_volumes[root];
}

void FaultyVolumeFiles::retire(const std::string &root)
{
    const std::lock_guard lock(m_mutex);
    if (auto volume = m_volumes.extract(root)) {
        volume.mapped().gone = true;
        m_retired.push_back(std::move(volume));
    }
}

VolumeFaults *FaultyVolumeFiles::faultsAt(const std::string &path) const
{
    const auto clean = withoutDoubleSlashes(path) + "/";
    const std::lock_guard lock(m_mutex);
    for (auto &[root, faults] : m_volumes) {
        if (clean.starts_with(root + "/"))
            return &faults;
    }
    return nullptr;
}

Expected<std::unique_ptr<Folder>> FaultyVolumeFiles::openFolder(const std::string &path, Reach reach)
{
    auto *faults = faultsAt(path);
    if (faults && faults->gone)
        return failure(ENODEV);
    auto opened = m_real.openFolder(path, reach);
    if (!opened)
        return opened;
    Folder &folder = **opened;
    return std::make_unique<FaultyFolder>(*this, std::move(*opened), folder, path, faults);
}

Folder &FaultyVolumeFiles::workingFolder()
{
    return *m_workingFolder;
}

} // namespace orvana::platform
