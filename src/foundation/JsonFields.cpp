#include "foundation/JsonFields.h"

namespace orvana
{

void rejectEntry(const std::string &where, const std::string &reason)
{
    throw WrongJsonEntry{(where.empty() ? "/" : where) + ": " + reason};
}

tl::expected<Json, std::string> parseJson(std::string_view text)
{
    constexpr int DeepestNesting = 8;
    bool isTooDeep = false;
    const auto limitDepth = [&](int depth, Json::parse_event_t, const Json &) {
        isTooDeep = isTooDeep || depth > DeepestNesting;
        return !isTooDeep;
    };
    auto json = Json::parse(text, limitDepth, false);
    if (isTooDeep)
        return tl::unexpected(std::string("is nested too deeply"));
    if (json.is_discarded())
        return tl::unexpected(std::string("not JSON"));
    return json;
}

JsonFields::JsonFields(const Json &object, std::string where) : m_object(object), m_where(std::move(where))
{
    if (!m_object.is_object())
        rejectEntry(m_where, "must be an object");
}

std::optional<std::string> JsonFields::text(const char *key)
{
    const auto *value = this->value(key);
    if (!value)
        return std::nullopt;
    if (!value->is_string())
        rejectEntry(m_where + "/" + key, "must be a text");
    return value->get<std::string>();
}

std::optional<std::int64_t> JsonFields::number(const char *key, std::int64_t least)
{
    const auto *value = this->value(key);
    if (!value)
        return std::nullopt;
    if (!value->is_number_integer() ||
        (value->is_number_unsigned() && value->get<std::uint64_t>() > std::uint64_t{INT64_MAX}))
        rejectEntry(m_where + "/" + key, "must be a whole number");
    if (value->get<std::int64_t>() < least)
        rejectEntry(m_where + "/" + key, "must not be less than " + std::to_string(least));
    return value->get<std::int64_t>();
}

bool JsonFields::flag(const char *key, bool otherwise)
{
    const auto *value = this->value(key);
    if (!value)
        return otherwise;
    if (!value->is_boolean())
        rejectEntry(m_where + "/" + key, "must be true or false");
    return value->get<bool>();
}

std::string JsonFields::requiredText(const char *key)
{
    auto value = text(key);
    if (!value)
        rejectEntry(m_where, std::string("needs \"") + key + "\"");
    return *value;
}

std::int64_t JsonFields::requiredNumber(const char *key)
{
    const auto value = number(key);
    if (!value)
        rejectEntry(m_where, std::string("needs \"") + key + "\"");
    return *value;
}

const Json *JsonFields::value(const char *key)
{
    m_known.insert(key);
    const auto found = m_object.find(key);
    return found == m_object.end() ? nullptr : &*found;
}

void JsonFields::end() const
{
    for (const auto &[key, value] : m_object.items()) {
        if (!m_known.contains(key))
            rejectEntry(m_where + "/" + key, "is not a known key");
    }
}

} // namespace orvana
