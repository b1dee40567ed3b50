#include "quor/deck/internal/read/data/DataValue.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>

#include <type_traits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;
using MDType = IKeywordDataMD::MDType;

namespace {

/// `visit` gets the metadata by their own type, and a value of the type that data are stored as.
template <class Result, class Visit>
Result VisitScalar(const IKeywordDataMD& md, Visit visit)
{
    switch (md.GetType()) {
    case MDType::Assignment:
        return visit(static_cast<const IKeywordAssignmentMD&>(md), int());
    case MDType::Boolean:
        return visit(static_cast<const IKeywordBooleanMD&>(md), bool());
    case MDType::Choice:
        return visit(static_cast<const IKeywordChoiceMD&>(md), int());
    case MDType::Integer:
        return visit(static_cast<const IKeywordIntegerMD&>(md), int());
    case MDType::Line:
        return visit(static_cast<const IKeywordLineMD&>(md), std::string());
    case MDType::Real:
        return visit(static_cast<const IKeywordRealMD&>(md), double());
    case MDType::String:
        return visit(static_cast<const IKeywordStringMD&>(md), std::string());
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return {};
}

template <class T>
ScalarValue ToValue(const Optional<T>& value)
{
    return value ? ScalarValue(*value) : ScalarValue();
}

} // namespace

ScalarValue ItemValue(const IKeywordDataMD& md, const void* item)
{
    return VisitScalar<ScalarValue>(md, [item](const auto&, auto like) {
        return ToValue(*static_cast<const Optional<decltype(like)>*>(item));
    });
}

ScalarValue ElementValue(const IKeywordDataMD& md, const void* element)
{
    return VisitScalar<ScalarValue>(md, [element](const auto&, auto like) -> ScalarValue {
        if constexpr (std::is_same_v<decltype(like), bool>)
            return *static_cast<const char*>(element) != 0;
        else
            return *static_cast<const decltype(like)*>(element);
    });
}

DefaultValue DefaultOf(const IKeywordDataMD& md, SimulatorType::Enum simulator)
{
    return VisitScalar<DefaultValue>(md, [simulator](const auto& scalar, auto) -> DefaultValue {
        if (!scalar.IsDefaultSpecified(simulator))
            return {};
        return {true, ToValue(scalar.GetDefault(simulator))};
    });
}

bool MeanSame(const IKeywordDataMD& md, const ScalarValue& a, const ScalarValue& b)
{
    if (md.GetType() != MDType::String || static_cast<const IKeywordStringMD&>(md).IsCaseSensitive()
        || !IsGiven(a) || !IsGiven(b))
        return a == b;
    return ToUpper(std::get<std::string>(a)) == ToUpper(std::get<std::string>(b));
}

std::string ToText(const IKeywordDataMD& md, const ScalarValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "YES" : "NO";
    if (const auto* real = std::get_if<double>(&value))
        return fmt::format("{}", *real);
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    const auto* const integer = std::get_if<int>(&value);
    if (!integer)
        return {};
    if (md.GetType() != MDType::Choice)
        return fmt::format("{}", *integer);
    const auto& choice = static_cast<const IKeywordChoiceMD&>(md);
    return *integer >= 0 && *integer < choice.NumChoices() ? choice.GetChoice(*integer) : "unknown value";
}

std::string ToText(const IKeywordDataMD& md, const DefaultValue& value)
{
    if (!value.isThere)
        return "none";
    return IsGiven(value.value) ? ToText(md, value.value) : "calculated";
}

std::string ItemName(const IKeywordDataMD& md)
{
    if (md.GetType() == MDType::Assignment) {
        const auto& keys = static_cast<const IKeywordAssignmentMD&>(md).GetKeys();
        return keys.empty() ? std::string() : keys.front();
    }
    if (md.GetName().empty() && md.GetItemNumber() > 0)
        return fmt::format("item {}", md.GetItemNumber());
    return md.GetName();
}

std::string RecordText(const IKeywordRecordData& record)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    std::string text;
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD& item = *md.GetItemMD(i);
        if (!KeywordUtils::IsItemMDType(item.GetType()))
            break;
        const ScalarValue value = ItemValue(item, record.GetData(i));
        text.append(i == 0 ? "" : " ").append(IsGiven(value) ? ToText(item, value) : "*");
    }
    while (text.ends_with(" *"))
        text.resize(text.size() - 2);
    return text;
}

} // namespace Veld::Quor::Core::Decks
