#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>

#include <mutex>
#include <vector>

namespace orvana::test
{

/// Answers every call to the services that it plays, on a thread of its own.
class PlayedService final : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const std::lock_guard lock(m_mutex);
        m_calls.push_back(message);
        const auto what = message.arguments().value(0).toString();
        if (message.member() == QStringLiteral("Inhibit")) {
            if (isLidForbidden && what.contains(QStringLiteral("lid")))
                return connection.send(message.createErrorReply(QDBusError::AccessDenied, {}));
            return connection.send(message.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(held))));
        }
        return connection.send(message.createReply(QVariant(1U)));
    }

    std::vector<QDBusMessage> calls()
    {
        const std::lock_guard lock(m_mutex);
        return m_calls;
    }

    bool isLidForbidden = false;
    int held = -1;

private:
    std::mutex m_mutex;
    std::vector<QDBusMessage> m_calls;
};

} // namespace orvana::test
