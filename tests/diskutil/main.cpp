#include "diskutil/PrivateSystem.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sched.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

// Containers forbid namespaces even to root. A child process tries, so that this process keeps its
// namespaces.
bool mayHaveNamespaces()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(::unshare(CLONE_NEWNS | CLONE_NEWNET | CLONE_NEWPID) == 0 ? 0 : 1);
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

bool canHavePrivateSystem()
{
    if (::geteuid() != 0 || ::access("/dev/loop-control", R_OK | W_OK) != 0)
        return false;

    for (const char *program : {"/usr/libexec/udisks2/udisksd", "/lib/systemd/systemd-udevd",
                                "/usr/bin/dbus-daemon", "/usr/bin/dbus-send", "/usr/bin/unshare"}) {
        if (::access(program, X_OK) != 0)
            return false;
    }
    return mayHaveNamespaces();
}

// The name of a suite says whether it needs another system.
void chooseSystem(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word.find("PlayedAuthority") != std::string_view::npos)
            ::setenv("ORVANA_PLAYED_POLKIT", "1", 1);
        if (word.find("NoDiskService") != std::string_view::npos)
            ::setenv("ORVANA_NO_DISK_SERVICE", "1", 1);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const bool onlyLists = std::any_of(
        argv, argv + argc, [](const char *word) { return std::string_view(word) == "--gtest_list_tests"; });
    if (!onlyLists && !orvana::test::hasPrivateSystem() && canHavePrivateSystem()) {
        chooseSystem(argc, argv);
        std::vector<char *> words(argv, argv + argc);
        std::string script = PRIVATE_SYSTEM;
        std::string self(4096, '\0');
        const auto length = ::readlink("/proc/self/exe", self.data(), self.size() - 1);
        self.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        words[0] = self.data();
        words.insert(words.begin(), script.data());
        words.push_back(nullptr);
        ::execv(script.c_str(), words.data());
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
