#pragma once

#include "app/AppContext.h"
#include "duplicate/line/LineStore.h"
#include "duplicate/run/ProductionLine.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QStackedLayout;

namespace orvana
{

class LineTile;

/// The files that a new line would copy, as the main window shows them.
struct LineSetup
{
    Job job;
    ChosenEnclosure enclosure;
    std::int64_t files = 0;
    std::uint64_t bytes = 0;
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::function<bool()> isRunOn{}; ///< whether the main window has disks in work
};

/// The production line: a page on which a line is chosen and armed, and a page that can be read from two
/// metres away, with a tile for each bay. Any key and any click beside a button stops countdowns. While the
/// line is armed, the main window starts no run. Main thread only.
class LineWindow : public QWidget, public LineView
{
    Q_OBJECT

public:
    LineWindow(const AppContext &context, std::string stateFolder, LineSetup setup);
    ~LineWindow() override;

    /// Makes the line, or opens the chosen one, and arms the ticked bays. Says why if it cannot.
    void arm();

    /// Takes no more disks and cancels those in work.
    void cancel();

    /// The line, or null before it was armed for the first time.
    const ProductionLine *line() const { return m_line.get(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void lineChanged() override;
    void lineDiskEnded(const LineEntry &entry) override;
    void lineDisarmed(const std::string &reason) override;

    QWidget *makeForm();
    QWidget *makeBoard();
    void fillLines();
    void lineChosen();
    tl::expected<LineStore, std::string> openStore();
    std::vector<Bay> tickedBays() const;
    void tell(const QString &text);
    void updateActivity();

    const AppContext m_context;
    const std::string m_stateFolder;
    const LineSetup m_setup;

    QStackedLayout *m_pages;
    QComboBox *m_lines = nullptr;
    QSpinBox *m_wanted = nullptr;
    QLineEdit *m_title = nullptr;
    QLineEdit *m_names = nullptr;
    QLineEdit *m_consent = nullptr;
    std::array<QCheckBox *, 4> m_bays{};
    QLabel *m_trouble = nullptr;
    QPushButton *m_armButton = nullptr;
    QLabel *m_counts = nullptr;
    QLabel *m_message = nullptr;
    std::array<LineTile *, 4> m_tiles{};
    QPushButton *m_pauseButton = nullptr;
    QPushButton *m_disarmButton = nullptr;
    bool m_isClosing = false;
    std::shared_ptr<void> m_wakefulness;    ///< while disks are in work
    std::unique_ptr<ProductionLine> m_line; // last, so that its runs end first
};

} // namespace orvana
