#include "quor/deck/DeckKeyword.h"

#include "quor/deck/Deck.h"
#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

using Keywords::SectionType;

void CheckIsOf(const Deck& deck, const DeckKeyword& keyword)
{
    if (keyword.contents_ != &ContentsOf(deck))
        throw std::invalid_argument( // without its name: that deck may be gone
            "the keyword belongs to another deck");
}

const KeywordInstance& DeckKeyword::Get() const
{
    return contents_->keywords[index_];
}

std::string DeckKeyword::GetName() const
{
    return contents_->NameOf(Get());
}

bool DeckKeyword::IsNamed(std::string_view name) const
{
    return ToUpper(GetName()) == ToUpper(name);
}

const Keywords::IKeywordSyntax& DeckKeyword::GetSyntax() const
{
    return *Get().syntax;
}

SectionType::Enum DeckKeyword::GetSection() const
{
    return Get().section;
}

const Keywords::IKeywordData* DeckKeyword::FindData() const
{
    return Get().data.get();
}

const Keywords::IKeywordData& DeckKeyword::GetData() const
{
    if (!FindData())
        throw KeywordNotFound(fmt::format("{} has no data", GetName()));
    return *FindData();
}

bool DeckKeyword::IsSound() const
{
    return Get().isSound;
}

const ReportStep* DeckKeyword::FindStep() const
{
    return Get().step == noIndex ? nullptr : &contents_->steps[Get().step];
}

Service::Time DeckKeyword::GetTime() const
{
    if (const ReportStep* const step = FindStep())
        return step->time;
    return GetSection() == SectionType::SCHEDULE ? contents_->start : Service::Time();
}

Location DeckKeyword::GetLocation() const
{
    return contents_->files.LocationOf(Get().name);
}

Location DeckKeyword::GetLocation(std::size_t element) const
{
    return contents_->files.LocationOf(RangeOf(Get(), element));
}

TextRange DeckKeyword::GetNameRange() const
{
    return Get().name;
}

TextRange DeckKeyword::GetRange() const
{
    return Get().whole;
}

std::string_view DeckKeyword::GetText() const
{
    return contents_->files.GetText(Get().whole);
}

} // namespace Veld::Quor::Core::Decks
