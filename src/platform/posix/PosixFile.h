#pragma once

#include "platform/VolumeFiles.h"
#include "platform/posix/Descriptor.h"

namespace orvana::platform::posix
{

/// A real file.
class PosixFile final : public File
{
public:
    explicit PosixFile(Descriptor descriptor) : m_descriptor(std::move(descriptor)) {}

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
    Descriptor m_descriptor;
};

} // namespace orvana::platform::posix
