#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// Indented, with a line end. Bytes that are no UTF-8 come out as the replacement character.
std::string ToText(const nlohmann::ordered_json& json);

/// The same in one line.
std::string ToLine(const nlohmann::ordered_json& json);

/// The version of the schema of what we print.
constexpr int outputVersion = 1;

/// An object of ours as it goes out: after the version of its schema.
nlohmann::ordered_json WithVersion(const nlohmann::ordered_json& json);

/// The text with the replacement character for each byte that is no UTF-8.
std::string ValidText(const std::string& text);

/// The text; null if it is empty.
nlohmann::ordered_json TextOrNull(const std::string& text);

} // namespace Veld::Quor::Tools
