#pragma once

#include <string>
#include <vector>

namespace CLI
{
class App;
}

namespace orvana::cli
{

/// The shells that `completionFor` knows.
extern const std::vector<std::string> CompletedShells;

/// Returns a script that completes the commands, options and values of `app` in `shell`, which is one of
/// `CompletedShells`. The script is made of what `app` tells in its help, so the two cannot differ.
std::string completionFor(const std::string &shell, const CLI::App &app);

} // namespace orvana::cli
