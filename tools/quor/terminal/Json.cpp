#include "tools/quor/terminal/Json.h"

#include <nlohmann/json.hpp>

namespace Veld::Quor::Tools {

std::string ToText(const nlohmann::ordered_json& json)
{
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

std::string ToLine(const nlohmann::ordered_json& json)
{
    return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

nlohmann::ordered_json WithVersion(const nlohmann::ordered_json& json)
{
    nlohmann::ordered_json versioned = {{"schema_version", outputVersion}};
    versioned.update(json);
    return versioned;
}

std::string ValidText(const std::string& text)
{
    const std::string valid =
        nlohmann::ordered_json(text).dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    return nlohmann::ordered_json::parse(valid).get<std::string>();
}

nlohmann::ordered_json TextOrNull(const std::string& text)
{
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

} // namespace Veld::Quor::Tools
