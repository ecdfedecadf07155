#include "platform/FileError.h"

#include <cerrno>
#include <system_error>

namespace orvana::platform
{

namespace
{

FileProblem problemOf(int code)
{
    switch (code) {
    case ENOENT:
        return FileProblem::NotFound;
    case EEXIST:
        return FileProblem::Exists;
    case EXDEV:
        return FileProblem::LeadsOutOfVolume;
    case EISDIR:
    case ENXIO:
        return FileProblem::NotAFile;
    case ENOTDIR:
        return FileProblem::NotAFolder;
    case EWOULDBLOCK:
        return FileProblem::Busy;
    case EOPNOTSUPP:
    case ENOSYS:
        return FileProblem::NotSupported;
    default:
        return FileProblem::Other;
    }
}

} // namespace

std::string FileError::reason() const
{
    if (problem == FileProblem::LeadsOutOfVolume)
        return "The path leads out of the volume";
    if (problem == FileProblem::NotAFile)
        return "Not a regular file";
    if (problem == FileProblem::Busy)
        return "Another run is at work there";
    if (problem == FileProblem::OfSource)
        return "It is a file of the source, or may be one";
    if (problem == FileProblem::SameFile)
        return "The volume does not tell it from another file of this run";
    if (problem == FileProblem::CannotHold)
        return "The volume cannot hold the selection";
    if (problem == FileProblem::NotStarted)
        return "Nothing was copied, because another volume cannot hold the selection";
    return std::generic_category().message(code);
}

FileError fileError(int code)
{
    return {problemOf(code), code};
}

tl::unexpected<FileError> failure(int code)
{
    return tl::unexpected(fileError(code));
}

tl::unexpected<FileError> failure(FileProblem problem)
{
    return tl::unexpected(FileError{problem, 0});
}

} // namespace orvana::platform
