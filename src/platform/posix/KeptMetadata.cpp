#include "platform/posix/KeptMetadata.h"

#include "platform/posix/StatAttributes.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace orvana::platform::posix
{

namespace
{

constexpr std::int64_t NanosecondsOfASecond = 1'000'000'000;

// FAT keeps times in steps of two seconds. A date that is no further away counts as kept.
constexpr std::int64_t CoarsestStep = 2 * NanosecondsOfASecond;

// Other names speak of the file system itself, or of the machine's own rules.
constexpr std::string_view KeptNames[] = {"user.", "trusted.", "security.capability",
                                          "system.posix_acl_access", "system.posix_acl_default"};

// Of a file system that lies over others; and the access lists once more, as XFS shows them to root.
constexpr std::string_view ForeignNames[] = {"trusted.overlay.", "trusted.SGI_ACL_"};

bool isKept(std::string_view name)
{
    const auto isThere = [&](std::string_view start) { return name.starts_with(start); };
    return std::any_of(std::begin(KeptNames), std::end(KeptNames), isThere) &&
           std::none_of(std::begin(ForeignNames), std::end(ForeignNames), isThere);
}

Metadata basicsOf(const struct stat &status)
{
    const auto attributes = attributesOf(status);
    Metadata metadata;
    metadata.permissions = attributes.permissions;
    metadata.owner = attributes.owner;
    metadata.group = attributes.group;
    metadata.modified = attributes.modified;
    return metadata;
}

// Calls the system function `read` with a buffer that is large enough. Another program may make the answer
// longer between two calls.
template <class Read>
Expected<std::string> readGrowing(Read read)
{
    std::string bytes(256, '\0');
    for (;;) {
        const auto length = read(bytes.data(), bytes.size());
        if (length >= 0) {
            bytes.resize(static_cast<std::size_t>(length));
            return bytes;
        }
        if (errno != ERANGE || bytes.size() >= XATTR_LIST_MAX)
            return failure(errno);
        bytes.resize(bytes.size() == 256 ? 8192 : XATTR_LIST_MAX);
    }
}

Expected<std::vector<std::string>> keptNamesOf(int descriptor)
{
    const auto list =
        readGrowing([&](char *into, std::size_t size) { return ::flistxattr(descriptor, into, size); });
    std::vector<std::string> names;
    if (!list) {
        if (list.error().code == EOPNOTSUPP)
            return names;
        return tl::unexpected(list.error());
    }
    for (std::size_t start = 0; start < list->size(); start += names.back().size() + 1)
        names.emplace_back(list->c_str() + start);
    std::erase_if(names, [](const std::string &name) { return !isKept(name); });
    std::sort(names.begin(), names.end());
    return names;
}

Expected<std::string> valueOf(int descriptor, const std::string &name)
{
    return readGrowing(
        [&](char *into, std::size_t size) { return ::fgetxattr(descriptor, name.c_str(), into, size); });
}

void readExtended(int descriptor, Metadata &metadata)
{
    const auto names = keptNamesOf(descriptor);
    metadata.isComplete = names.has_value();
    if (!names)
        return;
    for (const auto &name : *names) {
        auto value = valueOf(descriptor, name);
        if (value)
            metadata.extended.push_back({name, std::move(*value)});
        else if (value.error().code != ENODATA) // else it was removed meanwhile
            metadata.isComplete = false;
    }
}

bool setOwner(int descriptor, const Metadata &now, const Metadata &wanted)
{
    if (now.owner == wanted.owner && now.group == wanted.group)
        return true;
    if (::fchown(descriptor, wanted.owner, wanted.group) == 0)
        return true;
    // An ordinary user may at least give an entry to a group that they belong to.
    const auto sameOwner = static_cast<uid_t>(-1);
    return ::fchown(descriptor, sameOwner, wanted.group) == 0 && now.owner == wanted.owner;
}

bool setPermissions(int descriptor, std::uint32_t wanted)
{
    struct stat status{};
    if (::fstat(descriptor, &status) != 0)
        return false;
    if ((status.st_mode & 07777U) == wanted)
        return true;
    // Some volumes take every change and make none.
    return ::fchmod(descriptor, wanted) == 0 && ::fstat(descriptor, &status) == 0 &&
           (status.st_mode & 07777U) == wanted;
}

bool setOneExtended(int descriptor, const ExtendedAttribute &attribute)
{
    const auto there = valueOf(descriptor, attribute.name);
    return (there && *there == attribute.value) ||
           ::fsetxattr(descriptor, attribute.name.c_str(), attribute.value.data(), attribute.value.size(),
                       0) == 0;
}

// Sets the attributes, and removes those that the source does not have.
bool setExtended(int descriptor, const Metadata &wanted)
{
    bool isWhole = wanted.isComplete;
    const auto there = keptNamesOf(descriptor);
    for (const auto &name : there.value_or(std::vector<std::string>())) {
        const bool isWanted =
            std::any_of(wanted.extended.begin(), wanted.extended.end(),
                        [&](const ExtendedAttribute &attribute) { return attribute.name == name; });
        if (!isWanted && wanted.isComplete && ::fremovexattr(descriptor, name.c_str()) != 0)
            isWhole = false;
    }
    for (const auto &attribute : wanted.extended)
        isWhole = setOneExtended(descriptor, attribute) && isWhole;
    return isWhole;
}

// An ordinary user must be allowed to write to an entry to change its extended attributes, so a read-only one
// gets that right for a moment.
bool setExtendedOfAny(int descriptor, const Metadata &wanted)
{
    if (setExtended(descriptor, wanted))
        return true;
    constexpr unsigned Writable = 0200;
    if (!wanted.isComplete || !wanted.permissions || (*wanted.permissions & Writable) != 0 ||
        ::fchmod(descriptor, *wanted.permissions | Writable) != 0)
        return false;
    const bool isSet = setExtended(descriptor, wanted);
    return ::fchmod(descriptor, *wanted.permissions) == 0 && isSet;
}

struct timespec timeOf(std::int64_t nanoseconds)
{
    auto seconds = nanoseconds / NanosecondsOfASecond;
    auto rest = nanoseconds % NanosecondsOfASecond;
    if (rest < 0) {
        --seconds;
        rest += NanosecondsOfASecond;
    }
    return {seconds, rest};
}

bool isNear(std::int64_t a, std::int64_t b)
{
    return std::abs(a - b) <= CoarsestStep;
}

bool setDate(int descriptor, std::int64_t wanted)
{
    struct stat status{};
    if (::fstat(descriptor, &status) == 0 && attributesOf(status).modified == wanted)
        return true;
    const timespec times[] = {{0, UTIME_OMIT}, timeOf(wanted)};
    return ::futimens(descriptor, times) == 0 && ::fstat(descriptor, &status) == 0 &&
           isNear(attributesOf(status).modified, wanted);
}

} // namespace

Expected<Metadata> metadataOf(int descriptor, Keep keep)
{
    struct stat status{};
    if (::fstat(descriptor, &status) != 0)
        return failure(errno);
    auto metadata = basicsOf(status);
    if (keep == Keep::All)
        readExtended(descriptor, metadata);
    return metadata;
}

// A change of owner removes set-id bits and capabilities, so it comes first. Each change may touch the date,
// so that comes last.
MissingParts applyMetadata(int descriptor, const Metadata &metadata, Keep keep)
{
    MissingParts missing;
    if (keep == Keep::Nothing)
        return missing;
    struct stat status{};
    if (keep == Keep::All && ::fstat(descriptor, &status) == 0) {
        if (!setOwner(descriptor, basicsOf(status), metadata))
            missing.add(Part::Owner);
        // A set-id bit means another thing with another owner.
        constexpr unsigned SetIdBits = S_ISUID | S_ISGID;
        const auto bits = missing.has(Part::Owner) ? ~SetIdBits : ~0U;
        if (metadata.permissions && (!setPermissions(descriptor, *metadata.permissions & bits) ||
                                     (*metadata.permissions & ~bits) != 0))
            missing.add(Part::Permissions);
        if (!setExtendedOfAny(descriptor, metadata))
            missing.add(Part::ExtendedAttributes);
    }
    if (!setDate(descriptor, metadata.modified))
        missing.add(Part::Date);
    return missing;
}

Expected<Metadata> metadataOfLink(int at, const char *name)
{
    struct stat status{};
    if (::fstatat(at, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failure(errno);
    return basicsOf(status);
}

MissingParts applyToLink(int at, const char *name, const Metadata &metadata, Keep keep)
{
    MissingParts missing;
    const auto now = metadataOfLink(at, name);
    const bool hasOwner = now && now->owner == metadata.owner && now->group == metadata.group;
    if (keep == Keep::All && !hasOwner &&
        ::fchownat(at, name, metadata.owner, metadata.group, AT_SYMLINK_NOFOLLOW) != 0)
        missing.add(Part::Owner);
    const timespec times[] = {{0, UTIME_OMIT}, timeOf(metadata.modified)};
    const bool isSet = ::utimensat(at, name, times, AT_SYMLINK_NOFOLLOW) == 0;
    const auto then = metadataOfLink(at, name);
    if (!isSet || !then || !isNear(then->modified, metadata.modified))
        missing.add(Part::Date);
    return missing;
}

} // namespace orvana::platform::posix
