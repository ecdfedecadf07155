#pragma once

#include <QLocalServer>

#include <functional>

namespace orvana
{

/// Keeps a user from having two windows on the same machine: the second program asks the first to come to the
/// front, and ends.
class SingleInstance
{
public:
    /// `machine` tells apart what may run side by side, such as the file of a simulated machine. Only the
    /// same user's programs find each other.
    explicit SingleInstance(const QString &machine);

    /// True when another program was there and has been asked.
    bool askTheFirst() const;

    /// Answers later programs; `raise` is called on the main thread.
    void listen(std::function<void()> raise);

private:
    QString m_name;
    QLocalServer m_server;
};

} // namespace orvana
