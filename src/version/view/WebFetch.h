#pragma once

#include <QUrl>

#include <optional>
#include <string>

namespace orvana
{

/// At most this many bytes of an answer are read. The rest is ignored.
inline constexpr qint64 MostOfAnAnswer = 65536;

/// Whether this program was built with the check for a newer version. Without it nothing is ever fetched.
bool mayFetchFromWeb();

/// Reads a small file from a web server, over HTTP or HTTPS. The calling thread only waits; another thread
/// does the work.
///
/// Returns nullopt if there is no such file, no server or no network, if the answer breaks off, if the server
/// is silent for as long as Qt's own limit for a transfer (30 s), or if it redirects to another scheme. Needs
/// a QCoreApplication.
std::optional<std::string> fetchFromWeb(const QUrl &address);

} // namespace orvana
