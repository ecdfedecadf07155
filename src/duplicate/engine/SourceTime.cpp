#include "duplicate/engine/SourceTime.h"

#include "foundation/WorkerThread.h"

#include <chrono>
#include <thread>

namespace orvana
{

using std::chrono::nanoseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using std::chrono::system_clock;

namespace
{

// FAT keeps times in steps of two seconds. No other file system has longer steps.
constexpr seconds LongestStep{2};

} // namespace

bool mayChangeUnseen(const platform::Attributes &attributes)
{
    const nanoseconds modified(attributes.modified);
    const auto age = system_clock::now().time_since_epoch() - modified;
    return modified % seconds(1) == nanoseconds(0) && age >= nanoseconds(0) && age < LongestStep;
}

bool isUnchanged(const platform::Attributes &before, const platform::Attributes &now)
{
    return before.device == now.device && before.inode == now.inode && before.size == now.size &&
           before.modified == now.modified;
}

platform::Expected<platform::Attributes> attributesOnceOldEnough(const platform::File &source)
{
    constexpr std::chrono::milliseconds BetweenLooks{20};
    const auto deadline = steady_clock::now() + 2 * LongestStep;
    auto attributes = source.attributes();
    while (attributes && mayChangeUnseen(*attributes) && steady_clock::now() < deadline) {
        WorkerThread::exitIfCancelled();
        std::this_thread::sleep_for(BetweenLooks);
        attributes = source.attributes();
    }
    return attributes;
}

} // namespace orvana
