#pragma once

#include "foundation/PathJson.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tl/expected.hpp>

namespace orvana
{

/// Thrown by the readers of our JSON files for an entry that is wrong. Each reader catches it at its top.
struct WrongJsonEntry
{
    std::string reason; ///< "/bays/A/port: must be a text"; holds keys of the file as unchanged bytes
};

/// Throws `WrongJsonEntry`. `where` is the JSON pointer of the entry; empty for the whole file.
[[noreturn]] void rejectEntry(const std::string &where, const std::string &reason);

/// Parses the text of one of our JSON files. Refuses what is not JSON, and what is nested more than eight
/// levels deep, which our files never are.
tl::expected<Json, std::string> parseJson(std::string_view text);

/// The members of one JSON object, with checked types. Every known key must be asked for before `end`, which
/// rejects all other keys, such as a misspelt key. All functions throw `WrongJsonEntry`.
class JsonFields
{
public:
    /// `object` must outlive this object. `where` is its JSON pointer.
    JsonFields(const Json &object, std::string where);

    const std::string &where() const { return m_where; }

    std::optional<std::string> text(const char *key);
    std::optional<std::int64_t> number(const char *key, std::int64_t least = 0);
    bool flag(const char *key, bool otherwise);
    std::string requiredText(const char *key);
    std::int64_t requiredNumber(const char *key);

    /// Returns the value of the key, of any type, or null.
    const Json *value(const char *key);

    /// Calls `read(entry, where)` for each entry of a list, if there is one.
    template <class Read>
    void list(const char *key, Read read)
    {
        const auto *value = this->value(key);
        if (!value)
            return;
        const auto place = m_where + "/" + key;
        if (!value->is_array())
            rejectEntry(place, "must be a list");
        for (std::size_t i = 0; i < value->size(); ++i)
            read((*value)[i], place + "/" + std::to_string(i));
    }

    void end() const;

private:
    const Json &m_object;
    std::string m_where;
    std::set<std::string> m_known;
};

} // namespace orvana
