#include "quor/deck/internal/rules/ArrayChecks.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Whether each cell has a value of its own.
bool IsFull(const IKeywordData* data)
{
    if (KeywordUtils::GetMDType(data->GetMD()) != IKeywordDataMD::MDType::List)
        return false;
    const auto& list = static_cast<const IKeywordListData&>(*data);
    const auto size = static_cast<std::size_t>(list.GetSize());
    for (std::size_t i = 0; i < size; ++i) {
        if (list.IsDefaulted(i))
            return false;
    }
    return size > 0;
}

} // namespace

void ArrayChecks::Follow(const OverwriteRule& rule)
{
    const KeywordInstance& keyword = context_.GetKeyword();
    const auto index = static_cast<std::uint32_t>(context_.deck.keywords.size() - 1);
    auto& places = arrays_[context_.deck.NameOf(keyword)];
    const auto [first, isNew] = places.try_emplace({keyword.section, keyword.scope}, index);
    if (!isNew && keyword.data && IsFull(keyword.data.get()))
        context_.reporter.ReportAs(rule.voice, keyword.name, Code::RepeatedArray,
            fmt::format("{} is given again for the same cells", context_.deck.NameOf(keyword)),
            "remove the one that does not apply", {},
            Related(context_.deck.keywords[first->second], "its values from here have no effect"));
    first->second = index;
}

void ArrayChecks::Forget(std::string_view array)
{
    if (const auto at = arrays_.find(context_.deck.language.FindName(array)); at != arrays_.end())
        arrays_.erase(at);
}

} // namespace Veld::Quor::Core::Decks
