// The desktop's services. The test plays them on its own bus.

#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/BusProbe.h"
#include "platform/linux/PlayedService.h"
#include "platform/posix/Descriptor.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <array>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

// Makes a socket that accepts connections and never answers. If `start` is 1, its name is abstract.
platform::posix::Descriptor listenAt(const std::string &name, std::size_t start)
{
    platform::posix::Descriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    name.copy(&address.sun_path[start], sizeof address.sun_path - 1 - start);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + 1);
    EXPECT_EQ(::bind(listener.number(), reinterpret_cast<const sockaddr *>(&address), length), 0);
    EXPECT_EQ(::listen(listener.number(), 5), 0);
    return listener;
}

constexpr const char *BusSettings = R"(<busconfig><type>session</type><listen>ADDRESS</listen>
<auth>EXTERNAL</auth><policy context="default"><allow user="*"/><allow own="*"/>
<allow send_type="method_call"/><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
</policy></busconfig>)";

/// Receives the reported progress, as a dock does.
class Dock : public QObject
{
    Q_OBJECT

public:
    Q_SLOT void Update(const QString &program, const QVariantMap &properties)
    {
        EXPECT_EQ(program.toStdString(), "application://orvana-plurimo.desktop");
        shown.push_back(properties.value(QStringLiteral("progress-visible")).toBool()
                            ? properties.value(QStringLiteral("progress")).toDouble()
                            : -1);
    }

    std::vector<double> shown;
};

} // namespace

class Desktop : public testing::Test
{
protected:
    Desktop()
    {
        startDaemon("unix:dir=" + m_tree.root());
        EXPECT_EQ(::pipe2(m_pipe.data(), O_CLOEXEC), 0);
    }

    ~Desktop() override
    {
        m_thread.quit();
        m_thread.wait();
        QDBusConnection::disconnectFromBus(QStringLiteral("played"));
        ::close(m_pipe[0]);
        m_daemon.kill();
        m_daemon.waitForFinished(-1);
    }

    void startDaemon(const std::string &listening)
    {
        auto settings = std::string(BusSettings);
        settings.replace(settings.find("ADDRESS"), 7, listening);
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
             QStringLiteral("--config-file=") + QString::fromStdString(m_tree.file("bus.conf", settings))});
        m_daemon.waitForReadyRead(-1);
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        m_address.truncate(m_address.indexOf(QStringLiteral(",guid=")));
    }

    /// Replaces the bus by a new one at the same address.
    void restartDaemon()
    {
        m_daemon.kill();
        m_daemon.waitForFinished(-1);
        QDBusConnection::disconnectFromBus(QStringLiteral("played"));
        std::filesystem::remove(address().substr(address().find('/')));
        startDaemon(address());
    }

    void play(const char *name)
    {
        m_service.held = m_pipe[1];
        auto connection = QDBusConnection::connectToBus(m_address, QStringLiteral("played"));
        ASSERT_TRUE(
            connection.registerVirtualObject(QStringLiteral("/org"), &m_service, QDBusConnection::SubPath));
        m_service.moveToThread(&m_thread);
        m_thread.start();
        ASSERT_TRUE(connection.registerService(QString::fromLatin1(name)));
    }

    std::string address() const { return m_address.toStdString(); }

    /// Simulates a user who presses a button of a notice.
    static void press(const QString &button)
    {
        auto message = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/Notifications"),
                                                  QStringLiteral("org.freedesktop.Notifications"),
                                                  QStringLiteral("ActionInvoked"));
        message << 7U << button;
        EXPECT_TRUE(QDBusConnection(QStringLiteral("played")).send(message));
    }

    static void until(const std::function<bool()> &condition)
    {
        EXPECT_TRUE(QTest::qWaitFor(condition, 30'000));
    }

    TemporaryTree m_tree;
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    PlayedService m_service;
    std::array<int, 2> m_pipe{-1, -1};
};

TEST_F(Desktop, SleepIsHeldOffAsLongAsTheAnswerLives)
{
    play("org.freedesktop.login1");
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    auto awake = workspace.holdOffSleep("a run is on");
    ASSERT_NE(awake, nullptr);
    const auto calls = m_service.calls();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].arguments().at(0).toString().toStdString(), "sleep:idle:handle-lid-switch");
    EXPECT_EQ(calls[0].arguments().at(2).toString().toStdString(), "a run is on");
    EXPECT_EQ(calls[0].arguments().at(3).toString().toStdString(), "block");
    ::close(m_pipe[1]);
    ::fcntl(m_pipe[0], F_SETFL, O_NONBLOCK);
    char byte = 0;
    EXPECT_EQ(::read(m_pipe[0], &byte, 1), -1) << "someone still holds the other end";
    awake.reset();
    ::fcntl(m_pipe[0], F_SETFL, 0);
    EXPECT_EQ(::read(m_pipe[0], &byte, 1), 0) << "nobody holds it any more";
}

TEST_F(Desktop, UserWhoMayNotHoldTheLidHoldsOffSleepAlone)
{
    m_service.isLidForbidden = true;
    play("org.freedesktop.login1");
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    EXPECT_NE(workspace.holdOffSleep("a run is on"), nullptr);
    EXPECT_EQ(m_service.calls().at(1).arguments().at(0).toString().toStdString(), "sleep:idle");
    ::close(m_pipe[1]);
}

