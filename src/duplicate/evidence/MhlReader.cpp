#include "duplicate/evidence/MhlReader.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <charconv>
#include <expat.h>
#include <memory>
#include <new>
#include <span>
#include <string_view>

namespace orvana
{

namespace
{

constexpr std::string_view MhlNamespace = "urn:ASC:MHL:v2.0";
constexpr std::string_view ChainNamespace = "urn:ASC:MHL:DIRECTORY:v2.0";
constexpr char NamespaceEnd = ' ';
constexpr std::size_t DeepestElement = 64;
constexpr std::size_t LongestText = 1UL << 20U;
constexpr std::size_t ReadAtOnce = 64UL * 1024;

struct FreeParser
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

// Attributes as the parser hands them over: names and values in turn, and a null at the end.
std::string_view attribute(const char **attributes, std::string_view name)
{
    for (; *attributes; attributes += 2) {
        if (*attributes == name)
            return attributes[1];
    }
    return {};
}

bool liesBelow(std::string_view path)
{
    const auto parts = "/" + std::string(path) + "/";
    return !path.empty() && parts.find("//") == std::string::npos && parts.find("/./") == std::string::npos &&
           parts.find("/../") == std::string::npos;
}

/// A parser that keeps the names of the open elements and the text of the innermost.
class XmlReader
{
public:
    explicit XmlReader(std::string_view space)
        : m_space(space), m_parser(XML_ParserCreateNS("UTF-8", NamespaceEnd))
    {
        if (!m_parser)
            throw std::bad_alloc();
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), onStart, onEnd);
        XML_SetCharacterDataHandler(m_parser.get(), onText);
        XML_SetStartDoctypeDeclHandler(m_parser.get(), onDoctype);
    }
    virtual ~XmlReader() = default;
    XmlReader(const XmlReader &) = delete;
    XmlReader &operator=(const XmlReader &) = delete;

    std::optional<ManifestError> read(platform::File &file)
    {
        std::vector<char> block(ReadAtOnce);
        for (std::uint64_t offset = 0;;) {
            const auto count = file.read(std::as_writable_bytes(std::span(block)), offset);
            if (!count)
                return ManifestError{0, "cannot be read: " + count.error().reason()};
            const bool isLast = *count < block.size();
            if (XML_Parse(m_parser.get(), block.data(), static_cast<int>(*count), isLast) == XML_STATUS_ERROR)
                return error();
            if (isLast)
                return std::nullopt;
            offset += *count;
        }
    }

protected:
    virtual void starts(std::string_view name, const char **attributes) = 0;
    virtual void ends(std::string_view name) = 0;

    /// The text of the element that ends.
    const std::string &text() const { return m_text; }

    /// Number of the elements around the one that starts or ends.
    std::size_t depth() const { return m_open.size(); }
    std::string_view around() const { return m_open.empty() ? std::string_view() : m_open.back(); }
    std::string_view outermost() const { return m_open.empty() ? std::string_view() : m_open.front(); }
    bool isIn(std::string_view name) const
    {
        return std::find(m_open.begin(), m_open.end(), name) != m_open.end();
    }

    /// Ends the reading with this reason.
    void refuse(std::string reason)
    {
        if (!m_reason.empty())
            return;
        m_reason = std::move(reason);
        m_line = static_cast<int>(XML_GetCurrentLineNumber(m_parser.get()));
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    bool isRefused() const { return !m_reason.empty(); }

    void refuseUnlessBelow(std::string_view path)
    {
        if (!liesBelow(path))
            refuse("the path \"" + displayPath(path) + "\" does not lie below the folder");
    }

private:
    ManifestError error() const
    {
        if (!m_reason.empty())
            return {m_line, m_reason};
        return {static_cast<int>(XML_GetCurrentLineNumber(m_parser.get())),
                XML_ErrorString(XML_GetErrorCode(m_parser.get()))};
    }

    // Elements of other namespaces, such as those in "metadata", have an empty name here.
    std::string_view nameOf(const char *full) const
    {
        const std::string_view name(full);
        const auto end = name.find(NamespaceEnd);
        return end != std::string_view::npos && name.substr(0, end) == m_space ? name.substr(end + 1)
                                                                               : std::string_view();
    }

    static void onStart(void *self, const char *name, const char **attributes)
    {
        auto &reader = *static_cast<XmlReader *>(self);
        reader.m_text.clear();
        if (reader.m_open.size() == DeepestElement)
            return reader.refuse("the elements lie too deep");
        const auto plain = reader.nameOf(name);
        reader.starts(plain, attributes);
        reader.m_open.emplace_back(plain);
    }

    static void onEnd(void *self, const char *name)
    {
        auto &reader = *static_cast<XmlReader *>(self);
        reader.m_open.pop_back();
        reader.ends(reader.nameOf(name));
        reader.m_text.clear();
    }

    static void onText(void *self, const char *text, int length)
    {
        auto &reader = *static_cast<XmlReader *>(self);
        if (reader.m_text.size() + static_cast<std::size_t>(length) > LongestText)
            return reader.refuse("a text is too long");
        reader.m_text.append(text, static_cast<std::size_t>(length));
    }

    static void onDoctype(void *self, const char *, const char *, const char *, int)
    {
        static_cast<XmlReader *>(self)->refuse("a document type is not allowed");
    }

    const std::string_view m_space;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser> m_parser;
    std::vector<std::string> m_open;
    std::string m_text;
    std::string m_reason;
    int m_line = 0;
};

class MhlXmlReader final : public XmlReader
{
public:
    explicit MhlXmlReader(const std::function<void(const ManifestEntry &)> &take)
        : XmlReader(MhlNamespace), m_take(take)
    {
    }

