#pragma once

#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/ISummaryMnemonicInfo.h"

#include <algorithm>
#include <vector>

namespace Veld::Quor::Core::Decks {

template <class T>
bool Contains(const std::vector<T>& values, const T& value)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// Whether the selection has the keyword, in the section.
inline bool IsAbout(
    const ItemSelection& where, const Keywords::IKeywordSyntax& syntax, Keywords::SectionType::Enum section)
{
    if (!where.keywords.empty() && !Contains(where.keywords, syntax.GetName()))
        return false;
    if (Contains(where.except, syntax.GetName()))
        return false;
    if (!where.sections.empty() && !Contains(where.sections, section))
        return false;
    if (!where.entity)
        return true;
    const Keywords::ISummaryMnemonicInfo* const summary = syntax.GetSummaryMnemonicInfo();
    const auto entity = summary ? summary->GetEntity() : Service::Optional<Keywords::SummaryEntity::Enum>();
    return entity && *entity == *where.entity;
}

} // namespace Veld::Quor::Core::Decks
