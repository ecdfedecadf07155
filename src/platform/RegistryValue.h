#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvana::platform
{

struct RegistryDictionary;

/// The value of a registry property: a truth value, a number, a text, raw data, or a dictionary.
using RegistryValue = std::variant<bool, std::int64_t, std::string, std::vector<std::uint8_t>,
                                   std::shared_ptr<const RegistryDictionary>>;

using RegistryProperties = std::map<std::string, RegistryValue>;

struct RegistryDictionary
{
    RegistryProperties values;
};

/// Returns the value under `key`, or nullopt when it is missing or not of type T.
template <class T>
std::optional<T> valueOf(const RegistryProperties &properties, const std::string &key)
{
    const auto found = properties.find(key);
    if (found == properties.end())
        return std::nullopt;
    const auto *value = std::get_if<T>(&found->second);
    return value ? std::optional(*value) : std::nullopt;
}

} // namespace orvana::platform
