#include "app/Sheets.h"

#include "ui/Contrast.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include <utility>

namespace orvana
{

namespace
{

/// A message box with an edge of its own: it lies on the window that it belongs to, in the same colour.
class SheetBox : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QMessageBox::paintEvent(event);
        QPainter painter(this);
        painter.setPen(edgeColor(palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

} // namespace

Sheets::Id Sheets::show(Sheet sheet)
{
    const auto id = ++m_last;
    m_waiting.push_back({id, std::move(sheet)});
    if (!m_box)
        showNext();
    return id;
}

void Sheets::withdraw(Id id)
{
    std::erase_if(m_waiting, [&](const Numbered &waiting) { return waiting.id == id; });
    if (!m_box || m_shown != id)
        return;
    auto *box = m_box.data();
    box->disconnect(&m_window);
    m_box.clear();
    box->hide();
    box->deleteLater();
    showNext();
}

void Sheets::showNext()
{
    if (m_waiting.empty())
        return;
    const auto sheet = std::move(m_waiting.front().sheet);
    m_shown = m_waiting.front().id;
    m_waiting.pop_front();
    m_box = new SheetBox(&m_window);
    m_box->setWindowTitle(m_window.windowTitle());
    m_box->setTextFormat(Qt::PlainText); // names of disks are never markup
    m_box->setText(sheet.message);
    m_box->setInformativeText(sheet.text);
    // Without a minimum width, a short message makes the sheet so narrow that its text takes many lines.
    if (auto *text = m_box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"))) {
        text->setMinimumWidth(300);
        text->setTextFormat(Qt::PlainText); // the box applies its text format to its first text only
    }
    QList<QAbstractButton *> buttons; // found by position: a desktop may change their texts
    for (const auto &title : sheet.buttons) {
        auto *button = m_box->addButton(title, QMessageBox::AcceptRole);
        if (m_box->buttons().size() == sheet.defaultButton + 1)
            m_box->setDefaultButton(button);
        m_box->setEscapeButton(button);
        buttons.append(button);
    }
    auto *box = m_box.data();
    QObject::connect(box, &QMessageBox::finished, &m_window, [this, box, sheet, buttons] {
        box->deleteLater(); // a pressed button only hides the box
        auto *pressed = box->clickedButton() ? box->clickedButton() : box->escapeButton();
        finished(sheet, static_cast<int>(buttons.indexOf(pressed)));
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
