#include "app/Sheets.h"

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
    m_box->setAttribute(Qt::WA_DeleteOnClose);
    m_box->setWindowTitle(m_window.windowTitle());
    m_box->setTextFormat(Qt::PlainText); // names of disks are never markup
    m_box->setText(sheet.message);
    m_box->setInformativeText(sheet.text);
    for (const auto &title : sheet.buttons) {
        auto *button = m_box->addButton(title, QMessageBox::AcceptRole);
        if (m_box->buttons().size() == 1)
            m_box->setDefaultButton(button);
        m_box->setEscapeButton(button);
    }
    auto *box = m_box.data();
    QObject::connect(box, &QMessageBox::finished, &m_window, [this, box, sheet] {
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
