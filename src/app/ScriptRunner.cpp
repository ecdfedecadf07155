#include "app/ScriptRunner.h"

#include "app/MainWindow.h"
#include "app/OrvanaAppDelegate.h"
#include "filetree/view/FileListViewController.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/NoEnclosureView.h"
#include "panels/TBDeviceViewController.h"
#include "platform/hosts/HostFactory.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QTreeView>

#include <utility>

namespace orvana
{

namespace
{

constexpr int BetweenLooksMilliseconds = 20;

void pressKey(QWidget &widget, int key, const QString &text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &up);
}

} // namespace

ScriptRunner::ScriptRunner(OrvanaAppDelegate &delegate, std::vector<ScriptStep> steps, QString simulatorFile)
    : m_delegate(delegate), m_steps(std::move(steps)), m_simulatorFile(std::move(simulatorFile))
{
    addChoices();
    addTreeSteps();
    addWaits();
    addBaySetup();
    addPictures();
    connect(&m_timer, &QTimer::timeout, this, &ScriptRunner::runNext);
}

MainWindow &ScriptRunner::window() const
{
    return m_delegate.mainWindow();
}

void ScriptRunner::addStep(const QString &name, int words, Step step)
{
    m_known.insert(name, {words, std::move(step)});
}

ScriptRunner::Result ScriptRunner::when(bool isTrue, const QString &otherwise)
{
    return isTrue ? Result{} : Result{Result::Kind::NotYet, otherwise};
}

void ScriptRunner::start()
{
    m_sinceStep.start();
    m_timer.start(BetweenLooksMilliseconds);
}

void ScriptRunner::runNext()
{
    if (m_next == m_steps.size()) {
        end(QString());
        return;
    }
    const auto &step = m_steps[m_next];
    const auto where = QStringLiteral("line %1: %2: ").arg(step.line).arg(step.name);
    const auto known = m_known.constFind(step.name);
    if (known == m_known.constEnd()) {
        end(where + QStringLiteral("no such step"));
        return;
    }
    if (step.words.size() < known->words) {
        end(where + QStringLiteral("says too little"));
        return;
    }
    const auto result = known->run(step.words);
    const bool isLate = m_sinceStep.elapsed() > qint64{1000} * m_patienceSeconds;
    if (result.kind == Result::Kind::Failed || (result.kind == Result::Kind::NotYet && isLate)) {
        end(where + result.reason);
    } else if (result.kind == Result::Kind::Done) {
        ++m_next;
        m_sinceStep.start();
    }
}

void ScriptRunner::end(const QString &reason)
{
    m_timer.stop();
    Q_EMIT ended(reason);
}

void ScriptRunner::addChoices()
{
    addStep(QStringLiteral("option"), 2, [this](const auto &words) {
        auto settings = window().settings();
        const auto value = words[1].toStdString();
        for (const auto &setting : AllListedRunSettings) {
            if (words[0] != QString::fromLatin1(setting.key))
                continue;
            setting.set(settings, value);
            window().setSettings(settings);
            return setting.get(settings) == value ? done() : failed(QStringLiteral("no such value"));
        }
        for (const auto &setting : AllRunSettings) {
            if (words[0] != QString::fromLatin1(setting.key))
                continue;
            setting.of(settings) = value == "on";
            window().setSettings(settings);
            return value == "on" || value == "off" ? done() : failed(QStringLiteral("no such value"));
        }
        return failed(QStringLiteral("no such option"));
    });
    addStep(QStringLiteral("select-enclosure"), 1, [this](const auto &w) { return chooseEnclosure(w); });
    addStep(QStringLiteral("select-source"), 1, [this](const auto &w) { return chooseSource(w); });
    addStep(QStringLiteral("click"), 1, [this](const auto &w) { return click(w); });
    addStep(QStringLiteral("press"), 1, [this](const auto &w) { return press(w); });
    addStep(QStringLiteral("type"), 2, [this](const auto &w) { return typeName(w); });
    addStep(QStringLiteral("lever"), 2, [this](const auto &w) { return moveLever(w); });
    addStep(QStringLiteral("expect-bay"), 2, [this](const auto &w) { return expectBay(w); });
    addStep(QStringLiteral("rescan"), 0, [this](const auto &) {
        window().rescanDevice();
        return done();
    });
    addStep(QStringLiteral("timeout"), 1, [this](const auto &words) {
        m_patienceSeconds = words.first().toInt();
        return done();
    });
}

