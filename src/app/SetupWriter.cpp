#include "app/SetupWriter.h"

#include "foundation/MainQueue.h"
#include "foundation/SystemLog.h"

#include <cstdlib>
#include <utility>

namespace orvana
{

SetupWriter::~SetupWriter()
{
    if (m_threads.joinAll(m_patience))
        return;
    systemLog("The question for the right to write an enclosure is not answered; leaving without the answer");
    std::quick_exit(EXIT_SUCCESS);
}

void SetupWriter::add(enclosures::Definition definition, std::function<void(const Outcome &)> done)
{
    m_threads.add(std::make_unique<WorkerThread>(
        [this, definition = std::move(definition), done = std::move(done)]() mutable {
            auto outcome = m_setup.add(definition);
            m_queue.async([done = std::move(done), outcome = std::move(outcome)] { done(outcome); });
        }));
}

} // namespace orvana
