#include "tools/quor/tree/MetadataFacts.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/terminal/TextLayout.h"

#include <set>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

void CollectMeasurements(const IKeywordDataMD& md, std::set<std::string>& measurements)
{
    VisitMD(md,
        Overloaded{[&](const IKeywordRealMD& real) {
                       if (const std::string* measurement = real.GetMeasurement())
                           measurements.insert(*measurement);
                   },
            [&](const IKeywordRecordMD& record) {
                for (int i = 0; i < record.GetSize(); ++i)
                    CollectMeasurements(*record.GetItemMD(i), measurements);
            },
            [&](const IKeywordListMD& list) {
                if (const IKeywordDataMD* item = list.GetItemMD())
                    CollectMeasurements(*item, measurements);
            },
            [](const auto&) {}});
}

} // namespace

std::string TypeWord(MDType::Enum type)
{
    return type == MDType::None ? "none" : ToLower(MDType::ToString(type));
}

MDType::Enum ValueTypeOf(const IKeywordSyntax& syntax)
{
    const IKeywordDataMD* const data = syntax.GetDataMD();
    const MDType::Enum type = KeywordUtils::GetMDType(data);
    return type == MDType::List
        ? KeywordUtils::GetMDType(static_cast<const IKeywordListMD*>(data)->GetItemMD())
        : type;
}

std::vector<std::string> MeasurementsOf(const IKeywordSyntax& syntax)
{
    std::set<std::string> measurements;
    if (const IKeywordDataMD* md = syntax.GetDataMD())
        CollectMeasurements(*md, measurements);
    return {measurements.begin(), measurements.end()};
}

std::vector<std::pair<std::string, bool>> AliasesOf(const IKeywordChoiceMD& md, int choice)
{
    // The interface has no aliases.
    const auto* const own = dynamic_cast<const KeywordChoiceMDImpl*>(&md);
    if (!own)
        return {};
    return own->GetChoices()[static_cast<std::size_t>(choice)].aliases.GetAliasList();
}

std::vector<std::string> FindEndWords(const ICustomReadTermination& termination, const IKeywordSyntax& syntax)
{
    constexpr std::size_t longestName = 8;
    const std::string end = "END" + syntax.GetName();
    std::vector<std::string> likely = {"/", "//", "END", end};
    if (end.size() > longestName)
        likely.push_back(end.substr(0, longestName));
    for (const IKeywordSyntax* scopeEnd : syntax.GetScopeKeywords())
        likely.push_back(scopeEnd->GetName());
    std::vector<std::string> words;
    std::set<std::string> tried;
    for (const std::string& word : likely) {
        bool flag = false; // of no interest here
        if (tried.insert(word).second && termination.Matches(word, flag))
            words.push_back(word);
    }
    return words;
}

} // namespace Veld::Quor::Tools
