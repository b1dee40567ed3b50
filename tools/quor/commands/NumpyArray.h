#pragma once

#include <string>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Tools {

/// The bytes of a file that numpy loads: an array of one dimension with the values of a list of reals
/// (float64, NaN for what is left to its default) or integers (int32). Throws `std::invalid_argument`, with a
/// sentence, if `data` are no such list, or integers of which some are left to their default. `keyword`: its
/// name, for the sentence.
std::string NumpyArray(const std::string& keyword, const Core::Keywords::IKeywordData& data);

} // namespace Veld::Quor::Tools
