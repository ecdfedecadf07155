#pragma once

#include <QWidget>

#include <memory>
#include <string>

class QLabel;
class QPushButton;

namespace Ui
{
class Obsidio;
}

namespace orvana
{

namespace platform
{
class Host;
}

/// The partner edition's banner: image, notice, version, and a button for the help page. Main thread only.
class Obsidio : public QWidget
{
    Q_OBJECT

public:
    /// The host must outlive the window.
    explicit Obsidio(platform::Host &host, std::string version = PLURIMO_VERSION, QWidget *parent = nullptr);
    ~Obsidio() override;

    QLabel *BannerLogo() const;
    QLabel *CopyRightText() const;
    QLabel *VersionText() const;
    QPushButton *HelpBtn() const;

    /// Both fill the items. The constructor calls `windowDidLoad`.
    void windowDidLoad();
    void startWindow();

    void initItems();

private:
    void openHelp();

    platform::Host &m_host;
    const std::string m_version;
    std::unique_ptr<Ui::Obsidio> m_ui;
};

} // namespace orvana
