#include "tools/quor/commands/NameFilter.h"

#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

bool CheckKind(const char* option, const std::string& kind, const std::vector<std::string>& kinds)
{
    if (kind.empty() || std::find(kinds.begin(), kinds.end(), kind) != kinds.end())
        return true;
    const auto nearest = Decks::FindNearest(kinds, kind);
    PrintError(fmt::format("{}: unknown kind of names '{}'; {}", option, kind,
        nearest.empty() ? fmt::format("expected {}", fmt::join(kinds, ", "))
                        : fmt::format("did you mean {}?", fmt::join(nearest, ", "))));
    return false;
}

bool HasRule(const std::vector<Decks::KeywordRule>& rules, const char* kind, const std::string& what)
{
    return what.empty() || std::any_of(rules.begin(), rules.end(), [&](const Decks::KeywordRule& rule) {
        return rule.kind == kind && rule.what == what;
    });
}

} // namespace

bool NameFilter::Check(const Decks::DeckLanguage& language) const
{
    const auto kinds = language.GetNameKinds();
    return CheckKind("--defines", defines, kinds) && CheckKind("--refers-to", refersTo, kinds);
}

bool NameFilter::Admits(
    const Decks::DeckLanguage& language, const Core::Keywords::IKeywordSyntax& syntax) const
{
    const auto rules = language.GetRules(syntax);
    return HasRule(rules, "defines", defines) && HasRule(rules, "refers-to", refersTo);
}

void AddNameOptions(CLI::App& command, NameFilter& filter)
{
    command.add_option("--defines", filter.defines, "Kind of names that the keyword defines, as 'well'")
        ->type_name("KIND")
        ->take_last();
    command.add_option("--refers-to", filter.refersTo, "Kind of names that the keyword refers to")
        ->type_name("KIND")
        ->take_last();
}

} // namespace Veld::Quor::Tools
