#include "version/view/Obsidio.h"

#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui_Obsidio.h"
#include "version/WebAddress.h"
#include "version/view/Banner.h"

namespace orvana
{

namespace
{

// Counted from the bottom left corner of the window.
constexpr QRect HelpButtonFrame(580, 17, 25, 25);

QRect fromTheTop(const QRect &frame, int height)
{
    return {frame.x(), height - frame.y() - frame.height(), frame.width(), frame.height()};
}

} // namespace

Obsidio::Obsidio(platform::Host &host, std::string version, QWidget *parent)
    : QWidget(parent, Qt::Window), m_host(host), m_version(std::move(version)),
      m_ui(std::make_unique<Ui::Obsidio>())
{
    m_ui->setupUi(this);
    connect(m_ui->HelpBtn, &QPushButton::clicked, this, &Obsidio::openHelp);
    windowDidLoad();
}

Obsidio::~Obsidio() = default;

QLabel *Obsidio::BannerLogo() const
{
    return m_ui->BannerLogo;
}

QLabel *Obsidio::CopyRightText() const
{
    return m_ui->CopyRightText;
}

QLabel *Obsidio::VersionText() const
{
    return m_ui->VersionText;
}

QPushButton *Obsidio::HelpBtn() const
{
    return m_ui->HelpBtn;
}

void Obsidio::windowDidLoad()
{
    initItems();
}

void Obsidio::startWindow()
{
    initItems();
}

void Obsidio::initItems()
{
    m_ui->BannerLogo->setPixmap(bannerImage(devicePixelRatioF()));
    m_ui->CopyRightText->setText(tr("Copyright © 2026 The Orvana Plurimo developers"));
    m_ui->VersionText->setText(tr("Version : %1").arg(QString::fromStdString(m_version)));
    m_ui->HelpBtn->setGeometry(fromTheTop(HelpButtonFrame, height()));
}

void Obsidio::openHelp()
{
    m_host.workspace().openPage(webAddress(webpath::Help));
}

} // namespace orvana
