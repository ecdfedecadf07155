#include "cli/CancelRequest.h"

#include <csignal>
#include <ctime>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace orvana::cli
{

namespace
{

sigset_t endSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

} // namespace

void CancelRequest::blockSignals()
{
    const auto signals = endSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    // A reader that went away and a limit on file sizes are errors of a write, not reasons to die.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

CancelRequest::CancelRequest(std::function<void()> onSignal)
    : m_thread([onSignal = std::move(onSignal)](const std::stop_token &end) {
          const auto signals = endSignals();
          constexpr timespec aMoment{0, 50'000'000};
          bool wasAsked = false;
          while (!end.stop_requested()) {
              if (sigtimedwait(&signals, nullptr, &aMoment) < 0)
                  continue;
              // Who asks again does not want to wait for an orderly end.
              if (std::exchange(wasAsked, true)) {
                  constexpr std::string_view Left =
                      "plurimoctl: left at once; an erase that was begun goes on by itself\n";
                  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, Left.data(), Left.size());
                  ::_exit(130);
              }
              onSignal();
          }
      })
{
}

} // namespace orvana::cli
