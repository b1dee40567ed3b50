#include "quor/deck/internal/read/words/VariableValues.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

std::optional<std::string> VariableValues::Replace(const VariablesString& text, const TextRange& range)
{
    std::string replaced = text.GetString();
    std::size_t after = 0;
    bool isWhole = true;
    for (const std::string& name : text.GetVariables()) {
        const auto value = texts_.find(name);
        if (value == texts_.end()) {
            Report(name, range);
            isWhole = false;
            continue;
        }
        const std::size_t begin = replaced.find(name, after);
        replaced.replace(begin, name.size(), value->second);
        after = begin + value->second.size();
    }
    return isWhole ? std::optional<std::string>(std::move(replaced)) : std::nullopt;
}

/// A name that the deck gives as an alias of a path has its value there.
void VariableValues::Report(const std::string& name, const TextRange& range)
{
    std::string resolved;
    if (!deck_.GetAliases().resolvePathAliases(name, resolved))
        return;
    ++unknown_;
    if (!reported_.insert(name).second)
        return;
    reporter_.Report(range, Code::UnknownVariable, fmt::format("variable '{}' has no value", name),
        fmt::format("set the variable {}", name));
}

} // namespace Veld::Quor::Core::Decks
