#pragma once

namespace orvana::platform::posix
{

/// Opens standard input, output and error where the caller of the program closed them: the next file that is
/// opened would get their number, and take up what is printed. Called first of all.
void openStandardFiles();

/// Makes an empty folder, which exists no more, the working folder. One rule looks up bare names there; it
/// must never meet a file of the user's by chance. Called once all paths are absolute.
void enterEmptyFolder();

} // namespace orvana::platform::posix
