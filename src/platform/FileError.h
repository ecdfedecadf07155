#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform
{

/// What stands between the program and a file, as far as the program tells cases apart.
enum class FileProblem {
    NotFound,
    Exists,
    LeadsOutOfVolume, ///< a link or a mount on the way leaves the volume
    NotAFile,         ///< a folder, a pipe, a socket or a device where a file should be
    NotAFolder,
    NotSupported,
    Busy,     ///< somebody else holds it
    OfSource, ///< it is a file of the source, or may be one
    SameFile, ///< the name leads to a file that was written under another name
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

/// The one place that turns an errno into an error.
FileError fileError(int code);

/// The same, ready to be returned from a function with an `Expected` result.
tl::unexpected<FileError> failure(int code);
tl::unexpected<FileError> failure(FileProblem problem);

} // namespace orvana::platform
