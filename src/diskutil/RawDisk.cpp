#include "diskutil/RawDisk.h"

#include "foundation/DisplayPath.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/TransferAll.h"

#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

// Headers of kernels before 5.15 lack it.
#ifndef BLKGETDISKSEQ
#define BLKGETDISKSEQ _IOR(0x12, 128, __u64)
#endif

namespace orvana::diskutil
{

namespace
{

tl::unexpected<Trouble> failed(const std::string &node, int code)
{
    return trouble(SomethingFailed, displayPath(node) + ": " + std::generic_category().message(code));
}

class OpenDisk final : public RawDisk
{
public:
    OpenDisk(platform::posix::Descriptor file, std::string node, std::uint64_t size)
        : m_file(std::move(file)), m_node(std::move(node)), m_size(size)
    {
    }

    std::uint64_t size() const override { return m_size; }

    Outcome<std::uint64_t> sequence() const override
    {
        std::uint64_t number = 0;
        if (::ioctl(m_file.number(), BLKGETDISKSEQ, &number) != 0)
            return failed(m_node, errno);
        return number;
    }

    Outcome<void> write(std::uint64_t offset, std::span<const std::byte> bytes) override
    {
        return transfer(bytes.size(), [&](std::size_t done) {
            return ::pwrite(m_file.number(), bytes.data() + done, bytes.size() - done,
                            static_cast<off_t>(offset + done));
        });
    }

    Outcome<void> read(std::uint64_t offset, std::span<std::byte> bytes) override
    {
        return transfer(bytes.size(), [&](std::size_t done) {
            return ::pread(m_file.number(), bytes.data() + done, bytes.size() - done,
                           static_cast<off_t>(offset + done));
        });
    }

    Outcome<void> sync() override
    {
        if (::fsync(m_file.number()) != 0)
            return failed(m_node, errno);
        return {};
    }

private:
    template <class Call>
    Outcome<void> transfer(std::size_t size, Call call) const
    {
        const auto done = platform::posix::transferAll(size, call);
        if (!done)
            return trouble(SomethingFailed, done.error().reason());
        if (*done != size)
            return trouble(SomethingFailed, "the disk ends there");
        return {};
    }

    platform::posix::Descriptor m_file;
    const std::string m_node;
    const std::uint64_t m_size;
};

} // namespace

Outcome<std::unique_ptr<RawDisk>> rawDiskOf(int descriptor, const std::string &node)
{
    platform::posix::Descriptor file(descriptor);
    std::uint64_t size = 0;
    if (::ioctl(file.number(), BLKGETSIZE64, &size) != 0)
        return failed(node, errno);
    return std::make_unique<OpenDisk>(std::move(file), node, size);
}

} // namespace orvana::diskutil
