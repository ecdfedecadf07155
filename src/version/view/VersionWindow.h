#pragma once

#include <QWidget>

#include <memory>
#include <string>

class QLabel;

namespace Ui
{
class VersionWindow;
}

namespace orvana
{

namespace platform
{
class Host;
}

/// Shows whether the maker's web server has a newer version than the running one. Main thread only.
class VersionWindow : public QWidget
{
    Q_OBJECT

public:
    /// The host must outlive the window.
    explicit VersionWindow(platform::Host &host, std::string version = PLURIMO_VERSION,
                           QWidget *parent = nullptr);
    ~VersionWindow() override;

    /// True when the last check found a newer version.
    bool isHasNewVersion() const { return m_isHasNewVersion; }

    QLabel *verMsg1() const;
    QLabel *verMsg3() const;

    /// Asks the server, waits for the answer, and shows the window. If no version can be read, nothing is
    /// shown.
    void checkVersion();

    /// Sets the texts. Called once, when the window is first shown. Later checks do not change the texts.
    void windowDidLoad();

    void setVerMeaasge();

    /// Closes the window.
    void OK();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void showLink();

    platform::Host &m_host;
    const std::string m_version;
    std::unique_ptr<Ui::VersionWindow> m_ui;
    bool m_isHasNewVersion = false;
    bool m_isLoaded = false;
    bool m_showsLink = false;
};

} // namespace orvana
