#include "app/MainWindow.h"
#include "app/OrvanaAppDelegate.h"
#include "app/ScriptRunner.h"
#include "app/SingleInstance.h"
#include "app/VolumeNotifications.h"
#include "foundation/Clock.h"
#include "foundation/LiteralWords.h"
#include "foundation/NotificationCenter.h"
#include "foundation/qt/QtMainQueue.h"
#include "languages/Languages.h"
#include "log/LogData.h"
#include "platform/Account.h"
#include "platform/hosts/HostOptions.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/ProcessStart.h"
#include "resources/Resources.h"
#include "ui/EdgeStyle.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QProcess>

#include <cstdio>
#include <filesystem>
#include <sstream>

namespace
{

using namespace orvana;

/// The options of the command line.
struct CommandLineOptions
{
    platform::HostChoice machine;
    std::string edition = "Orvana";
    std::optional<std::string> logFolder;
    std::optional<std::string> script;
};

void describe(CLI::App &app, CommandLineOptions &options)
{
    app.set_version_flag("--version", "orvana-plurimo " PLURIMO_VERSION);
    platform::describeHost(app, options.machine);
    app.add_option("--edition", options.edition, "Orvana, or Obsidio for the partner edition")
        ->check(CLI::IsMember({"Orvana", "Obsidio"}))
        ->type_name("NAME");
    app.add_option("--log-dir", options.logFolder, "Folder for logs and reports instead of ~/Documents")
        ->type_name("FOLDER");
    app.add_option("--script", options.script, "Play the steps of this file, and quit")->type_name("FILE");
    app.allow_extras(); // the toolkit has options of its own, such as -platform
}

int fail(int status, const std::string &reason)
{
    std::fprintf(stderr, "orvana-plurimo: %s\n", reason.c_str());
    return status;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// The demo is another machine, so its window opens beside this one.
std::function<bool()> demoStarter(const CommandLineOptions &options)
{
    if (options.machine.demo || options.machine.demoFolder)
        return nullptr;
    return [edition = QString::fromStdString(options.edition)] {
        return QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                       {QStringLiteral("--demo"), QStringLiteral("--edition"), edition},
                                       QStringLiteral("/"));
    };
}

/// One run of the program, with the machine that it works on.
class Program
{
public:
    Program(const CommandLineOptions &options, std::unique_ptr<platform::Host> host, QtMainQueue &queue)
        : m_host(std::move(host)), m_delegate({*m_host, m_center, m_volumeCenter, queue, m_clock,
                                               logFolder(options), demoStarter(options)},
                                              options.edition)
    {
        postVolumeEvents(*m_host, m_volumeCenter);
    }

    int run(const CommandLineOptions &options, const std::vector<ScriptStep> &steps, const QString &machine)
    {
        m_delegate.applicationDidFinishLaunching();
        if (!options.script)
            return QApplication::exec();
        ScriptRunner script(m_delegate, steps, machine);
        int status = 0;
        QObject::connect(&script, &ScriptRunner::ended, &script, [&](const QString &reason) {
            if (!reason.isEmpty())
                status = fail(1, *options.script + ": " + reason.toStdString());
            QApplication::quit();
        });
        script.start();
        QApplication::exec();
        return status;
    }

    void raise() { m_delegate.raiseMainWindow(); }

    /// Ends the program as its user would. A run is cancelled, and its report is written.
    void end() { m_delegate.endNow(); }

private:
    std::string logFolder(const CommandLineOptions &options) const
    {
        return options.logFolder ? *options.logFolder
                                 : LogData::documentsFolder(m_host->account().homeFolder());
    }

    std::unique_ptr<platform::Host> m_host;
    NotificationCenter m_center;
    NotificationCenter m_volumeCenter;
    SystemClock m_clock;
    OrvanaAppDelegate m_delegate;
};

int runProgram(CommandLineOptions options)
{
    if (options.logFolder)
        options.logFolder = std::filesystem::absolute(*options.logFolder).native();
    std::vector<ScriptStep> steps;
    if (options.script) {
        auto read = readScript(QString::fromStdString(*options.script));
        if (!read)
            return fail(4, read.error().toStdString());
        steps = std::move(*read);
        for (auto &step : steps) {
            if (step.name == QLatin1String("grab") && !step.words.isEmpty())
                step.words[0] = QFileInfo(step.words[0]).absoluteFilePath();
        }
    }
    const bool isSimulated =
        options.machine.simulatorFile || options.machine.demo || options.machine.demoFolder;
    const auto file = isSimulated ? platform::simulatorFileOf(options.machine) : std::string();
    if (!file)
        return fail(file.error().status, file.error().reason);
    SingleInstance instance(QString::fromStdString(*file));
    if (instance.askTheFirst())
        return 0;
    if (const auto refusal = platform::makeLogFolder(options.logFolder))
        return fail(refusal->status, refusal->reason);
    // The working folder changes below, so every path must be absolute by then.
    for (auto *path : {&options.machine.simulatorFile, &options.machine.demoFolder}) {
        if (*path)
            *path = std::filesystem::absolute(**path).native();
    }
    QtMainQueue queue;
    platform::posix::enterEmptyFolder();
    // On a simulated machine, a script opens no pages and shows no notices outside its window.
    auto host = platform::makeHost(options.machine, &queue,
                                   options.script ? platform::Desktop::None : platform::Desktop::Users);
    if (!host)
        return fail(host.error().status, host.error().reason);
    Program program(options, std::move(*host), queue);
    instance.listen([&] { program.raise(); });
    const platform::posix::CancelRequest signalled([&] { queue.async([&] { program.end(); }); });
    return program.run(options, steps, QString::fromStdString(*file));
}

} // namespace

int main(int argc, char **argv)
{
    platform::posix::CancelRequest::blockSignals();
    platform::posix::openStandardFiles();
    CLI::App app("Duplicates disks: one read, many writes, verified.", "orvana-plurimo");
    CommandLineOptions options;
    describe(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        std::ostringstream out;
        std::ostringstream complaint;
        const int status = app.exit(error, out, complaint);
        std::fputs(out.str().c_str(), stdout);
        std::fputs(shownLiteral(complaint.str()).c_str(), stderr);
        return status == 0 ? 0 : 2;
    }
    if (!hasDisplay())
        return fail(4, "there is no display; plurimoctl does the same in a terminal");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvana Plurimo"));
    QApplication::setApplicationVersion(QStringLiteral(PLURIMO_VERSION));
    const WindowLanguage language(usersLanguage());
    orvana::useEdgeStyle();
    QApplication::setDesktopFileName(QStringLiteral("orvana-plurimo"));
    loadResources();
    return runProgram(options);
}
