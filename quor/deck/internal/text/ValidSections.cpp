#include "quor/deck/internal/text/ValidSections.h"

#include "quor/syntax/KeywordSyntaxUtils.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

SectionSet FindValidSections(
    const std::vector<const IKeywordSyntax*>& syntaxes, const std::string& spelling, const Target& target)
{
    SectionSet sections;
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        if (std::any_of(syntaxes.begin(), syntaxes.end(), [&](const IKeywordSyntax* syntax) {
                return KeywordSyntaxUtils::IsValid(*syntax, spelling, section, target.simulator, target.mode);
            }))
            sections.Add(section);
    }
    return sections;
}

} // namespace Veld::Quor::Core::Decks
