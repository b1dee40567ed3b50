#include "quor/variables/KeywordDataMDProcessor.h"

#include "quor/data/IKeywordData.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"
#include "quor/variables/VariablesString.h"

#include <functional>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using Item = KeywordDataMDProcessor::Item;

Item::Item(const std::string& variableName, const IKeywordDataMD* md)
    : variableName_(variableName)
    , md_(md)
{
}

Item::Item(const Item&) = default;
Item::Item(Item&&) noexcept = default;
Item& Item::operator=(const Item&) = default;
Item& Item::operator=(Item&&) noexcept = default;
Item::~Item() = default;

bool Item::operator<(const Item& other) const
{
    const int order = variableName_.compare(other.variableName_);
    return order != 0 ? order < 0 : std::less<>()(md_, other.md_);
}

KeywordDataMDProcessor::KeywordDataMDProcessor() = default;
KeywordDataMDProcessor::KeywordDataMDProcessor(const KeywordDataMDProcessor&) = default;
KeywordDataMDProcessor::KeywordDataMDProcessor(KeywordDataMDProcessor&&) noexcept = default;
KeywordDataMDProcessor& KeywordDataMDProcessor::operator=(const KeywordDataMDProcessor&) = default;
KeywordDataMDProcessor& KeywordDataMDProcessor::operator=(KeywordDataMDProcessor&&) noexcept = default;
KeywordDataMDProcessor::~KeywordDataMDProcessor() = default;

void KeywordDataMDProcessor::Process(const IKeywordData& data, const IKeywordDataVariables& variables)
{
    const IKeywordDataMD* const md = data.GetMD();
    switch (KeywordUtils::GetMDType(md)) {
    case MDType::List: {
        const auto& list = CastMD<const IKeywordListDataVariables>(variables);
        for (const int index : list.GetIndices())
            Insert(list.GetVariablesString(index), CastMD<const IKeywordListMD>(*md).GetItemMD());
        break;
    }
    case MDType::Record: {
        const auto& record = CastMD<const IKeywordRecordDataVariables>(variables);
        for (const int index : record.GetIndices())
            Insert(record.GetVariablesString(index), CastMD<const IKeywordRecordMD>(*md).GetItemMD(index));
        break;
    }
    case MDType::Map: {
        const auto& map = CastMD<const IKeywordMapDataVariables>(variables);
        const auto& mapMD = CastMD<const IKeywordMapMD>(*md);
        std::map<std::string, int> keyToIndex;
        BuildKeyToIndex(mapMD, keyToIndex);
        for (const std::string& key : map.GetKeys()) {
            const auto at = keyToIndex.find(key);
            if (at != keyToIndex.end())
                Insert(map.GetVariablesString(key), mapMD.GetItemMD(at->second));
        }
        break;
    }
    default:
        break;
    }
}

void KeywordDataMDProcessor::Insert(const VariablesString& text, const IKeywordDataMD* md)
{
    for (const std::string& variable : text.GetVariables())
        data_.emplace(variable, md);
}

/// By the keys of the named assignments; of two with one key the first keeps it.
void KeywordDataMDProcessor::BuildKeyToIndex(const IKeywordMapMD& md, std::map<std::string, int>& keyToIndex)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        for (const std::string& key : md.GetItemMD(i)->GetKeys())
            keyToIndex.emplace(key, i);
    }
}

} // namespace Veld::Quor::Core::Keywords
