#include "platform/posix/ProcessStart.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace orvana::platform::posix
{

void openStandardFiles()
{
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) < 0)
            (void)::open("/dev/null", O_RDWR); // open returns the lowest free number, which is this one
    }
}

void enterEmptyFolder()
{
    for (std::string folder :
         {"/run/user/" + std::to_string(::getuid()) + "/orvana-XXXXXX", std::string("/tmp/orvana-XXXXXX")}) {
        if (!::mkdtemp(folder.data()))
            continue;
        const bool isThere = ::chdir(folder.c_str()) == 0;
        ::rmdir(folder.c_str());
        if (isThere)
            return;
    }
}

} // namespace orvana::platform::posix
