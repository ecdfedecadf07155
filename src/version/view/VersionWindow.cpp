#include "version/view/VersionWindow.h"

#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui_VersionWindow.h"
#include "version/PublishedVersion.h"
#include "version/WebAddress.h"
#include "version/view/Hyperlink.h"
#include "version/view/WebFetch.h"

#include <QShortcut>

#include <utility>

namespace orvana
{

VersionWindow::VersionWindow(platform::Host &host, std::string version, QWidget *parent)
    : QWidget(parent, Qt::Window), m_host(host), m_version(std::move(version)),
      m_ui(std::make_unique<Ui::VersionWindow>())
{
    m_ui->setupUi(this);
    connect(m_ui->okButton, &QPushButton::clicked, this, &VersionWindow::OK);
    connect(m_ui->verMsg3, &QLabel::linkActivated, this,
            [this](const QString &address) { m_host.workspace().openPage(address.toStdString()); });
    new QShortcut(Qt::Key_Escape, this, this, &VersionWindow::OK);
    m_ui->okButton->setFocus();
}

VersionWindow::~VersionWindow() = default;

QLabel *VersionWindow::verMsg1() const
{
    return m_ui->verMsg1;
}

QLabel *VersionWindow::verMsg3() const
{
    return m_ui->verMsg3;
}

void VersionWindow::checkVersion()
{
    const auto answer = fetchFromWeb(QUrl(QString::fromStdString(webAddress(webpath::VersionFile))));
    const auto published = answer ? publishedVersion(*answer) : std::nullopt;
    if (!published)
        return;
    m_isHasNewVersion = VersionNumber(m_version) < *published;
    show();
    raise();
    activateWindow();
}

void VersionWindow::windowDidLoad()
{
    setVerMeaasge();
}

void VersionWindow::setVerMeaasge()
{
    m_showsLink = m_isHasNewVersion;
    if (m_isHasNewVersion) {
        m_ui->verMsg1->setText(tr("A new version is available for download at"));
        showLink();
    } else {
        m_ui->verMsg1->setText(tr("You are running the most current version of"));
        m_ui->verMsg3->setText(tr("Orvana Plurimo"));
    }
}

void VersionWindow::showLink()
{
    const auto address = QString::fromStdString(webAddress(webpath::Download));
    setHyperlinkWithTextField(m_ui->verMsg3, address, QUrl(address));
}

void VersionWindow::OK()
{
    close();
}

void VersionWindow::showEvent(QShowEvent *event)
{
    if (!std::exchange(m_isLoaded, true))
        windowDidLoad();
    QWidget::showEvent(event);
}

void VersionWindow::changeEvent(QEvent *event)
{
    // The link's blue depends on the palette.
    if (event->type() == QEvent::PaletteChange && m_showsLink)
        showLink();
    QWidget::changeEvent(event);
}

} // namespace orvana
