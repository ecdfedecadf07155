#pragma once

#include "cli/KeyInput.h"
#include "duplicate/run/ProductionLine.h"
#include "foundation/ExitStatus.h"

#include <atomic>
#include <functional>
#include <string>

namespace orvana
{
class PlainMainQueue;
}

namespace orvana::cli
{

class Terminal;

/// Returns the rows of a line as a block of text for a screen of this width: its counts, each bay's big
/// state, and what the keys do.
std::string lineBlock(const ProductionLine &line, std::size_t width, bool hasKeys);

/// Shows a line in the terminal and hears its keys. Any key stops countdowns; a bay's capital letter agrees
/// to what the bay asks; q takes no more disks and leaves when those in work are done.
class LineDisplay final : public LineView
{
public:
    LineDisplay(Terminal &terminal, PlainMainQueue &queue, bool json);

    /// Shows the line until it is over. `line` has this display as its view, and is armed.
    ExitStatus run(ProductionLine &line);

    /// Cancels the disks in work and leaves. Callable from any thread.
    void requestCancel();

private:
    void lineChanged() override;
    void lineDiskEnded(const LineEntry &entry) override;
    void lineDisarmed(const std::string &reason) override;

    void hearKeys();
    void handle(const std::string &typed);
    void tellChanges();
    void leaveWhenDone();

    Terminal &m_terminal;
    PlainMainQueue &m_queue;
    const bool m_json;
    KeyInput m_keys;
    ProductionLine *m_line = nullptr;
    std::atomic<ProductionLine *> m_lineAtWork{nullptr}; ///< for the thread of signals
    PerBay<LineBay> m_told;
    bool m_isCancelled = false;
    bool m_isLeaving = false;
    std::string m_disarmReason;
};

} // namespace orvana::cli
