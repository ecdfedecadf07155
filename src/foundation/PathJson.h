#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

using Json = nlohmann::ordered_json;

/// Puts a path into a JSON object under `key`, in the form in which it is shown. When that form differs from
/// the path's bytes, also puts the bytes in base64 under `key`Bytes. They differ for bytes that are not UTF-8
/// and for control characters, for example.
void putPath(Json &object, const std::string &key, std::string_view path);

/// Returns the bytes in base64, padded.
std::string base64(std::string_view bytes);

/// Returns the bytes of a text in base64, or nullopt when the text is not padded base64.
std::optional<std::string> fromBase64(std::string_view text);

} // namespace orvana
