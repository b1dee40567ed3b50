#include "quor/syntax/KeywordSyntaxTableQueries.h"

#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MeasurementPool.h"
#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

namespace {

/// The keywords that are cell properties and whose list passes the test.
template <class Test>
KeywordSyntaxTableQueries::Keywords Select(Test test)
{
    KeywordSyntaxTableQueries::Keywords selected;
    KeywordSyntaxEnumerator keywords = KeywordSyntaxTable::Instance(false, true).KeywordsEnumerator();
    while (keywords.Next()) {
        const IKeywordSyntax* const syntax = keywords.Current()->second;
        if (!syntax->GetCellPropertyInfo() || KeywordUtils::GetMDType(syntax->GetDataMD()) != MDType::List)
            continue;
        if (test(static_cast<const IKeywordListMD&>(*syntax->GetDataMD())))
            selected.insert(syntax);
    }
    return selected;
}

} // namespace

KeywordSyntaxTableQueries::Keywords KeywordSyntaxTableQueries::GetCellProperties()
{
    return GetCellProperties(PropertyValueType::Any);
}

KeywordSyntaxTableQueries::Keywords KeywordSyntaxTableQueries::GetIntCellProperties()
{
    return GetCellProperties(PropertyValueType::Integer);
}

KeywordSyntaxTableQueries::Keywords KeywordSyntaxTableQueries::GetRealCellProperties()
{
    return GetCellProperties(PropertyValueType::Real);
}

KeywordSyntaxTableQueries::Keywords KeywordSyntaxTableQueries::GetRealCellPropertiesByMeasurement(
    const std::string& measurement)
{
    KeywordSyntaxTable::Instance(false, true); // fills the pool
    const std::string* const pooled = MeasurementPool::Find(measurement);
    if (!pooled)
        return {};
    return Select([pooled](const IKeywordListMD& list) {
        return MatchType(&list, PropertyValueType::Real)
            && static_cast<const IKeywordRealMD&>(*list.GetItemMD()).GetMeasurement() == pooled;
    });
}

KeywordSyntaxTableQueries::Keywords KeywordSyntaxTableQueries::GetCellProperties(
    PropertyValueType::Enum valueType)
{
    return Select([valueType](const IKeywordListMD& list) { return MatchType(&list, valueType); });
}

bool KeywordSyntaxTableQueries::MatchType(const IKeywordListMD* list, PropertyValueType::Enum valueType)
{
    switch (valueType) {
    case PropertyValueType::Integer:
        return KeywordUtils::GetMDType(list->GetItemMD()) == MDType::Integer;
    case PropertyValueType::Real:
        return KeywordUtils::GetMDType(list->GetItemMD()) == MDType::Real;
    case PropertyValueType::Any:
        return true;
    }
    throw KeywordException("KeywordSyntaxTableQueries::MatchType: unhandled value type");
}

} // namespace Veld::Quor::Core::Keywords
