#pragma once

#include "cli/MachineFixture.h"

#include <cstdio>
#include <filesystem>
#include <functional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvana::cli
{

/// The programs as processes of their own.
class Process : public SimulatedMachineTest
{
protected:
    /// Starts the program with these words. If `isClosed`, closes its standard files first.
    pid_t startProgram(const Files &words, bool isClosed = false, const char *name = PLURIMOCTL)
    {
        ::unlink(m_tree.path("said").c_str());
        std::vector<std::string> all{name};
        all.insert(all.end(), words.begin(), words.end());
        std::vector<char *> arguments;
        for (auto &word : all)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = ::fork();
        if (child != 0)
            return child;
        for (const int number : {0, 1, 2}) {
            if (isClosed)
                ::close(number);
        }
        if (!isClosed)
            (void)!::freopen(m_tree.path("said").c_str(), "w", stdout);
        ::execv(name, arguments.data());
        ::_exit(99);
    }

    static int statusOf(pid_t child)
    {
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    }

    static bool waitFor(const std::function<bool()> &condition)
    {
        for (int i = 0; i < 4000; ++i) {
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }

    void untilSaid(const std::string &text)
    {
        EXPECT_TRUE(waitFor([&] {
            return m_tree.exists("said") && m_tree.read("said").find(text) != std::string::npos;
        })) << "never said "
            << text;
    }
};

} // namespace orvana::cli
