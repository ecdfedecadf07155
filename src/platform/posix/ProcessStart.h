#pragma once

namespace orvana::platform::posix
{

/// Opens standard input, output and error where the caller of the program closed them. Otherwise the next
/// file that is opened would get their number, and printed text would end up in it. Call this before anything
/// else.
void openStandardFiles();

/// Makes an empty folder, removes it, and stays in it as the working folder. One rule looks up bare names in
/// the working folder, and must never find a file of the user by chance. Call this after all paths have been
/// made absolute.
void enterEmptyFolder();

} // namespace orvana::platform::posix
