#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// What a name in the size of a list stands for; empty if that isn't known.
using SizeOfName = std::function<std::optional<long long>(const std::string& name)>;

/// Works out the size of a list: whole numbers and names, `+ - * /` with the usual precedence, and
/// parentheses. Empty if the text is no such expression, a name isn't known, or the result can't be a size.
std::optional<long long> EvaluateSize(std::string_view text, const SizeOfName& sizeOf);

} // namespace Veld::Quor::Core::Decks
