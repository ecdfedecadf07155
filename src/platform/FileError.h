#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform
{

/// The reason why an operation on a file failed, as far as the program distinguishes the cases.
enum class FileProblem {
    NotFound,
    Exists,
    LeadsOutOfVolume, ///< a link or a mount in the path leads out of the volume
    NotAFile,         ///< a folder, a pipe, a socket or a device, but no regular file
    NotAFolder,
    NotSupported,
    Busy,       ///< another run holds a lock on it
    OfSource,   ///< the file belongs to the source, or may belong to it
    SameFile,   ///< the name leads to a file that was written under another name
    CannotHold, ///< the volume cannot hold what is to be copied
    NotStarted, ///< nothing is copied, because another volume cannot hold it
    Other,
};

struct FileError
{
    FileProblem problem = FileProblem::Other;
    int code = 0; ///< the system's errno, or 0

    /// The reason in plain words.
    std::string reason() const;
};

template <class T>
using Expected = tl::expected<T, FileError>;

/// Turns an errno into an error. No other function does this.
FileError fileError(int code);

/// Makes an error that a function with an `Expected` result can return directly.
tl::unexpected<FileError> failure(int code);
tl::unexpected<FileError> failure(FileProblem problem);

} // namespace orvana::platform
