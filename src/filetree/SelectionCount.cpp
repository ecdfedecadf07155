#include "filetree/SelectionCount.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"

#include <atomic>
#include <utility>

namespace orvana
{

// Knows which count may post. A count that hangs in the kernel may outlive its owner, so the counts share
// this object.
struct SelectionCount::Speaker
{
    explicit Speaker(NotificationCenter &notificationCenter) : center(notificationCenter) {}

    void post(const CountTotals *count, const char *name) const
    {
        if (current == count)
            center.post(name);
    }

    NotificationCenter &center;
    std::atomic<const CountTotals *> current{nullptr};
};

SelectionCount::SelectionCount(platform::Host &host, NotificationCenter &center)
    : m_host(host), m_speaker(std::make_shared<Speaker>(center))
{
}

SelectionCount::~SelectionCount()
{
    stop();
    m_retired.joinAll(std::chrono::seconds(10));
}

void SelectionCount::start(std::vector<FileListRow> rows)
{
    stop();
    m_totals = std::make_shared<CountTotals>();
    m_speaker->current = m_totals.get();
    m_thread = std::make_unique<WorkerThread>(
        [&host = m_host, speaker = m_speaker, totals = m_totals, rows = std::move(rows)] {
            SizeCounter counter(host, *totals,
                                [&] { speaker->post(totals.get(), notification::FileSizeChange); });
            for (const auto &row : rows) {
                WorkerThread::exitIfCancelled();
                if (row.isTicked())
                    counter.sizeOfFolder(row.fullPath);
            }
            WorkerThread::exitIfCancelled();
            speaker->post(totals.get(), notification::FileSizeChange);
            speaker->post(totals.get(), notification::UpdateDiskInfoColor);
        });
}

void SelectionCount::stop()
{
    m_speaker->current = nullptr;
    if (!m_thread)
        return;
    m_thread->requestCancel();
    m_retired.add(std::move(m_thread));
}

bool SelectionCount::waitForEnd(std::chrono::milliseconds limit) const
{
    return (!m_thread || m_thread->waitForEnd(limit)) && m_retired.waitForAll(limit);
}

} // namespace orvana
