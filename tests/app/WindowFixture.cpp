#include "app/WindowFixture.h"

#include "app/RunReportWindow.h"
#include "app/VolumeNotifications.h"
#include "filetree/view/FileTreeView.h"
#include "filetree/view/OutlineViewDataSource.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/hosts/HostFactory.h"
#include "support/SmallMachine.h"
#include "support/WatchedHost.h"

#include <QAbstractButton>
#include <QApplication>
#include <QtTest/QTest>

#include <thread>

namespace orvana
{

/// The ports of the simulated machine, watched.
class WindowTest::WatchedSetup final : public enclosures::EnclosureSetup
{
public:
    WatchedSetup(enclosures::EnclosureSetup &machine, WindowTest &test) : m_machine(machine), m_test(test) {}

    enclosures::PortSnapshot look() override
    {
        ++m_test.m_looksAtPorts;
        return m_machine.look();
    }
    enclosures::DefinitionSet definitions() override { return m_machine.definitions(); }
    Written add(const enclosures::Definition &definition) override
    {
        return m_test.m_addDefinition(m_machine, definition);
    }
    Written remove(const std::string &id) override { return m_machine.remove(id); }

private:
    enclosures::EnclosureSetup &m_machine;
    WindowTest &m_test;
};

/// The simulated machine, whose disk utility and desktop are watched.
class WindowTest::WatchedHost final : public test::WatchedHost, platform::Workspace
{
public:
    WatchedHost(platform::Host &host, WindowTest &test)
        : test::WatchedHost(host), m_setup(host.enclosureSetup(), test)
    {
        beforeDiskUtility = [&test](const Files &words) {
            test.m_tools.push_back(words);
            test.m_beforeTool(words);
        };
        afterListing = [&test] { test.m_afterListing(); };
    }

    platform::Workspace &workspace() override { return *this; }
    enclosures::EnclosureSetup &enclosureSetup() override { return m_setup; }

    void openPage(const std::string &address) override { pages.push_back(address); }
    void openFolder(const std::string &) override {}
    void notify(const platform::DesktopNotice &notice) override { notices.push_back(notice); }
    void showProgress(std::optional<double> fraction) override { progress.push_back(fraction); }
    std::shared_ptr<void> holdOffSleep(const std::string &) override
    {
        ++*holds;
        return {holds.get(), [counter = holds](int *) { --*counter; }};
    }

    std::vector<std::string> pages;
    std::vector<platform::DesktopNotice> notices;
    std::vector<std::optional<double>> progress;
    std::shared_ptr<int> holds = std::make_shared<int>(0);

private:
    WatchedSetup m_setup;
};

WindowTest::WindowTest() : m_machine(Json::parse(test::SmallMachine))
{
    m_tree.folder("logs");
}

WindowTest::~WindowTest()
{
    for (auto *top : QApplication::topLevelWidgets()) {
        if (qobject_cast<RunReportWindow *>(top))
            top->close();
    }
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowTest::start(const std::string &edition)
{
    m_tree.file("machine.json", m_machine.dump());
    m_simulator = platform::makeSimulatorHost(m_tree.path("machine.json"), &m_queue).value();
    m_host = std::make_unique<WatchedHost>(*m_simulator, *this);
    postVolumeEvents(*m_host, m_volumeCenter);
    m_window = std::make_unique<MainWindow>(context());
    m_window->show();
    m_window->setUIVersion(edition);
    m_window->startMainWindow();
}

AppContext WindowTest::context()
{
    return {*m_host,     m_center,      m_volumeCenter, m_queue, m_clock, m_tree.path("logs"),
            m_startDemo, m_lineActivity};
}

void WindowTest::startWithEnclosure()
{
    start();
    chooseEnclosure(1);
    untilCounted();
}

void WindowTest::chooseEnclosure(int item)
{
    auto *picker = m_window->myTBDeviceViewController().tbDevicePopup;
    picker->setCurrentIndex(item);
    if (item > 0)
        Q_EMIT picker->activated(item);
}

void WindowTest::chooseSource(const std::string &title)
{
    auto *popup = slots().SourcePopup;
    for (int i = 0; i < popup->count(); ++i) {
        if (popup->itemData(i).toByteArray().toStdString() == title) {
            popup->setCurrentIndex(i);
            Q_EMIT popup->activated(i);
            untilCounted();
            return;
        }
    }
    FAIL() << "no source " << title;
}

void WindowTest::setErase(bool on)
{
    if (actions().EraseDiskCheckBox->isChecked() != on)
        actions().EraseDiskCheckBox->click();
    pass(std::chrono::milliseconds(10));
}

void WindowTest::setVerify(bool on)
{
    if (actions().VerrifyFileCheckBox->isChecked() != on)
        actions().VerrifyFileCheckBox->click();
}

void WindowTest::pressStart()
{
    QTest::mouseClick(actions().StartBtn, Qt::LeftButton);
}

void WindowTest::startErase()
{
    pressStart();
    untilSheet("Erase");
    pressSheet("Erase");
}

void WindowTest::pressSheet(const std::string &button)
{
    auto *sheet = m_window->sheets().current();
    ASSERT_TRUE(sheet) << "no sheet with " << button;
    for (auto *candidate : sheet->buttons()) {
        if (candidate->text().toStdString() == button) {
            candidate->click();
            return;
        }
    }
    FAIL() << "no button " << button;
}

void WindowTest::typeName(VolumeNameField *field, const std::string &name)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::fromStdString(name));
}

