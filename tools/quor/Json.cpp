#include "tools/quor/Json.h"

#include <nlohmann/json.hpp>

namespace Veld::Quor::Tools {

std::string ToText(const nlohmann::ordered_json& json)
{
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

} // namespace Veld::Quor::Tools
