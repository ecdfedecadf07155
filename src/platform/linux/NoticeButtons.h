#pragma once

#include <QObject>

#include <functional>
#include <map>

namespace orvana::platform::linux_host
{

/// The buttons of the notices that the desktop shows. A notice may stay for as long as the user likes, so
/// every button is remembered.
class NoticeButtons : public QObject
{
    Q_OBJECT

public:
    /// Remembers the button and returns a name for it that no other button in the session has.
    QString add(std::function<void()> pressed);

    /// Receives the desktop's signal that the user pressed a button, of this program or of another program.
    Q_SLOT void ActionInvoked(uint notice, const QString &name);

private:
    std::map<QString, std::function<void()>> m_pressed;
};

} // namespace orvana::platform::linux_host
