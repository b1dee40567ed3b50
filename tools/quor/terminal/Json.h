#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// Indented, with a line end. Bytes that are no UTF-8 come out as the replacement character.
std::string ToText(const nlohmann::ordered_json& json);

/// The text; null if it is empty.
nlohmann::ordered_json TextOrNull(const std::string& text);

} // namespace Veld::Quor::Tools
