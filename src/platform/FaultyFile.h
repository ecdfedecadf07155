#pragma once

#include "platform/FaultyVolumeFiles.h"

#include <memory>

namespace orvana::platform
{

/// An open file of a volume with switched faults.
class FaultyFile final : public File
{
public:
    FaultyFile(std::unique_ptr<File> real, VolumeFaults &faults, Access access)
        : m_real(std::move(real)), m_faults(faults), m_access(access)
    {
    }

    Expected<Attributes> attributes() const override;
    Expected<std::size_t> read(std::span<std::byte> into, std::uint64_t offset) override;
    void willRead(std::uint64_t offset, std::uint64_t length) override;
    Expected<void> write(std::span<const std::byte> bytes, std::uint64_t offset) override;
    Expected<void> cutTo(std::uint64_t size) override;
    Expected<void> growTo(std::uint64_t size) override;
    std::vector<Range> dataIn(const Range &range) const override;
    Expected<void> makeHole(const Range &range) override;
    Expected<Metadata> metadata(Keep keep) const override;
    MissingParts apply(const Metadata &metadata, Keep keep) override;
    Expected<void> startWriteOut(std::uint64_t offset, std::uint64_t length) override;
    Expected<void> finishWriteOut(std::uint64_t offset, std::uint64_t length) override;
    Expected<void> sync() override;
    bool isOutOfMemory() const override;
    void dropCached(std::uint64_t offset, std::uint64_t length) override;
    Expected<void> close() override;

private:
    std::unique_ptr<File> m_real;
    VolumeFaults &m_faults;
    Access m_access;
};

} // namespace orvana::platform
