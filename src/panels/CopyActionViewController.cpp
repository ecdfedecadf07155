#include "panels/CopyActionViewController.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"

namespace orvana
{

CopyActionViewController::CopyActionViewController(NotificationCenter &center, QWidget *parent)
    : QWidget(parent), m_center(center)
{
    setupUi(this);
    connect(StartBtn, &QPushButton::clicked, this, &CopyActionViewController::Duplicate);
    connect(VerrifyFileCheckBox, &QCheckBox::clicked, this, &CopyActionViewController::ClickVerifyFiles);
    connect(EraseDiskCheckBox, &QCheckBox::clicked, this, &CopyActionViewController::ClickEraseDisks);
    awakeFromNib();
}

void CopyActionViewController::awakeFromNib()
{
    setTitle(Title::Start);
    EraseDiskCheckBox->setText(tr("&Erase destination disk(s)"));
    EraseDiskCheckBox->setAccessibleName(tr("Erase destination disk(s)"));
    EraseDiskCheckBox->setChecked(false);
    VerrifyFileCheckBox->setText(tr("&Verify"));
    VerrifyFileCheckBox->setAccessibleName(tr("Verify"));
    VerrifyFileCheckBox->setChecked(m_verifyFiles);
}

void CopyActionViewController::setTitle(Title title)
{
    StartBtn->setText(title == Title::Start ? tr("&Start") : tr("&Cancel"));
    StartBtn->setAccessibleName(title == Title::Start ? tr("Start") : tr("Cancel"));
}

void CopyActionViewController::Duplicate()
{
    m_center.post(notification::ClickStartBtn);
}

void CopyActionViewController::ClickVerifyFiles()
{
    m_verifyFiles = VerrifyFileCheckBox->isChecked();
    m_center.post(notification::ClickVerifyBtn);
}

void CopyActionViewController::ClickEraseDisks()
{
    m_center.post(notification::ClickEraseBtn);
}

} // namespace orvana
