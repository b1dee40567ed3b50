#include "quor/deck/Deck.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/read/DeckContents.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>

namespace Veld::Quor::Core::Decks {

KeywordNotFound::KeywordNotFound(const std::string& message)
    : Service::Exception(message)
{
}

KeywordNotFound::~KeywordNotFound() = default;

const DeckContents& ContentsOf(const Deck& deck)
{
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
    try {
        Deck deck(ReadDeck(path, *options.settings_, *language.index_));
        deck.contents_->options = options;
        return deck;
    } catch (const SourceError& error) {
        throw SourceError(fmt::format("can't read '{}': {}", path, error.what()));
    }
}

Deck Deck::ReadText(
    std::string text, const DeckLanguage& language, const ReadOptions& options, const std::string& name)
{
    std::shared_ptr<const DeckSource> others = options.GetSource();
    if (!others)
        others = std::make_shared<FileSource>();
    const auto source = std::make_shared<MemorySource>(std::move(others));
    source->Set(name, std::move(text));
    return Read(name, language, ReadOptions(options).SetSource(source));
}

std::size_t Deck::GetSize() const
{
    return contents_->keywords.size();
}

bool Deck::Has(std::string_view name) const
{
    return !contents_->names.Find(*contents_, name).empty();
}

DeckKeyword Deck::Get(std::string_view name) const
{
    const std::vector<std::uint32_t>& indices = contents_->names.Find(*contents_, name);
    if (!indices.empty())
        return (*this)[indices.back()];
    const auto nearest = contents_->names.FindNearest(*contents_, name);
    throw KeywordNotFound(nearest.empty()
            ? fmt::format("the deck has no keyword '{}'", name)
            : fmt::format("the deck has no keyword '{}'; similar names: {}", name, fmt::join(nearest, ", ")));
}

std::vector<DeckKeyword> Deck::GetAll(std::string_view name) const
{
    std::vector<DeckKeyword> keywords;
    for (const std::uint32_t index : contents_->names.Find(*contents_, name))
        keywords.push_back((*this)[index]);
    return keywords;
}

std::vector<DeckKeyword> Deck::GetSection(Keywords::SectionType::Enum section) const
{
    std::vector<DeckKeyword> keywords;
    for (std::size_t i = 0; i < GetSize(); ++i) {
        if (contents_->keywords[i].section == section)
            keywords.push_back((*this)[i]);
    }
    return keywords;
}

std::vector<DeckKeyword> Deck::GetAfterStep(std::size_t step) const
{
    std::vector<DeckKeyword> keywords;
    if (step >= contents_->steps.size())
        throw std::out_of_range(fmt::format(
            "report step index {} is out of range (the deck has {} steps)", step, contents_->steps.size()));
    for (std::size_t i = contents_->steps[step].keyword + 1; i < GetSize(); ++i) {
        if (contents_->keywords[i].step != step)
            break;
        keywords.push_back((*this)[i]);
    }
    return keywords;
}

Service::Time Deck::GetStart() const
{
    return contents_->start;
}

const std::vector<ReportStep>& Deck::GetSteps() const
{
    return contents_->steps;
}

const Findings& Deck::GetFindings() const
{
    return contents_->findings;
}

const Target& Deck::GetTarget() const
{
    return contents_->GetTarget();
}

const ReadOptions& Deck::GetOptions() const
{
    return contents_->options;
}

const DeckFiles& Deck::GetFiles() const
{
    return contents_->files;
}

std::size_t Deck::GetFileCount() const
{
    return contents_->distinctFiles;
}

std::size_t Deck::GetSectionCount() const
{
    return contents_->sections;
}

} // namespace Veld::Quor::Core::Decks