    ManifestFacts facts;

private:
    void starts(std::string_view name, const char **attributes) override
    {
        if (depth() == 0 && name != "hashlist")
            return refuse("this is no ASC MHL 2.0 manifest");
        if (depth() == 0 && attribute(attributes, "version") != "2.0")
            return refuse("this program knows version 2.0 only");
        if (isEntry(name) && around() == "hashes") {
            m_entry.emplace();
            m_entry->isFolder = name == "directoryhash";
        } else if (m_entry && name == "path") {
            readSize(attribute(attributes, "size"));
        }
        m_action = attribute(attributes, "action");
    }

    void ends(std::string_view name) override
    {
        if (m_entry && isEntry(name) && around() == "hashes")
            endEntry();
        else if (m_entry && isEntry(around()))
            readPartOfEntry(name);
        else if (name == "tool" && around() == "creatorinfo")
            facts.tool = text();
        else if (name == "process" && around() == "processinfo")
            facts.process = text();
        else if (name == "pattern" && around() == "ignore")
            facts.ignored.push_back(text());
        else if (around() == "hashlistreference")
            readPartOfReference(name);
    }

    static bool isEntry(std::string_view name) { return name == "hash" || name == "directoryhash"; }

    void endEntry()
    {
        refuseUnlessBelow(m_entry->path);
        if (!m_entry->previousPath.empty())
            refuseUnlessBelow(m_entry->previousPath);
        if (!isRefused())
            m_take(*m_entry);
        m_entry.reset();
    }

    void readSize(std::string_view text)
    {
        if (text.empty())
            return;
        std::uint64_t size = 0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), size);
        if (read.ec != std::errc() || read.ptr != text.data() + text.size())
            return refuse("the size \"" + displayPath(text) + "\" is no number of bytes");
        m_entry->size = size;
    }

    void readPartOfEntry(std::string_view name)
    {
        if (name == "path") {
            m_entry->path = text();
        } else if (name == "previousPath") {
            m_entry->previousPath = text();
        } else if (const auto format = digestFormatNamed(name); format && canBeInMhl(*format)) {
            if (!isDigest(*format, text()))
                return refuse("\"" + displayPath(text()) + "\" is no digest of the format " +
                              std::string(name));
            m_entry->digests.push_back({*format, text(), actionNamed(m_action)});
        }
    }

    DigestAction actionNamed(std::string_view action)
    {
        if (action == "failed")
            return DigestAction::Failed;
        if (action == "verified")
            return DigestAction::Verified;
        if (!action.empty() && action != "original")
            refuse("the action \"" + displayPath(action) + "\" is not known");
        return DigestAction::Original;
    }

    void readPartOfReference(std::string_view name)
    {
        if (name == "path") {
            refuseUnlessBelow(text());
            facts.references.push_back({text(), {}});
        } else if (name == "c4" && !facts.references.empty()) {
            facts.references.back().c4 = text();
        }
    }

    const std::function<void(const ManifestEntry &)> &m_take;
    std::optional<ManifestEntry> m_entry;
    std::string m_action;
};

class ChainReader final : public XmlReader
{
public:
    ChainReader() : XmlReader(ChainNamespace) {}

    std::vector<MhlReference> generations;

private:
    void starts(std::string_view name, const char **attributes) override
    {
        if (depth() == 0 && name != "ascmhldirectory")
            return refuse("this is no chain of ASC MHL 2.0");
        if (name != "hashlist" || depth() != 1)
            return;
        generations.emplace_back();
        if (attribute(attributes, "sequencenr") != std::to_string(generations.size()))
            refuse("the generations are not numbered from 1 without a gap");
    }

    void ends(std::string_view name) override
    {
        if (around() == "hashlist" && depth() == 2)
            readPart(name);
        else if (name == "hashlist" && depth() == 1)
            checkGeneration();
    }

    void readPart(std::string_view name)
    {
        if (name == "path")
            generations.back().path = text();
        else if (name == "c4")
            generations.back().c4 = text();
    }

    void checkGeneration()
    {
        const auto &generation = generations.back();
        refuseUnlessBelow(generation.path);
        if (!isDigest(DigestFormat::C4, generation.c4))
            refuse("a generation has no c4 digest");
    }
};

} // namespace

std::string ManifestError::text() const
{
    return (line > 0 ? "line " + std::to_string(line) + ": " : std::string()) + reason;
}

tl::expected<ManifestFacts, ManifestError> readMhl(platform::File &file,
                                                   const std::function<void(const ManifestEntry &)> &take)
{
    MhlXmlReader reader(take);
    if (const auto error = reader.read(file))
        return tl::unexpected(*error);
    return std::move(reader.facts);
}

tl::expected<std::vector<MhlReference>, ManifestError> readChain(platform::File &file)
{
    ChainReader reader;
    if (const auto error = reader.read(file))
        return tl::unexpected(*error);
    return std::move(reader.generations);
}

} // namespace orvana
