#pragma once

#include "diskutil/DiskService.h"

#include <memory>

namespace orvana::diskutil
{

class UdisksBus;

/// Uses the desktop's own disk service over D-Bus. The service decides who may do what, and asks the user if
/// it has to. If there is nobody to ask, the service refuses.
class UdisksService final : public DiskService
{
public:
    UdisksService();
    ~UdisksService() override;
    UdisksService(const UdisksService &) = delete;
    UdisksService &operator=(const UdisksService &) = delete;

    Outcome<void> checkFormat(const VolumeFormat &format) override;
    Outcome<void> unmount(const std::string &node) override;
    Outcome<void> checkNobodyHas(const std::string &node, Password password) override;
    Outcome<std::unique_ptr<RawDisk>> openAlone(const std::string &node) override;
    std::vector<std::string> rightsToChange(const std::string &node) override;
    Outcome<void> askFor(const std::string &right) override;
    Outcome<void> makeTable(const std::string &node) override;
    Outcome<std::string> makeVolume(const std::string &node, const VolumeFormat &format,
                                    const std::string &name) override;
    Outcome<std::string> mount(const std::string &node) override;
    Outcome<void> release(const std::string &node) override;

private:
    std::unique_ptr<UdisksBus> m_bus;
};

} // namespace orvana::diskutil
