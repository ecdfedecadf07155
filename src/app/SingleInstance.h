#pragma once

#include <QLocalServer>

#include <functional>

namespace orvana
{

/// Keeps a user from having two windows on the same machine: the second program asks the first program to
/// come to the front, and ends.
class SingleInstance
{
public:
    /// Programs with different values of `machine` may run side by side, for example with the files of two
    /// simulated machines. Only programs of the same user find each other.
    explicit SingleInstance(const QString &machine);

    /// Asks a program that already runs to come to the front. Returns true if there is such a program.
    bool askTheFirst() const;

    /// Answers programs that start later. Calls `raise` on the main thread for each of them.
    void listen(std::function<void()> raise);

private:
    QString m_name;
    QLocalServer m_server;
};

} // namespace orvana
