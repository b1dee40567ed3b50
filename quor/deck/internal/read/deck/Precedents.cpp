#include "quor/deck/internal/read/deck/Precedents.h"

#include <fmt/format.h>

#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void Precedents::Follow(const KeywordInstance& keyword, bool isSure)
{
    const bool isOfOtherRun = isRestarted_ && keyword.section == SectionType::SCHEDULE;
    if (isSure && !isOfOtherRun && keyword.syntax->HasPrecedents()) {
        if (keyword.section == SectionType::RUNSPEC)
            pending_.push_back({keyword.syntax, keyword.name});
        else
            Check(*keyword.syntax, keyword.section, keyword.name);
    }
    seen_.insert(keyword.syntax->GetName());
}

void Precedents::EndSection(bool isSure)
{
    for (const Pending& keyword : std::exchange(pending_, {})) {
        if (isSure)
            Check(*keyword.syntax, SectionType::RUNSPEC, keyword.name);
    }
}

void Precedents::Check(const IKeywordSyntax& syntax, SectionType::Enum section, const TextRange& name)
{
    std::string missing;
    for (const std::string& required : syntax.GetPrecedents(section)) {
        if (seen_.insert(required).second)
            missing += (missing.empty() ? "" : ", ") + required;
    }
    if (!missing.empty())
        reporter_.Report(name, Code::MissingPrecedent,
            section == SectionType::RUNSPEC
                ? fmt::format("{} requires {} in section RUNSPEC", syntax.GetName(), missing)
                : fmt::format("{} requires {} before it", syntax.GetName(), missing));
}

} // namespace Veld::Quor::Core::Decks
