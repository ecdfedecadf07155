#pragma once

#include <QString>

#include <string>

namespace orvana
{

/// Returns bytes that came from a disk as text that is safe to show (see `displayPath`).
QString shownText(const std::string &bytes);

/// Returns the text with places where a label may break it within very long words.
QString wrappableText(const QString &text);

/// Returns the text as a tool tip. Nothing in it is ever taken for markup.
QString plainToolTip(const QString &text);

} // namespace orvana
