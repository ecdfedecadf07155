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
    QStringList buttons = {QStringLiteral("OK")}; ///< Escape presses the last button
    int defaultButton = 0;                        ///< position of the button that Return presses
    /// Called with the position of the pressed button, after the sheet has closed. May be empty.
    std::function<void(int)> completion = nullptr;
};

/// Shows a window's sheets one after the other. `show` returns at once and does not wait for an answer.
class Sheets
{
public:
    explicit Sheets(QWidget &window) : m_window(window) {}
    Sheets(const Sheets &) = delete;
    Sheets &operator=(const Sheets &) = delete;

    using Id = std::uint64_t;

    Id show(Sheet sheet);

    /// Removes a sheet without calling its completion. The sheet may be on the screen or still waiting. Does
    /// nothing if the sheet is already gone.
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
