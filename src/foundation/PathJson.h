#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace orvana
{

using Json = nlohmann::ordered_json;

/// Puts a path into a JSON object under `key`, as it is shown, and its bytes in base64 under `key`Bytes when
/// they are shown in another way: bytes that are not UTF-8, and control characters.
void putPath(Json &object, const std::string &key, std::string_view path);

/// The bytes in base64, padded.
std::string base64(std::string_view bytes);

} // namespace orvana
