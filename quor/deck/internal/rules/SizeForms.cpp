#include "quor/deck/internal/rules/SizeForms.h"

#include <fmt/format.h>

#include <cstddef>
#include <utility>

namespace Veld::Quor::Core::Decks {

void ReadSize(RuleElement& element, RuleSet& rules)
{
    SizeRule rule{element.Get("name"), element.GetKeywords("keyword").front(), element.FindItem("item"),
        element.FindWords("words"), element.GetWords("sizes")};
    if (rule.item.empty() != rule.words.empty())
        element.Fail("a size is chosen by 'item' and 'words', or by neither");
    const std::size_t expected = rule.item.empty() ? 2 : rule.words.size();
    if (rule.sizes.size() != expected)
        element.Fail(fmt::format("attribute 'sizes' has the wrong number of words (expected {}, found {})",
                         expected, rule.sizes.size()),
            "sizes");
    rules.sizes.push_back(std::move(rule));
}

} // namespace Veld::Quor::Core::Decks
