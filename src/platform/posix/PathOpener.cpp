#include "platform/posix/PathOpener.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

constexpr std::size_t LongestPath = PATH_MAX - 1;

int openBeneath(int at, const char *path, int flags, unsigned mode)
{
    open_how how{};
    how.flags = static_cast<unsigned>(flags);
    how.mode = (flags & O_CREAT) != 0 ? mode : 0;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_XDEV | RESOLVE_NO_MAGICLINKS;
    // EAGAIN means that something was renamed meanwhile, and the kernel could not be sure of the path.
    for (int tries = 0; tries < 128; ++tries) {
        const auto number = static_cast<int>(::syscall(SYS_openat2, at, path, &how, sizeof how));
        if (number >= 0 || (errno != EAGAIN && errno != EINTR))
            return number;
    }
    return -1;
}

int openAnywhere(int at, const char *path, int flags, unsigned mode)
{
    int number = -1;
    do {
        number = ::openat(at, path, flags, mode);
    } while (number < 0 && errno == EINTR);
    return number;
}

Expected<Descriptor> openShort(int at, std::string_view path, int flags, unsigned mode, Reach reach)
{
    const std::string text(path.empty() ? "." : path);
    const int number = reach == Reach::Beneath ? openBeneath(at, text.c_str(), flags, mode)
                                               : openAnywhere(at, text.c_str(), flags, mode);
    if (number < 0)
        return failure(errno);
    return Descriptor(number);
}

// Returns where to cut a path that is too long: after the last component that still fits.
std::size_t endOfPiece(std::string_view path)
{
    const auto slash = path.rfind('/', LongestPath - 1);
    return slash == std::string_view::npos || slash == 0 ? path.size() : slash;
}

std::string_view withoutLeadingSlashes(std::string_view path)
{
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    return path;
}

} // namespace

Expected<Descriptor> openPath(int at, std::string_view path, int flags, unsigned mode, Reach reach)
{
    if (reach == Reach::Beneath)
        path = withoutLeadingSlashes(path);
    Descriptor holder;
    while (path.size() > LongestPath) {
        const auto end = endOfPiece(path);
        const auto piece = path.substr(0, end);
        if (piece.size() > LongestPath)
            return failure(ENAMETOOLONG);
        auto next = openShort(at, piece, O_PATH | O_DIRECTORY | O_CLOEXEC, 0, reach);
        if (!next)
            return next;
        holder = std::move(*next);
        at = holder.number();
        path = withoutLeadingSlashes(path.substr(end));
    }
    return openShort(at, path, flags | O_CLOEXEC, mode, reach);
}

Expected<Entry> openHolder(int at, std::string_view path, Reach reach)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return Entry{Descriptor(), at, std::string(path)};
    const auto folder = path.substr(0, std::max<std::size_t>(slash, 1));
    auto holder = openPath(at, folder, O_PATH | O_DIRECTORY, 0, reach);
    if (!holder)
        return tl::unexpected(holder.error());
    const int number = holder->number();
    return Entry{std::move(*holder), number, std::string(path.substr(slash + 1))};
}

} // namespace orvana::platform::posix