TEST_F(Desktop, NotificationCarriesItsTextAsItStands)
{
    play("org.freedesktop.Notifications");
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    workspace.notify({"Finish !!!", "A & B <b>\x01", {}, {}});
    until([&] { return m_service.calls().size() == 1; });
    const auto calls = m_service.calls();
    EXPECT_EQ(calls[0].arguments().at(5).toStringList(), QStringList()) << "no button";
    EXPECT_EQ(calls[0].arguments().at(3).toString().toStdString(), "Finish !!!");
    EXPECT_EQ(calls[0].arguments().at(4).toString().toStdString(), "A &amp; B &lt;b&gt;\\x01");
    ::close(m_pipe[1]);
}

TEST_F(Desktop, ButtonOfANotificationIsAnsweredHoweverOldItIs)
{
    play("org.freedesktop.Notifications");
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    std::vector<std::string> opened;
    for (const auto *log : {"first", "second"})
        workspace.notify({"Finish !!!", "text", "Open log", [&opened, log] { opened.emplace_back(log); }});
    until([&] { return m_service.calls().size() == 2; });
    const auto buttons = m_service.calls()[0].arguments().at(5).toStringList();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons[1].toStdString(), "Open log");
    press(QStringLiteral("another program's"));
    press(buttons[0]);
    until([&] { return !opened.empty(); });
    EXPECT_EQ(opened, std::vector<std::string>{"first"});
    ::close(m_pipe[1]);
}

TEST_F(Desktop, BusThatCameBackIsToldAgain)
{
    play("org.freedesktop.Notifications");
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    workspace.notify({"before", {}, {}, {}});
    until([&] { return m_service.calls().size() == 1; });
    restartDaemon();
    play("org.freedesktop.Notifications");
    // A notice is lost if it is sent before the workspace notices the end of the old bus.
    until([&] {
        workspace.notify({"after", {}, {}, {}});
        return m_service.calls().size() > 1;
    });
    ::close(m_pipe[1]);
}

TEST_F(Desktop, DocksHearOfEachPercentOnce)
{
    Dock dock;
    play("example.nobody");
    QDBusConnection(QStringLiteral("played"))
        .connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"), &dock,
                 SLOT(Update(QString, QVariantMap)));
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    for (const auto fraction :
         {std::optional(0.5), std::optional(0.501), std::optional(1.0), std::optional<double>()})
        workspace.showProgress(fraction);
    until([&] { return dock.shown.size() == 3; });
    EXPECT_EQ(dock.shown, (std::vector{0.5, 1.0, -1.0}));
    ::close(m_pipe[1]);
}

TEST_F(Desktop, FolderIsShownWithTheBytesOfItsPath)
{
    play("org.freedesktop.FileManager1");
    platform::linux_host::DesktopWorkspace(address(), address()).openFolder("/home/anna/Gr\xDF 1");
    const auto calls = m_service.calls();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].arguments().at(0).toStringList(),
              QStringList{QStringLiteral("file:///home/anna/Gr%DF%201")});
    ::close(m_pipe[1]);
}

TEST_F(Desktop, PageIsOpenedByThePortal)
{
    play("org.freedesktop.portal.Desktop");
    platform::linux_host::DesktopWorkspace(address(), address()).openPage("https://orvana.example/a b");
    const auto calls = m_service.calls();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].arguments().at(1).toString().toStdString(), "https://orvana.example/a%20b");
    ::close(m_pipe[1]);
}

TEST_F(Desktop, OnlyPagesOfTheWebAreOpened)
{
    const LogLines log;
    play("org.freedesktop.portal.Desktop");
    platform::linux_host::DesktopWorkspace(address(), address()).openPage("file:///etc/passwd");
    EXPECT_TRUE(m_service.calls().empty());
    EXPECT_EQ(log.all(), std::vector<std::string>{"file:///etc/passwd is no page of the web"});
    ::close(m_pipe[1]);
}

TEST_F(Desktop, WithoutServicesNothingIsHeldAndNothingWaits)
{
    platform::linux_host::DesktopWorkspace workspace(address(), address());
    workspace.notify({"Finish !!!", "text", "Open log", [] {}});
    workspace.showProgress(0.5);
    EXPECT_EQ(workspace.holdOffSleep("a run is on"), nullptr);
    ::close(m_pipe[1]);
}

TEST_F(Desktop, BusThatAcceptsAndSaysNothingKeepsNobodyWaiting)
{
    const auto place = m_tree.path("silent");
    const auto silent = listenAt(place, 0);
    platform::linux_host::DesktopWorkspace workspace("unix:path=" + place, "unix:path=" + place);
    workspace.notify({"Finish !!!", "text", "Open log", [] {}});
    workspace.showProgress(0.5);
    EXPECT_EQ(workspace.holdOffSleep("a run is on"), nullptr);
    ::close(m_pipe[1]);
}

TEST_F(Desktop, BusWithAnAbstractAddressThatSaysNothingKeepsNobodyWaiting)
{
    const auto place = m_tree.path("silent");
    const auto silent = listenAt(place, 1);
    EXPECT_FALSE(platform::linux_host::doesBusAnswer(platform::linux_host::BusKind::Session,
                                                     "unix:abstract=" + place + ",guid=1"));
    ::close(m_pipe[1]);
}

TEST_F(Desktop, WithoutABusNothingIsHeldAndNothingWaits)
{
    const auto nowhere = "unix:path=" + m_tree.path("no-bus");
    platform::linux_host::DesktopWorkspace workspace(nowhere, nowhere);
    workspace.notify({"Finish !!!", "text", "Open log", [] {}});
    workspace.showProgress(0.5);
    EXPECT_EQ(workspace.holdOffSleep("a run is on"), nullptr);
    ::close(m_pipe[1]);
}

} // namespace orvana::test

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "DesktopWorkspaceTest.moc"
