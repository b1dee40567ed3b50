#include "tools/quor/terminal/Json.h"

#include <nlohmann/json.hpp>

namespace Veld::Quor::Tools {

std::string ToText(const nlohmann::ordered_json& json)
{
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

nlohmann::ordered_json TextOrNull(const std::string& text)
{
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

} // namespace Veld::Quor::Tools
