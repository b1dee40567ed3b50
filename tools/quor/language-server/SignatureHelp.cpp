#include "tools/quor/language-server/Descriptions.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/TextContext.h"

#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

/// Which item of the record the cursor is in.
Json SignatureHelp(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const TextContext context = FindContext(session, view, view.OffsetOf(PositionIn(params.at("position"))));
    const IKeywordRecordMD* const record = context.cursor.record;
    if (context.isComment || context.cursor.isOutside || !record)
        return {};
    std::string label = context.spelling;
    Json items = Json::array();
    for (int i = 0; i < record->GetSize(); ++i) {
        label += ' ';
        const std::size_t begin = CountUnits(label);
        label += record->GetItemMD(i)->GetName();
        items.push_back({{"label", {begin, CountUnits(label)}}});
    }
    const int item = context.cursor.item;
    if (item < record->GetSize()) {
        const UnitSystem::Enum units = view.places ? view.GetState().GetUnits() : UnitSystem::METRIC;
        const IKeywordDataMD& md = context.cursor.md ? *context.cursor.md : *record->GetItemMD(item);
        items[static_cast<std::size_t>(item)]["documentation"] = {
            {"kind", "markdown"}, {"value", DescriptionOf(*context.syntax, *record, item, md, units)}};
    } else {
        label += " /";
        items.push_back({{"label", {CountUnits(label) - 1, CountUnits(label)}},
            {"documentation", "all items are given: a slash ends the record"}});
    }
    const Json signature = {{"label", label}, {"parameters", std::move(items)}, {"activeParameter", item}};
    return {{"signatures", Json::array({signature})}, {"activeSignature", 0}, {"activeParameter", item}};
}

} // namespace Veld::Quor::Tools::LanguageServer
