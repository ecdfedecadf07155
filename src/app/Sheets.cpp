#include "app/Sheets.h"

#include <QLabel>
#include <QPushButton>

#include <utility>

namespace orvana
{

void Sheets::show(Sheet sheet)
{
    m_waiting.push_back(std::move(sheet));
    if (!m_box)
        showNext();
}

void Sheets::showNext()
{
    if (m_waiting.empty())
        return;
    const auto sheet = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_box = new QMessageBox(&m_window);
    m_box->setWindowTitle(m_window.windowTitle());
    m_box->setTextFormat(Qt::PlainText); // names of disks are never markup
    m_box->setText(sheet.message);
    m_box->setInformativeText(sheet.text);
    // Else a short message makes a sheet so narrow that its text runs over many lines.
    if (auto *text = m_box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        text->setMinimumWidth(300);
    for (const auto &title : sheet.buttons) {
        auto *button = m_box->addButton(title, QMessageBox::AcceptRole);
        if (m_box->buttons().size() == 1)
            m_box->setDefaultButton(button);
        m_box->setEscapeButton(button);
    }
    auto *box = m_box.data();
    QObject::connect(box, &QMessageBox::finished, &m_window, [this, box, sheet] {
        box->deleteLater(); // a pressed button hides it and no more
        auto *pressed = box->clickedButton() ? box->clickedButton() : box->escapeButton();
        finished(sheet, static_cast<int>(sheet.buttons.indexOf(pressed->text())));
    });
    box->open();
}

void Sheets::finished(const Sheet &sheet, int button)
{
    m_box.clear();
    if (sheet.completion)
        sheet.completion(button);
    if (!m_box)
        showNext();
}

} // namespace orvana