ScriptRunner::Result ScriptRunner::chooseEnclosure(const QStringList &words)
{
    auto *picker = window().myTBDeviceViewController().tbDevicePopup;
    const int item = words.first().toInt();
    if (item < 1 || item >= picker->count())
        return when(false, QStringLiteral("there is no such enclosure"));
    picker->setCurrentIndex(item);
    Q_EMIT picker->activated(item);
    return done();
}

ScriptRunner::Result ScriptRunner::chooseSource(const QStringList &words)
{
    auto *popup = window().myDiskInfoViewController().SourcePopup;
    const int item = popup->findText(words.first());
    if (item < 0)
        return when(false, QStringLiteral("there is no such source"));
    popup->setCurrentIndex(item);
    Q_EMIT popup->activated(item);
    return done();
}

ScriptRunner::Result ScriptRunner::click(const QStringList &words)
{
    auto &actions = window().myCopyActionViewController();
    auto &bays = window().myDiskInfoViewController();
    const QHash<QString, QAbstractButton *> buttons{
        {QStringLiteral("start"), actions.StartBtn},
        {QStringLiteral("cancel"), actions.StartBtn},
        {QStringLiteral("verify"), actions.VerrifyFileCheckBox},
        {QStringLiteral("erase"), actions.EraseDiskCheckBox},
        {QStringLiteral("eject-source"), bays.EjectSourceDiskBtn},
        {QStringLiteral("eject-destinations"), bays.EjectTargetDiskBtn},
        {QStringLiteral("set-up-bays"), window().noEnclosureView().setUpBtn},
        {QStringLiteral("try-demo"), window().noEnclosureView().demoBtn},
        {QStringLiteral("help"), window().HelpBtn},
    };
    auto *button = buttons.value(words.first());
    if (!button)
        return failed(QStringLiteral("there is no such button"));
    if (!button->isVisible() || !button->isEnabled())
        return when(false, QStringLiteral("the button cannot be pressed"));
    button->click();
    return done();
}

ScriptRunner::Result ScriptRunner::press(const QStringList &words)
{
    const auto *sheet = window().sheets().current();
    if (!sheet)
        return when(false, QStringLiteral("there is no sheet"));
    for (auto *button : sheet->buttons()) {
        // A script names a button in English, whatever language the window speaks.
        if (button->text() == MainWindow::tr(words.first().toUtf8().constData())) {
            button->click();
            return done();
        }
    }
    return failed(QStringLiteral("the sheet has no such button"));
}

ScriptRunner::Result ScriptRunner::typeName(const QStringList &words)
{
    auto *field = window().findChild<VolumeNameField *>(QString(words.first()).remove(QLatin1Char('-')) +
                                                        QStringLiteral("Volume"));
    if (!field)
        return failed(QStringLiteral("there is no such bay"));
    if (field->isReadOnly() || !field->isEnabled() || !field->isVisible())
        return when(false, QStringLiteral("the name cannot be edited"));
    field->setFocus();
    field->selectAll();
    for (const auto letter : words[1])
        pressKey(*field, 0, QString(letter));
    return done();
}

ScriptRunner::Result ScriptRunner::expectBay(const QStringList &words)
{
    const auto *field = window().findChild<VolumeNameField *>(
        QString(words.first()).remove(QLatin1Char('-')) + QStringLiteral("Volume"));
    if (!field)
        return failed(QStringLiteral("there is no such bay"));
    return when(field->text() == words[1], QStringLiteral("it shows \"%1\"").arg(field->text()));
}