void WindowTest::untick(const std::string &name)
{
    auto *view = files().sourceFileListView;
    const auto root = view->model()->index(0, 0);
    view->expand(root);
    for (int row = 0; row < view->model()->rowCount(root); ++row) {
        const auto index = view->model()->index(row, 0, root);
        if (OutlineViewDataSource::itemAt(index)->relativePath() != name)
            continue;
        view->setCurrentIndex(index);
        QTest::keyClick(view, Qt::Key_Space);
        untilCounted();
        return;
    }
    FAIL() << "no file " << name;
}

void WindowTest::move(const std::string &lever, const std::string &target, const std::string &newName) const
{
    const auto moved = platform::moveSimulatorLever(m_tree.path("machine.json"), lever, target, newName);
    EXPECT_TRUE(moved) << moved.error();
}

void WindowTest::pass(std::chrono::milliseconds time)
{
    m_queue.advance(time);
    QApplication::processEvents();
    // Outside an event loop, processEvents() leaves out the deferred deletions.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowTest::until(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        ASSERT_LT(std::chrono::steady_clock::now(), end)
            << "waited in vain; the sheet says: " << sheetMessage() << ": " << sheetText();
        pass(std::chrono::milliseconds(20));
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void WindowTest::untilCounted()
{
    until([this] { return files().waitForCount(std::chrono::milliseconds(0)); });
    pass(std::chrono::milliseconds(200));
}

void WindowTest::untilSheet(const std::string &message)
{
    until([&] { return sheetMessage().starts_with(message); });
}

std::string WindowTest::sheetMessage()
{
    const auto *sheet = m_window->sheets().current();
    return sheet ? sheet->text().toStdString() : std::string();
}

std::string WindowTest::sheetText()
{
    const auto *sheet = m_window->sheets().current();
    return sheet ? sheet->informativeText().toStdString() : std::string();
}

std::string WindowTest::title() const
{
    return m_window->myCopyActionViewController().StartBtn->text().remove(QLatin1Char('&')).toStdString();
}

int WindowTest::reportWindows()
{
    int count = 0;
    for (auto *top : QApplication::topLevelWidgets())
        count += qobject_cast<RunReportWindow *>(top) && top->isVisible() ? 1 : 0;
    return count;
}

WindowTest::Files WindowTest::filesOn(const std::string &volume) const
{
    Files files;
    const auto root = m_tree.path("machine.json.volumes/Volumes/" + volume);
    for (const auto &path : test::treeOf(root)) {
        if (!QFileInfo(QString::fromStdString(root + "/" + path)).isDir())
            files.push_back(path);
    }
    return files;
}

bool WindowTest::isWaitingFor(const std::string &volume) const
{
    const auto &files = dynamic_cast<const platform::FaultyVolumeFiles &>(m_simulator->volumeFiles());
    const auto *faults = files.faultsAt(m_tree.path("machine.json.volumes/Volumes/" + volume));
    return faults && faults->waiting > 0;
}

bool WindowTest::isMounted(const std::string &volume) const
{
    return m_tree.exists("machine.json.volumes/Volumes/" + volume);
}

std::string WindowTest::nameEndingWith(const std::string &end) const
{
    for (const auto &name : test::treeOf(m_tree.path("logs"))) {
        if (name.ends_with(end))
            return name;
    }
    return {};
}

int WindowTest::wakeHolds() const
{
    return *m_host->holds;
}

std::vector<std::string> WindowTest::openedPages() const
{
    return m_host->pages;
}

const std::vector<platform::DesktopNotice> &WindowTest::notices() const
{
    return m_host->notices;
}

const std::vector<std::optional<double>> &WindowTest::shownProgress() const
{
    return m_host->progress;
}

} // namespace orvana
