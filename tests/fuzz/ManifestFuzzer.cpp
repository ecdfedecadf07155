// Feeds the fuzzer's input to the readers of ASC MHL manifests and chains. Every path that they let through
// lies below the folder, every digest is one, every error says something, and what was read can be kept and
// read again. Patterns of manifests are matched against the manifest's own paths.

#include "duplicate/evidence/History.h"
#include "duplicate/evidence/IgnorePatterns.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace
{

using namespace orvana;
using platform::Expected;

/// A file whose content is in memory.
class MemoryFile final : public platform::File
{
public:
    explicit MemoryFile(std::string_view content) : m_content(content) {}

    Expected<platform::Attributes> attributes() const override { return platform::Attributes(); }
    Expected<std::size_t> read(std::span<std::byte> into, std::uint64_t offset) override
    {
        const auto left = m_content.substr(std::min<std::uint64_t>(offset, m_content.size()));
        const auto count = std::min(into.size(), left.size());
        std::memcpy(into.data(), left.data(), count);
        return count;
    }
    void willRead(std::uint64_t, std::uint64_t) override {}
    Expected<void> write(std::span<const std::byte>, std::uint64_t) override { return platform::failure(5); }
    Expected<void> cutTo(std::uint64_t) override { return platform::failure(5); }
    Expected<void> growTo(std::uint64_t) override { return platform::failure(5); }
    std::vector<platform::Range> dataIn(const platform::Range &range) const override { return {range}; }
    Expected<void> makeHole(const platform::Range &) override { return platform::failure(5); }
    Expected<platform::Metadata> metadata(platform::Keep) const override { return platform::Metadata(); }
    platform::MissingParts apply(const platform::Metadata &, platform::Keep) override { return {}; }
    Expected<void> startWriteOut(std::uint64_t, std::uint64_t) override { return {}; }
    Expected<void> finishWriteOut(std::uint64_t, std::uint64_t) override { return {}; }
    Expected<void> sync() override { return {}; }
    void dropCached(std::uint64_t, std::uint64_t) override {}
    bool isOutOfMemory() const override { return false; }
    Expected<void> close() override { return {}; }

private:
    std::string_view m_content;
};

void insist(bool holds)
{
    if (!holds)
        std::abort();
}

bool liesBelow(const std::string &path)
{
    const auto parts = "/" + path + "/";
    return !path.empty() && parts.find("/../") == std::string::npos && parts.find("//") == std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    MemoryFile file(text);
    KnownFiles known("/tmp");
    std::vector<std::string> paths;
    const auto manifest = readMhl(file, [&](const ManifestEntry &entry) {
        insist(liesBelow(entry.path));
        for (const auto &digest : entry.digests)
            insist(isDigest(digest.format, digest.text));
        known.add(entry);
        paths.push_back(entry.path);
    });
    insist(manifest || !manifest.error().text().empty());
    if (manifest) {
        const IgnorePatterns patterns(manifest->ignored);
        for (const auto &path : paths)
            (void)patterns.matches(path, false);
    }
    insist(known.finish());
    for (KnownFiles::Reader reader(known); reader; reader.next())
        insist(liesBelow(reader.file().path));
    const auto chain = readChain(file);
    insist(chain || !chain.error().text().empty());
    for (const auto &generation : chain.value_or(std::vector<MhlReference>()))
        insist(liesBelow(generation.path) && isDigest(DigestFormat::C4, generation.c4));
    return 0;
}