ScriptRunner::Result ScriptRunner::moveLever(const QStringList &words)
{
    const auto moved = platform::moveSimulatorLever(m_simulatorFile.toStdString(), words[0].toStdString(),
                                                    words[1].toStdString(), words.value(2).toStdString());
    return moved ? done() : failed(QString::fromStdString(moved.error()));
}

// Calls `act` with the row of a path below the root; "." is the root itself. The folders above the row must
// be open.
ScriptRunner::Result ScriptRunner::atRow(const QString &path,
                                         const std::function<void(const QModelIndex &)> &act)
{
    const auto *model = window().myFileListViewController().sourceFileListView->model();
    auto index = model->index(0, 0);
    const auto names = path == QStringLiteral(".") ? QStringList() : path.split(QLatin1Char('/'));
    for (const auto &name : names) {
        const auto found =
            model->match(model->index(0, 0, index), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        if (found.isEmpty() || found.first().parent() != index)
            return when(false, QStringLiteral("there is no %1").arg(name));
        index = found.first();
    }
    act(index);
    return done();
}

void ScriptRunner::addTreeSteps()
{
    auto *view = window().myFileListViewController().sourceFileListView;
    addStep(QStringLiteral("open"), 1, [this, view](const auto &words) {
        return atRow(words.first(), [view](const auto &index) { view->expand(index); });
    });
    addStep(QStringLiteral("close"), 1, [this, view](const auto &words) {
        return atRow(words.first(), [view](const auto &index) { view->collapse(index); });
    });
    // Each "tick" is one press of the space bar.
    addStep(QStringLiteral("tick"), 1, [this, view](const auto &words) {
        return atRow(words.first(), [view](const auto &index) {
            view->setCurrentIndex(index);
            pressKey(*view, Qt::Key_Space, QStringLiteral(" "));
        });
    });
}

void ScriptRunner::addWaits()
{
    addStep(QStringLiteral("wait-state"), 1, [this](const auto &words) {
        return when(window().layoutState() == words.first().toInt(),
                    QStringLiteral("the window is in state %1").arg(window().layoutState()));
    });
    // A script names sheets in English, whatever language the window speaks.
    addStep(QStringLiteral("wait-sheet"), 1, [this](const auto &words) {
        const auto *sheet = window().sheets().current();
        return when(sheet && sheet->text() == MainWindow::tr(words.first().toUtf8().constData()),
                    sheet ? QStringLiteral("the sheet says \"%1\"").arg(sheet->text())
                          : QStringLiteral("there is no sheet"));
    });
    addStep(QStringLiteral("wait-no-sheet"), 0, [this](const auto &) {
        return when(!window().sheets().current(), QStringLiteral("there is a sheet"));
    });
    addStep(QStringLiteral("wait-idle"), 0,
            [this](const auto &) { return when(!window().isBusy(), QStringLiteral("a run goes on")); });
    addStep(QStringLiteral("wait-running"), 0,
            [this](const auto &) { return when(window().isBusy(), QStringLiteral("no run goes on")); });
    addStep(QStringLiteral("wait-count"), 0, [this](const auto &) {
        auto &list = window().myFileListViewController();
        return when(list.waitForCount(std::chrono::milliseconds(0)) && !list.itemSizeLabel->text().isEmpty(),
                    QStringLiteral("files are being counted"));
    });
    addStep(QStringLiteral("wait-message"), 1, [this](const auto &words) {
        return when(window().messageText->text().contains(words.first()),
                    QStringLiteral("the message line says \"%1\"").arg(window().messageText->text()));
    });
    addStep(QStringLiteral("wait"), 1, [this](const auto &words) {
        return when(m_sinceStep.elapsed() >= words.first().toInt(), QStringLiteral("time passes"));
    });
}

} // namespace orvana
