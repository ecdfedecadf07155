#pragma once

#include "enclosures/EnclosureSetup.h"
#include "foundation/WorkerThread.h"

#include <chrono>
#include <functional>

namespace orvana
{

class MainQueue;

/// Writes enclosure definitions on threads of its own, because the desktop may ask the user for a password
/// first. Main thread only.
class SetupWriter
{
public:
    using Outcome = tl::expected<void, std::string>;

    /// `setup` and `queue` must outlive the writer.
    SetupWriter(enclosures::EnclosureSetup &setup, MainQueue &queue,
                std::chrono::milliseconds patience = std::chrono::seconds(10))
        : m_setup(setup), m_queue(queue), m_patience(patience)
    {
    }

    /// Waits at most `patience` for a definition that is being written. After that the process ends here,
    /// because the thread uses objects that would be destroyed next.
    ~SetupWriter();
    SetupWriter(const SetupWriter &) = delete;
    SetupWriter &operator=(const SetupWriter &) = delete;

    /// Starts to write the definition. Calls `done` on the main queue with the outcome, even if the writer is
    /// gone by then.
    void add(enclosures::Definition definition, std::function<void(const Outcome &)> done);

private:
    enclosures::EnclosureSetup &m_setup;
    MainQueue &m_queue;
    std::chrono::milliseconds m_patience;
    RetiredThreads m_threads;
};

} // namespace orvana
