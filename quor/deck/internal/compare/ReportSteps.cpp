#include "quor/deck/internal/compare/ReportSteps.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/KeywordDataFactory.h"

#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Time;

std::vector<Time> ReportSteps::Follow(const DeckKeyword& keyword)
{
    std::vector<Time> times;
    if (!TimeLine::Advances(keyword)) {
        timeLine_.Follow(keyword);
        return times;
    }
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    const auto size = static_cast<std::size_t>(list.GetSize());
    DeckKeyword one{keyword.syntax, keyword.section, keyword.name, keyword.whole,
        KeywordDataFactory::Instance().Construct(*keyword.syntax)};
    auto& element = static_cast<IKeywordListData&>(*one.data);
    for (std::size_t i = 0; i < size; ++i) {
        element.Clear();
        element.AddData(list.GetData(i));
        if (i < keyword.records.size())
            one.records.assign(1, keyword.records[i]);
        const std::size_t errors = reporter_.GetErrorCount();
        timeLine_.Follow(one);
        if (errors == reporter_.GetErrorCount())
            times.push_back(timeLine_.GetNow());
    }
    return times;
}

std::string DateText(const Time& time)
{
    std::string text = time.GetAsString();
    for (const std::string_view nothing : {".000", " 00:00:00"}) {
        if (text.ends_with(nothing))
            text.resize(text.size() - nothing.size());
    }
    return text;
}

} // namespace Veld::Quor::Core::Decks
