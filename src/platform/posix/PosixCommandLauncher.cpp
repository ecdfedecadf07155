#include "platform/posix/PosixCommandLauncher.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/posix/Descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

/// The settings with which the child is started: pipes as its input and output, no blocked signals, and its
/// own process group. A signal that the user sends from the terminal must not end a disk tool in the middle
/// of its work.
class SpawnSettings
{
public:
    SpawnSettings(int input, int output, Complaints complaints)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        if (complaints == Complaints::IntoTheOutput)
            posix_spawn_file_actions_adddup2(&m_actions, output, STDERR_FILENO);
        posix_spawnattr_init(&m_attributes);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSettings(const SpawnSettings &) = delete;
    SpawnSettings &operator=(const SpawnSettings &) = delete;

    const posix_spawn_file_actions_t *actions() const { return &m_actions; }
    const posix_spawnattr_t *attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

std::string readToTheEnd(int number)
{
    std::string text;
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto count = ::read(number, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

int waitFor(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

CommandLauncher::Result PosixCommandLauncher::run(const std::string &path,
                                                  const std::vector<std::string> &arguments)
{
    const auto notStarted = [&](int error) {
        systemLog(displayPath(path) + " cannot be started: " + std::generic_category().message(error));
        return Result{};
    };
    std::array<int, 2> input{-1, -1};
    std::array<int, 2> output{-1, -1};
    if (::pipe2(input.data(), O_CLOEXEC) != 0)
        return notStarted(errno);
    const Descriptor inputEnd(input[0]);
    Descriptor ourInput(input[1]);
    if (::pipe2(output.data(), O_CLOEXEC) != 0)
        return notStarted(errno);
    const Descriptor ourOutput(output[0]);
    Descriptor outputEnd(output[1]);

    std::vector<char *> words{const_cast<char *>(path.c_str())};
    for (const auto &argument : arguments)
        words.push_back(const_cast<char *>(argument.c_str()));
    words.push_back(nullptr);
    const SpawnSettings settings(input[0], output[1], m_complaints);
    pid_t child = -1;
    const int error =
        ::posix_spawn(&child, path.c_str(), settings.actions(), settings.attributes(), words.data(), environ);
    if (error != 0)
        return notStarted(error);
    // After this only the child holds the other end of its output, so its output ends when the child ends.
    // Its input ends at once.
    outputEnd = Descriptor();
    ourInput = Descriptor();
    auto text = readToTheEnd(output[0]);
    return {std::move(text), waitFor(child)};
}

} // namespace orvana::platform::posix
