#include "quor/deck/internal/read/contents/DeckContents.h"

#include "quor/deck/internal/text/LineText.h"

#include <atomic>

namespace Veld::Quor::Core::Decks {

TextRange RangeOf(const KeywordInstance& keyword, std::size_t element)
{
    if (element >= keyword.records.size())
        return keyword.name;
    const RecordStart& start = keyword.records[element];
    return {static_cast<std::uint32_t>(start.file), start.offset, 1};
}

std::uint64_t DeckContents::MakeId()
{
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

std::string DeckContents::NameOf(const KeywordInstance& keyword) const
{
    return keyword.syntax->IsWildcard() ? ToUpper(files.GetText(keyword.name)) : keyword.syntax->GetName();
}

std::string DeckContents::DateOf(const KeywordInstance& keyword) const
{
    if (keyword.step != noIndex)
        return DateText(steps[keyword.step].time);
    return keyword.section == Keywords::SectionType::SCHEDULE ? DateText(start) : std::string();
}

} // namespace Veld::Quor::Core::Decks
