#include "platform/SmallFiles.h"

#include <algorithm>
#include <span>

namespace orvana::platform
{

namespace
{

constexpr const char *Unfinished = ".new";

} // namespace

Expected<std::string> readSmallFile(const Folder &folder, const std::string &name, std::size_t most)
{
    const auto file = folder.openFile(name, Access::Read);
    if (!file)
        return tl::unexpected(file.error());
    const auto attributes = (*file)->attributes();
    if (!attributes)
        return tl::unexpected(attributes.error());
    std::string text(std::min<std::uint64_t>(attributes->size, most), '\0');
    const auto count = (*file)->read(std::as_writable_bytes(std::span(text)), 0);
    if (!count)
        return tl::unexpected(count.error());
    text.resize(*count);
    return text;
}

Expected<void> replaceSmallFile(const Folder &folder, const std::string &name, const std::string &text,
                                std::uint32_t permissions)
{
    const auto unfinished = name + Unfinished;
    (void)folder.remove(unfinished); // of a program that was ended meanwhile
    Attributes like;
    like.permissions = permissions;
    const auto file = folder.createFile(unfinished, like);
    if (!file)
        return tl::unexpected(file.error());
    auto done = (*file)->write(std::as_bytes(std::span(text)), 0);
    if (done)
        done = (*file)->sync();
    if (done)
        done = (*file)->close();
    return done ? folder.rename(unfinished, name, Existing::Replace) : done;
}

Expected<void> appendToSmallFile(const Folder &folder, const std::string &name, const std::string &text)
{
    const auto file = folder.openFile(name, Access::ReadAndWrite);
    if (!file)
        return tl::unexpected(file.error());
    const auto attributes = (*file)->attributes();
    if (!attributes)
        return tl::unexpected(attributes.error());
    const auto written = (*file)->write(std::as_bytes(std::span(text)), attributes->size);
    return written ? (*file)->sync() : written;
}

} // namespace orvana::platform
