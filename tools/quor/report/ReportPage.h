#pragma once

#include "tools/quor/report/ReportJson.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A page with all that it needs in it: the script and its library, the data as JSON, and the arrays as
/// little-endian numbers of 32 bits; data and arrays deflated, in base64.
std::string ReportPage(
    const std::string& title, const nlohmann::ordered_json& report, const std::vector<ReportValues>& values);

} // namespace Veld::Quor::Tools
