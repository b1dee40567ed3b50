#include "tools/quor/FindingCodes.h"

#include "quor/deck/FindingCodes.h"
#include "quor/lint/Codes.h"

#include <set>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace Lint = Core::Lint;
std::vector<FindingCode> AllFindingCodes()
{
    std::vector<FindingCode> codes;
    const std::vector<FindingRule> rules = RulesOf(Decks::Codes());
    for (std::size_t i = 0; i < rules.size(); ++i)
        codes.push_back({"check", rules[i], &RemedyOf(Decks::Codes()[i].code)});
    for (const FindingRule& rule : RulesOf(Lint::Codes()))
        codes.push_back({"lint", rule, nullptr});
    return codes;
}

std::vector<std::string> FindingCodeNames()
{
    std::set<std::string> names;
    for (const FindingCode& code : AllFindingCodes())
        names.insert(code.rule.code);
    return {names.begin(), names.end()};
}

} // namespace Veld::Quor::Tools
