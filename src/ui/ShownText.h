#pragma once

#include <QString>

#include <string>

namespace orvana
{

/// Bytes that came from a disk, as text that is safe to show (see `displayPath`).
QString shownText(const std::string &bytes);

/// The text as a tool tip that is never taken for markup, whatever it holds.
QString plainToolTip(const QString &text);

} // namespace orvana
