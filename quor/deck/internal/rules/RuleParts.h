#pragma once

#include "quor/deck/internal/rules/RuleElement.h"
#include "quor/deck/internal/rules/RuleSet.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

// Attributes that several kinds of rules have.

FindingVoice ReadVoice(RuleElement& element, RuleSet& rules);
std::vector<Keywords::SectionType::Enum> ReadSections(RuleElement& element);
/// "ITEM" or "ITEM=WORD"; empty if there is none. `keywords`: whose item it is; empty: any.
RecordCondition ReadCondition(RuleElement& element, const std::string& text, const char* attribute,
    const std::vector<std::string>& keywords);
ItemSelection ReadSelection(RuleElement& element);
/// Fails for a kind that no <names> has.
std::string ReadKind(RuleElement& element, const char* attribute, const RuleSet& rules);
SizeLimit ReadLimit(RuleElement& element);

} // namespace Veld::Quor::Core::Decks
