#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// Indented, with a line end. Bytes that are no UTF-8 come out as the replacement character.
std::string ToText(const nlohmann::ordered_json& json);

} // namespace Veld::Quor::Tools
