#include "quor/data/KeywordIdentity.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/data/internal/ScalarOps.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <string_view>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using String = Service::Optional<std::string>;

namespace {

const IKeywordRecordData* RecordWithItems(const void* node)
{
    const auto* const data = static_cast<const IKeywordData*>(node);
    const auto* const record = data ? &CastMD<const IKeywordRecordData>(*data) : nullptr;
    return record && record->GetSize() > 0 ? record : nullptr;
}

/// What an identity looks at below a node: a record that has items, or the first one of a list, through lists
/// of lists. Null if there is none.
const IKeywordRecordData* FirstRecord(const IKeywordData* node)
{
    while (node) {
        const MDType::Enum type = node->GetMD()->GetType();
        if (type == MDType::Record)
            return RecordWithItems(node);
        if (type != MDType::List)
            return nullptr;
        const auto& list = CastMD<const IKeywordListData>(*node);
        if (list.GetSize() == 0)
            return nullptr;
        const MDType::Enum itemType =
            KeywordUtils::GetMDType(CastMD<const IKeywordListMD>(*node->GetMD()).GetItemMD());
        if (itemType == MDType::Record)
            return RecordWithItems(list.GetData(0));
        if (itemType != MDType::List)
            return nullptr;
        node = static_cast<const IKeywordData*>(list.GetData(0));
    }
    return nullptr;
}

const IKeywordRecordMD& MDOf(const IKeywordRecordData& record)
{
    return CastMD<const IKeywordRecordMD>(*record.GetMD());
}

bool MayHoldIdentifiers(MDType::Enum type)
{
    return type == MDType::List || type == MDType::Record;
}

std::string_view WithoutQuotes(const std::string& text)
{
    const std::string_view view = text;
    const bool quoted = view.size() >= 2 && view.front() == '\'' && view.back() == '\'';
    return quoted ? view.substr(1, view.size() - 2) : view;
}

bool EqualStrings(const void* a, const void* b)
{
    if (!a || !b)
        return a == b;
    const auto& stringA = *static_cast<const String*>(a);
    const auto& stringB = *static_cast<const String*>(b);
    if (!stringA || !stringB)
        return stringA.HasValue() == stringB.HasValue();
    return WithoutQuotes(*stringA) == WithoutQuotes(*stringB);
}

/// Wanted: strings alone are compared without their quotes, lines are not.
bool EqualIdentifiers(const IKeywordDataMD& md, const void* a, const void* b)
{
    return md.GetType() == MDType::String ? EqualStrings(a, b) : KeywordRecordItemEqual(md, a, b);
}

} // namespace

KeywordIdentity::KeywordIdentity(const IKeywordData* data)
    : data_(data)
{
    if (!data_)
        return;
    const int count = data_->GetSyntax()->GetIdentifierCount();
    identifiers_.reserve(static_cast<std::size_t>(count));
    GetIdentifierValuesRecursive(data_, count);
}

KeywordIdentity::~KeywordIdentity() = default;

void KeywordIdentity::GetIdentifierValuesRecursive(const IKeywordData* data, int count)
{
    const IKeywordRecordData* const record = FirstRecord(data);
    if (!record)
        return;
    const IKeywordRecordMD& md = MDOf(*record);
    for (int i = 0; i < record->GetSize(); ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        const MDType::Enum type = KeywordUtils::GetMDType(item);
        if (FindScalarOps(type)) {
            if (md.IsIdentifier(i))
                identifiers_.emplace_back(item, record->GetData(i));
        } else if (MayHoldIdentifiers(type)) {
            GetIdentifierValuesRecursive(static_cast<const IKeywordData*>(record->GetData(i)), count);
        }
        if (static_cast<int>(identifiers_.size()) >= count)
            break;
    }
}

bool KeywordIdentity::Compare(const IKeywordData* other) const
{
    if (!data_ || !other)
        return data_ == other;
    if (data_->GetMD() != other->GetMD())
        return false;
    if (identifiers_.empty())
        return true;
    std::size_t index = 0;
    return CompareIdentifierValuesRecursive(other, index);
}

/// Walks as the collecting walk does. An item is an identifier if it is the next one expected.
bool KeywordIdentity::CompareIdentifierValuesRecursive(const IKeywordData* data, std::size_t& index) const
{
    const IKeywordRecordData* const record = FirstRecord(data);
    if (!record)
        return false;
    const IKeywordRecordMD& md = MDOf(*record);
    bool result = true;
    for (int i = 0; i < record->GetSize() && result && index < identifiers_.size(); ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        const MDType::Enum type = KeywordUtils::GetMDType(item);
        if (FindScalarOps(type)) {
            if (item == identifiers_[index].first) {
                result = EqualIdentifiers(*item, record->GetData(i), identifiers_[index].second);
                ++index;
            }
        } else if (MayHoldIdentifiers(type)) {
            result =
                CompareIdentifierValuesRecursive(static_cast<const IKeywordData*>(record->GetData(i)), index);
        }
    }
    return result;
}

std::string KeywordIdentity::GetString() const
{
    if (!data_)
        return {};
    std::string text = data_->GetMD()->GetName();
    for (const Identifier& identifier : identifiers_) {
        if (!identifier.first || !identifier.second)
            continue;
        if (identifier.first->GetType() == MDType::String) {
            // Wanted: a string alone follows what is before it directly, and loses its quotes.
            const auto& value = *static_cast<const String*>(identifier.second);
            if (value)
                text += WithoutQuotes(*value);
        } else if (const ScalarOps* const ops = FindScalarOps(identifier.first->GetType())) {
            ops->print(identifier.second, " ", text);
        }
    }
    return text;
}

} // namespace Veld::Quor::Core::Keywords
