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
    QStringList buttons = {QStringLiteral("OK")}; ///< the last answers Escape
    int defaultButton = 0;                        ///< position of the button that Return presses
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

    using Id = std::uint64_t;

    Id show(Sheet sheet);

    /// Takes the sheet away without calling its completion, whether it is on the screen or still waits. Does
    /// nothing for a sheet that is gone.
    void withdraw(Id id);

    /// The sheet on the screen, or null.
    QMessageBox *current() const { return m_box; }

private:
    struct Numbered
    {
        Id id;
        Sheet sheet;
    };

    void showNext();
    void finished(const Sheet &sheet, int button);

    QWidget &m_window;
    std::deque<Numbered> m_waiting;
    QPointer<QMessageBox> m_box;
    Id m_shown = 0;
    Id m_last = 0;
};

} // namespace orvana
