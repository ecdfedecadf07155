#include "foundation/qt/QtMainQueue.h"

#include <QMetaObject>
#include <QTimer>

#include <utility>

namespace orvana
{

void QtMainQueue::async(std::function<void()> work)
{
    QMetaObject::invokeMethod(&m_receiver, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::after(std::chrono::milliseconds delay, std::function<void()> work)
{
    // A timer belongs to the thread that starts it, so it is started on the queue's thread.
    async([this, delay, work = std::move(work)] { QTimer::singleShot(delay, &m_receiver, work); });
}

} // namespace orvana
