#include "duplicate/evidence/MhlXml.h"

#include "foundation/DisplayPath.h"

#include <array>
#include <ctime>

namespace orvana
{

namespace
{

std::string escaped(std::string_view text)
{
    std::string safe;
    safe.reserve(text.size());
    for (const char letter : text) {
        switch (letter) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            safe += letter;
        }
    }
    return safe;
}

std::string inUtc(std::int64_t seconds, const char *layout)
{
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    ::gmtime_r(&time, &parts);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), layout, &parts)};
}

std::string dateTime(std::int64_t seconds)
{
    return inUtc(seconds, "%Y-%m-%dT%H:%M:%S+00:00");
}

std::string element(std::string_view name, std::string_view attributes, std::string_view text)
{
    std::string xml = "<";
    xml.append(name).append(attributes).append(">").append(escaped(text));
    return xml.append("</").append(name).append(">");
}

std::string digestElement(DigestFormat format, const std::string &attributes, const std::string &digest)
{
    return element(nameOf(format), attributes, digest);
}

std::string hashDate(std::int64_t seconds)
{
    return " hashdate=\"" + dateTime(seconds) + "\"";
}

// Without a digest the two elements are empty: checkers expect them.
std::string folderDigests(const std::optional<FolderDigest> &digest, DigestFormat format,
                          const std::string &date, const std::string &indent)
{
    const auto part = [&](const std::string &text) {
        return digest ? digestElement(format, date, text) : std::string();
    };
    return indent + "<content>" + part(digest ? digest->content : "") + "</content>\n" + indent +
           "<structure>" + part(digest ? digest->structure : "") + "</structure>\n";
}

std::string nameOf(DigestAction action)
{
    switch (action) {
    case DigestAction::Original:
        return "original";
    case DigestAction::Verified:
        return "verified";
    case DigestAction::Failed:
        return "failed";
    }
    return {};
}

std::string modifiedAttribute(std::int64_t seconds)
{
    return " lastmodificationdate=\"" + dateTime(seconds) + "\"";
}

constexpr std::string_view Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

} // namespace

const std::string_view MhlEntriesStart = "  <hashes>\n";
const std::string_view MhlEntriesEnd = "  </hashes>\n";

bool canBeInMhl(std::string_view path)
{
    constexpr unsigned char FirstPrintable = 0x20;
    for (const char letter : path) {
        if (static_cast<unsigned char>(letter) < FirstPrintable)
            return false;
    }
    // U+FFFE and U+FFFF are no characters of XML.
    return isUtf8(path) && path.find("\xEF\xBF\xBE") == std::string_view::npos &&
           path.find("\xEF\xBF\xBF") == std::string_view::npos;
}

bool canBeInMhl(DigestFormat format)
{
    return format != DigestFormat::Sha256;
}

std::string mhlStamp(std::int64_t seconds)
{
    return inUtc(seconds, "%Y-%m-%d_%H%M%SZ");
}

std::string mhlStart(const MhlHead &head, DigestFormat format, std::string_view programVersion)
{
    std::string xml(Declaration);
    xml += "<hashlist version=\"2.0\" xmlns=\"urn:ASC:MHL:v2.0\">\n  <creatorinfo>\n";
    xml += "    " + element("creationdate", "", dateTime(head.started)) + "\n";
    xml += "    " + element("hostname", "", head.host) + "\n";
    xml += "    " + element("tool", " version=\"" + escaped(programVersion) + "\"", ProgramName) + "\n";
    if (!head.comment.empty())
        xml += "    " + element("comment", "", head.comment) + "\n";
    xml += "  </creatorinfo>\n  <processinfo>\n    " + element("process", "", head.process) + "\n";
    xml += "    <roothash>\n" + folderDigests(head.root, format, hashDate(head.started), "      ") +
           "    </roothash>\n";
    xml += "    <ignore>\n";
    for (const auto &pattern : head.ignored)
        xml += "      " + element("pattern", "", pattern) + "\n";
    return xml + "    </ignore>\n  </processinfo>\n";
}

std::string mhlEntry(const MhlFile &file)
{
    return "    <hash>\n      " +
           element("path", " size=\"" + std::to_string(file.size) + "\"" + modifiedAttribute(file.modified),
                   file.path) +
           "\n      " +
           digestElement(file.format, " action=\"" + nameOf(file.action) + "\"" + hashDate(file.digested),
                         file.digest) +
           "\n    </hash>\n";
}

std::string mhlFolder(std::string_view path, std::int64_t modified, std::int64_t digested,
                      const std::optional<FolderDigest> &digest, DigestFormat format)
{
    std::string xml = "    <directoryhash>\n      " +
                      element("path", modified != 0 ? modifiedAttribute(modified) : std::string(), path) +
                      "\n";
    xml += folderDigests(digest, format, hashDate(digested), "      ");
    return xml + "    </directoryhash>\n";
}

std::string mhlEnd(const std::vector<MhlReference> &references)
{
    std::string xml;
    if (!references.empty()) {
        xml += "  <references>\n";
        for (const auto &reference : references)
            xml += "    <hashlistreference>\n      " + element("path", "", reference.path) + "\n      " +
                   element("c4", "", reference.c4) + "\n    </hashlistreference>\n";
        xml += "  </references>\n";
    }
    return xml + "</hashlist>\n";
}

std::string chainText(const std::vector<MhlReference> &generations)
{
    std::string xml(Declaration);
    xml += "<ascmhldirectory xmlns=\"urn:ASC:MHL:DIRECTORY:v2.0\">\n";
    for (std::size_t i = 0; i < generations.size(); ++i)
        xml += "  <hashlist sequencenr=\"" + std::to_string(i + 1) + "\">\n    " +
               element("path", "", generations[i].path) + "\n    " + element("c4", "", generations[i].c4) +
               "\n  </hashlist>\n";
    return xml + "</ascmhldirectory>\n";
}

} // namespace orvana
