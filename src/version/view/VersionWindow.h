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

/// Tells whether the maker's web server has a newer version than the one that runs. On the main thread.
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

    /// Asks the server, for as long as it takes, and shows the window. When no version can be read, nothing
    /// is shown or said.
    void checkVersion();

    /// Sets the texts; called once, when the window is first shown. Later checks leave them as they are.
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
