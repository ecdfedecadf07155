#include "support/Shell.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <sys/wait.h>

namespace orvana::test
{

Said runShell(const std::string &command)
{
    Said said;
    std::FILE *pipe = ::popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "re");
    if (!pipe)
        return said;
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        said.text += buffer.data();
    const int status = ::pclose(pipe);
    said.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    while (said.text.ends_with('\n'))
        said.text.pop_back();
    return said;
}

std::string must(const std::string &command)
{
    auto said = runShell(command);
    if (said.status != 0)
        throw std::runtime_error(command + ": " + said.text);
    return said.text;
}

std::string asWord(const std::string &text)
{
    std::string word = "'";
    for (const char c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

} // namespace orvana::test
