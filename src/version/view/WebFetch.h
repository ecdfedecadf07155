#pragma once

#include <QUrl>

#include <optional>
#include <string>

namespace orvana
{

/// At most so much of an answer is read; what follows is as if it were not there.
inline constexpr qint64 MostOfAnAnswer = 65536;

/// Reads a small file from a web server, over HTTP or HTTPS. The calling thread waits and does nothing else
/// meanwhile; the work is done on a thread of its own.
///
/// Nothing when there is no such file, no server or no network, when the answer breaks off, when the server
/// is silent for as long as Qt's own limit for a transfer (30 s), and for a redirect to another scheme.
/// Needs a QCoreApplication.
std::optional<std::string> fetchFromWeb(const QUrl &address);

} // namespace orvana
