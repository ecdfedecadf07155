#pragma once

#include "foundation/MainQueue.h"

#include <QObject>

namespace orvana
{

/// The window's main queue: Qt's event loop of the thread that made the queue.
class QtMainQueue final : public MainQueue
{
public:
    void async(std::function<void()> work) override;
    void after(std::chrono::milliseconds delay, std::function<void()> work) override;

private:
    QObject m_receiver;
};

} // namespace orvana
