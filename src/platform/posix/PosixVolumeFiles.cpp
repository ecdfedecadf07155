#include "platform/posix/PosixVolumeFiles.h"

#include "platform/posix/PathOpener.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace orvana::platform::posix
{

namespace
{

/// An open folder with a lock of the system on it. Holds no lock when the folder cannot be locked.
class PosixFolderLock final : public FolderLock
{
public:
    explicit PosixFolderLock(Descriptor folder = Descriptor()) : m_folder(std::move(folder)) {}

private:
    Descriptor m_folder;
};

} // namespace

PosixVolumeFiles::PosixVolumeFiles()
    : m_defaults(ProcessDefaults::ofThisProcess()),
      m_workingFolder(Descriptor(), AT_FDCWD, Reach::Anywhere, m_defaults)
{
}

Expected<std::unique_ptr<Folder>> PosixVolumeFiles::openFolder(const std::string &path, Reach reach)
{
    auto opened = openPath(AT_FDCWD, path, O_RDONLY | O_DIRECTORY, 0, Reach::Anywhere);
    if (!opened)
        return tl::unexpected(opened.error());
    const int number = opened->number();
    return std::make_unique<PosixFolder>(std::move(*opened), number, reach, m_defaults);
}

Expected<std::unique_ptr<FolderLock>> PosixVolumeFiles::lockFolder(const std::string &path, Sharing sharing)
{
    auto opened = openPath(AT_FDCWD, path, O_RDONLY | O_DIRECTORY, 0, Reach::Anywhere);
    if (!opened && opened.error().code == EACCES)
        return std::make_unique<PosixFolderLock>();
    if (!opened)
        return tl::unexpected(opened.error());
    const int operation = (sharing == Sharing::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    int result = 0;
    do {
        result = ::flock(opened->number(), operation);
    } while (result != 0 && errno == EINTR);
    if (result != 0 && errno == EWOULDBLOCK)
        return failure(EWOULDBLOCK);
    return std::make_unique<PosixFolderLock>(std::move(*opened));
}

} // namespace orvana::platform::posix
