#include "quor/deck/Deck.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/text/DateForm.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

Service::Time GetTimeOf(std::string_view date)
{
    const auto time = ToTime(date);
    if (!time)
        throw std::invalid_argument(fmt::format(
            "invalid date '{}'; expected a date such as 2024-04-01 or 2024-04-01 12:30:00", Printable(date)));
    return *time;
}

} // namespace

KeywordNotFound::KeywordNotFound(const std::string& message)
    : Service::Exception(message)
{
}

KeywordNotFound::~KeywordNotFound() = default;

const DeckContents& ContentsOf(const Deck& deck)
{
    if (!deck.contents_)
        throw std::logic_error("the deck was moved from");
    return *deck.contents_;
}

Deck::Deck(std::unique_ptr<DeckContents> contents)
    : contents_(std::move(contents))
{
}

Deck::~Deck() = default;
Deck::Deck(Deck&&) noexcept = default;
Deck& Deck::operator=(Deck&&) noexcept = default;

Deck Deck::Read(const std::string& path, const DeckLanguage& language, const ReadOptions& options)
{
    return ReadFrom(options.GetSource(), path, language, options);
}

Deck Deck::ReadText(
    std::string text, const DeckLanguage& language, const ReadOptions& options, const std::string& name)
{
    std::shared_ptr<const DeckSource> others = options.GetSource();
    if (!others)
        others = std::make_shared<FileSource>();
    const auto source = std::make_shared<MemorySource>(std::move(others));
    source->Set(name, std::move(text));
    return ReadFrom(source, name, language, options);
}

/// The deck keeps the options, but not what they call: it may refer to what is gone by then.
Deck Deck::ReadFrom(std::shared_ptr<const DeckSource> source, const std::string& path,
    const DeckLanguage& language, const ReadOptions& options)
{
    ReadSettings settings = options.GetSettings();
    settings.source = std::move(source);
    Deck deck(ReadDeck(path, settings, *language.index_));
    deck.contents_->options = options;
    deck.contents_->options.SetProgress({}).SetCancellation({}).SetKnownFinding({}).SetReportedFile({});
    return deck;
}

std::size_t Deck::GetSize() const
{
    return ContentsOf(*this).keywords.size();
}

DeckKeyword Deck::operator[](std::size_t index) const&
{
    const DeckContents& contents = ContentsOf(*this);
    if (index >= contents.keywords.size())
        throw std::out_of_range(fmt::format("keyword index {} is out of range (the deck has {})", index,
            Counted(contents.keywords.size(), "keyword")));
    return DeckKeyword(contents, index);
}

bool Deck::Has(std::string_view name) const
{
    const DeckContents& contents = ContentsOf(*this);
    return !contents.names.Find(contents, name).empty();
}

DeckKeyword Deck::Get(std::string_view name) const&
{
    const DeckContents& contents = ContentsOf(*this);
    const std::vector<std::uint32_t>& indices = contents.names.Find(contents, name);
    if (!indices.empty())
        return (*this)[indices.back()];
    throw KeywordNotFound(contents.names.ExplainMissing(contents, name));
}

std::vector<DeckKeyword> Deck::GetAll(std::string_view name) const&
{
    const DeckContents& contents = ContentsOf(*this);
    std::vector<DeckKeyword> keywords;
    for (const std::uint32_t index : contents.names.Find(contents, name))
        keywords.push_back((*this)[index]);
    return keywords;
}

std::vector<DeckKeyword> Deck::GetSection(Keywords::SectionType::Enum section) const&
{
    std::vector<DeckKeyword> keywords;
    for (std::size_t i = 0; i < GetSize(); ++i) {
        if (ContentsOf(*this).keywords[i].section == section)
            keywords.push_back((*this)[i]);
    }
    return keywords;
}

std::vector<DeckKeyword> Deck::GetAfterStep(std::size_t step) const&
{
    const DeckContents& contents = ContentsOf(*this);
    std::vector<DeckKeyword> keywords;
    if (step >= contents.steps.size())
        throw std::out_of_range(fmt::format("report step index {} is out of range (the deck has {})", step,
            Counted(contents.steps.size(), "step")));
    for (std::size_t i = contents.steps[step].keyword + 1; i < GetSize(); ++i) {
        if (contents.keywords[i].step != step)
            break;
        keywords.push_back((*this)[i]);
    }
    return keywords;
}

std::optional<std::size_t> Deck::FindStep(std::string_view date) const
{
    const Service::Time time = GetTimeOf(date);
    const std::vector<ReportStep>& steps = ContentsOf(*this).steps;
    const auto step = std::find_if(
        steps.begin(), steps.end(), [&time](const ReportStep& each) { return IsWrittenAs(each.time, time); });
    if (step == steps.end())
        return std::nullopt;
    return static_cast<std::size_t>(step - steps.begin());
}

std::vector<DeckKeyword> Deck::GetAtDate(std::string_view date) const&
{
    const Service::Time time = GetTimeOf(date);
    std::vector<DeckKeyword> keywords;
    for (const DeckKeyword keyword : *this) {
        if (keyword.GetSection() == Keywords::SectionType::SCHEDULE && IsWrittenAs(keyword.GetTime(), time))
            keywords.push_back(keyword);
    }
    return keywords;
}

Service::Time Deck::GetStart() const
{
    return ContentsOf(*this).start;
}

const std::vector<ReportStep>& Deck::GetSteps() const&
{
    return ContentsOf(*this).steps;
}

const Findings& Deck::GetFindings() const&
{
    return ContentsOf(*this).findings;
}

Findings Deck::GetFindings() const&&
{
    return ContentsOf(*this).findings;
}

const Target& Deck::GetTarget() const&
{
    return ContentsOf(*this).GetTarget();
}

const ReadOptions& Deck::GetOptions() const&
{
    return ContentsOf(*this).options;
}

const DeckFiles& Deck::GetFiles() const&
{
    return ContentsOf(*this).files;
}

std::size_t Deck::GetFileCount() const
{
    return ContentsOf(*this).distinctFiles;
}

std::size_t Deck::GetSectionCount() const
{
    return ContentsOf(*this).sections;
}

} // namespace Veld::Quor::Core::Decks
