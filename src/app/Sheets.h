#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QStringList>

#include <deque>
#include <functional>

namespace orvana
{

/// A message that covers a window until one of its buttons is pressed.
struct Sheet
{
    QString message;
    QString text;
    QStringList buttons = {QStringLiteral("OK")}; ///< the first is the default, the last answers Escape
    /// Called with the pressed button's position once the sheet is gone; may be empty.
    std::function<void(int)> completion = nullptr;
};

/// Shows a window's sheets one after the other. Nothing waits for them: `show` returns at once.
class Sheets
{
public:
    explicit Sheets(QWidget &window) : m_window(window) {}
    Sheets(const Sheets &) = delete;
    Sheets &operator=(const Sheets &) = delete;

    void show(Sheet sheet);

    /// The sheet on the screen, or null.
    QMessageBox *current() const { return m_box; }

private:
    void showNext();
    void finished(const Sheet &sheet, int button);

    QWidget &m_window;
    std::deque<Sheet> m_waiting;
    QPointer<QMessageBox> m_box;
};

} // namespace orvana
