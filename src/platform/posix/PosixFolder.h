#pragma once

#include "platform/VolumeFiles.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/NewEntry.h"

namespace orvana::platform::posix
{

/// A real folder. `number` may be the system's mark for the working folder.
class PosixFolder final : public Folder
{
public:
    PosixFolder(Descriptor descriptor, int number, Reach reach, const ProcessDefaults &defaults)
        : m_descriptor(std::move(descriptor)), m_number(number), m_reach(reach), m_defaults(defaults)
    {
    }

    Expected<Attributes> attributes(std::string_view path, Links links, Want want) const override;
    Expected<NameList> list(std::string_view path) const override;
    Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const override;
    Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const override;
    Expected<std::unique_ptr<File>> createFile(std::string_view path, const Attributes &like) const override;
    Expected<void> makeFolder(std::string_view path, const Attributes &like) const override;
    Expected<void> protectFolder(std::string_view path, const Attributes &like) const override;
    Expected<void> syncVolume() override;
    VolumeTraits traits() const override;
    Expected<std::uint64_t> freeBytes() const override;

private:
    Expected<Attributes> attributesFollowing(std::string_view path) const;

    Descriptor m_descriptor;
    int m_number;
    Reach m_reach;
    ProcessDefaults m_defaults;
};

} // namespace orvana::platform::posix
