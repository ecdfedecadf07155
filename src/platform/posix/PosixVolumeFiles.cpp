#include "platform/posix/PosixVolumeFiles.h"

#include "platform/posix/PathOpener.h"

#include <fcntl.h>

namespace orvana::platform::posix
{

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

} // namespace orvana::platform::posix
