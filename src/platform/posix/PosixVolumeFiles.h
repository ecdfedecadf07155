#pragma once

#include "platform/VolumeFiles.h"
#include "platform/posix/PosixFolder.h"

namespace orvana::platform::posix
{

/// The machine's real files.
class PosixVolumeFiles final : public VolumeFiles
{
public:
    PosixVolumeFiles();

    Expected<std::unique_ptr<Folder>> openFolder(const std::string &path, Reach reach) override;
    Expected<std::unique_ptr<FolderLock>> lockFolder(const std::string &path, Sharing sharing) override;
    Folder &workingFolder() override { return m_workingFolder; }

private:
    ProcessDefaults m_defaults;
    PosixFolder m_workingFolder;
};

} // namespace orvana::platform::posix
