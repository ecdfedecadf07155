#pragma once

#include "platform/VolumeFiles.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/NewEntry.h"

namespace orvana::platform::posix
{

/// A real folder. `number` may be the system's number for the working folder (AT_FDCWD).
class PosixFolder final : public Folder
{
public:
    PosixFolder(Descriptor descriptor, int number, Reach reach, const ProcessDefaults &defaults,
                std::string absolutePath = std::string())
        : m_descriptor(std::move(descriptor)), m_number(number), m_reach(reach), m_defaults(defaults),
          m_absolutePath(std::move(absolutePath))
    {
    }

    Expected<Attributes> attributes(std::string_view path, Links links, Want want) const override;
    Expected<std::string> realPath(std::string_view path) const override;
    Expected<NameList> list(std::string_view path) const override;
    Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const override;
    Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const override;
    Expected<std::unique_ptr<File>> createFile(std::string_view path, const Attributes &like) const override;
    Expected<void> makeFolder(std::string_view path, const Attributes &like) const override;
    Expected<void> finishFolder(std::string_view path, const Attributes &like) const override;
    Expected<void> rename(std::string_view from, std::string_view to, Existing existing) const override;
    Expected<std::string> linkText(std::string_view path) const override;
    Expected<void> makeLink(std::string_view path, const std::string &text) const override;
    Expected<void> addName(std::string_view path, std::string_view name) const override;
    Expected<Metadata> metadata(std::string_view path, Keep keep) const override;
    Expected<MissingParts> apply(std::string_view path, const Metadata &metadata, Keep keep) const override;
    Expected<void> remove(std::string_view path) const override;
    Expected<void> syncVolume() override;
    VolumeTraits traits() const override;
    Expected<std::uint64_t> freeBytes() const override;

private:
    Expected<Attributes> attributesFollowing(std::string_view path) const;
    bool hasFlag(const std::string &name) const;

    Descriptor m_descriptor;
    int m_number;
    Reach m_reach;
    ProcessDefaults m_defaults;
    // The path where the folder was opened, if the path is known and short. The system reads extended
    // attributes only by path, and by this path four times faster than through the descriptor. The path is
    // used for nothing else.
    std::string m_absolutePath;
};

} // namespace orvana::platform::posix
