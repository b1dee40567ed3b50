#pragma once

#include "tools/quor/report/ReportJson.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A page with all that it needs in it: the scripts and their libraries, the data as JSON, and the arrays as
/// little-endian numbers of 32 bits; data and arrays deflated, in base64. `progress` is called with the bytes
/// of arrays that are done, and with all of them.
std::string ReportPage(const std::string& title, const nlohmann::ordered_json& report,
    const std::vector<ReportValues>& values, const std::function<void(std::size_t, std::size_t)>& progress);

} // namespace Veld::Quor::Tools
