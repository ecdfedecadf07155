#include "platform/posix/CancelRequest.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <ctime>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace orvana::platform::posix
{

namespace
{

sigset_t endSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGHUP);
    return signals;
}

constexpr timespec AMoment{0, 50'000'000};

// The number of requests that wait at this moment.
std::atomic<int> waiting{0};

std::atomic<void (*)()> tidyUp{nullptr};

[[noreturn]] void leaveAtOnce()
{
    if (auto *tidy = tidyUp.load())
        tidy();
    ::_exit(130);
}

} // namespace

void CancelRequest::endWhileNobodyWaits()
{
    std::thread([] {
        const auto signals = endSignals();
        for (;;) {
            if (waiting > 0)
                std::this_thread::sleep_for(std::chrono::nanoseconds(AMoment.tv_nsec));
            else if (sigtimedwait(&signals, nullptr, &AMoment) >= 0)
                leaveAtOnce();
        }
    }).detach();
}

void CancelRequest::beforeLeavingAtOnce(void (*tidy)())
{
    tidyUp = tidy;
}

void CancelRequest::blockSignals()
{
    const auto signals = endSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    // A reader that has gone away, or a limit on file sizes, must make a write fail and not end the process.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

CancelRequest::CancelRequest(std::function<void()> onSignal)
    : m_thread([onSignal = std::move(onSignal)](const std::stop_token &end) {
          const auto signals = endSignals();
          bool wasAsked = false;
          ++waiting;
          while (!end.stop_requested()) {
              if (sigtimedwait(&signals, nullptr, &AMoment) < 0)
                  continue;
              // A user who asks again does not want to wait for an orderly end.
              if (std::exchange(wasAsked, true)) {
                  constexpr std::string_view Left =
                      "plurimoctl: left at once; an erase that was begun goes on by itself\n";
                  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, Left.data(), Left.size());
                  leaveAtOnce();
              }
              onSignal();
          }
          --waiting;
      })
{
}

CancelRequest::~CancelRequest() = default;

} // namespace orvana::platform::posix
