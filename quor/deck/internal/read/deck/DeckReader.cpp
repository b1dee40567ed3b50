#include "quor/deck/internal/read/deck/DeckReader.h"

#include "quor/data/DataAccessUtils.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/deck/UnknownKeyword.h"
#include "quor/foundation/UnitSystem.h"
#include "quor/syntax/ICellPropertyInfo.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

ReadSettings WithSource(ReadSettings options)
{
    if (!options.source)
        options.source = std::make_shared<FileSource>();
    return options;
}

} // namespace

DeckReader::DeckReader(const std::string& path, const ReadSettings& options, const LanguageIndex& language)
    : options_(WithSource(options))
    , vocabulary_(language, options.target)
    , deck_(std::make_unique<DeckContents>(language, options.maxFindings))
    , reporter_(deck_->files, deck_->findings, options.isKnown, options.isStrict, options.codes,
          language.GetOwnCodes())
    , text_(path, *options_.source, options.target, vocabulary_, deck_->files, reporter_)
    , plans_(options.target)
    , dimensions_(language, options.target.simulator)
    , data_(
          options.target, text_, reporter_,
          [this](const std::string& name) { return dimensions_.Find(name); }, options.variables,
          options.keepsValueRanges, options.maxRepeatedValues)
    , sections_(options.target, deck_->files, reporter_)
    , scopes_(language, *deck_, dimensions_, reporter_)
    , precedents_(reporter_)
    , timeLine_(*deck_, reporter_, options.target.simulator)
    , rules_({language.GetRules(), *deck_, dimensions_, reporter_})
    , physics_(language.GetRules(), *deck_, dimensions_, reporter_, options.target.simulator)
{
    data_.SetReportedSizes(dimensions_.GetReported());
    text_.GetAliases() = options.aliases;
    text_.SetProgress(options.progress);
    text_.SetCancellation(options.isCancelled);
    text_.SetConfined(options.isConfined);
    reporter_.SetOutsideTextShown(options.isOutsideTextShown);
    reporter_.SetReportedFile(options.isReported);
    if (options.section != SectionType::None)
        StartIn(options.section);
}

/// What is before the text isn't known.
void DeckReader::StartIn(SectionType::Enum section)
{
    isPart_ = mayMissKeywords_ = true;
    text_.SetIncluded();
    sections_.StartIn(section);
    dimensions_.ForgetDefaults();
    dimensions_.LoseBox();
    rules_.Lose();
    physics_.Lose();
}

std::unique_ptr<DeckContents> DeckReader::Read()
{
    for (;;) {
        const Token head = text_.NextHead();
        if (text_.MissedInclusion()) {
            sections_.Lose();
            rules_.Lose();
        }
        text_.ForgetMissedInclusion();
        if (head.kind == Token::Kind::End)
            break;
        const std::size_t errors = reporter_.GetErrorCount();
        ReadHead(head);
        const SectionType::Enum section = sections_.GetCurrent();
        const bool mayHoldSizes = section == SectionType::None || section == SectionType::RUNSPEC;
        if (mayHoldSizes && errors != reporter_.GetErrorCount())
            dimensions_.ForgetDefaults();
    }
    EndSection();
    if (!isPart_ && deck_->keywords.empty() && deck_->files.GetSize() == 1 && reporter_.GetErrorCount() == 0)
        reporter_.Report(
            {}, Code::NoSection, "the deck has no keywords", "start the deck with section RUNSPEC");
    rules_.EndDeck(sections_.IsSure() && !mayMissKeywords_);
    text_.Finish();
    deck_->distinctFiles = text_.GetFileCount();
    deck_->sections = std::max<std::size_t>(sections_.GetCount(), isPart_ ? 1 : 0);
    return std::move(deck_);
}

/// `isGuess`: the deck has another word, which was reported; nothing is to be reported of it, nor made of it.
void DeckReader::ReadKeyword(const Token& head, const Entry& entry, bool isGuess)
{
    const bool isSection = entry.role == KeywordDeckRole::Section;
    if (isSection)
        EnterSection(head, entry);
    const bool isReported = !isSection && !sections_.Accept(head.range, entry);
    const SectionType::Enum section = sections_.GetCurrent();
    KeywordInstance keyword{&vocabulary_.Get(entry, section), section, head.range, head.range};
    keyword.step = timeLine_.StepIn(section);
    keyword.scope = scopes_.GetInnermost();
    const auto countErrors = [this] { return reporter_.GetErrorCount() - data_.GetReportedVariableCount(); };
    const std::size_t errors = countErrors();
    if (keyword.syntax->GetDataMD() && !IsAlone(*keyword.syntax)) {
        ReadData(keyword, head, isReported);
    } else {
        if (keyword.syntax->GetDataMD())
            keyword.data = KeywordDataFactory::Instance().Construct(*keyword.syntax);
        CheckNoData(head);
    }
    keyword.isSound = !isReported && !isGuess && errors == countErrors();
    deck_->keywords.push_back(std::move(keyword));
    FollowLast(isReported, isGuess);
}

/// Whether a keyword that needs no data has none: it means what empty data would.
bool DeckReader::IsAlone(const IKeywordSyntax& syntax)
{
    const auto isMisspelt = [this](const std::string& word) {
        return FindMeantKeyword(word, sections_.GetSure(), vocabulary_) != nullptr;
    };
    return deck_->language.RolesOf(syntax).Has(Role::MayBeAlone) && !text_.HasDataNext(isMisspelt);
}

/// What the keyword that was read last says of those that follow it, and what they say of it.
void DeckReader::FollowLast(bool isReported, bool isGuess)
{
    const KeywordInstance& keyword = deck_->keywords.back();
    const bool isKnown = keyword.isSound && data_.GetUnknownVariableCount() == 0;
    const RolesOfKeyword& roles = deck_->language.RolesOf(*keyword.syntax);
    timeLine_.Follow(isKnown);
    if (keyword.section != SectionType::SCHEDULE)
        dimensions_.Choose(keyword.syntax->GetName(), keyword.data.get(), isKnown);
    if (isKnown)
        FollowSizes(keyword, roles);
    else if (roles.Has(Role::Box))
        dimensions_.LoseBox();
    for (const std::string& name : data_.TakeWrongSizes())
        dimensions_.Doubt(name);
    if (keyword.data && roles.Has(Role::AliasesOfPaths))
        FollowPaths(keyword);
    if (isReported || isGuess || !sections_.IsSure() || mayMissKeywords_) {
        rules_.Lose();
        physics_.Lose();
    }
    const std::size_t before = reporter_.GetErrorCount();
    precedents_.Follow(keyword, sections_.IsSure() && !mayMissKeywords_ && !isReported);
    if (!isReported && !isGuess) {
        rules_.Follow(isKnown, before != reporter_.GetErrorCount());
        physics_.Follow(isKnown);
        if (before != reporter_.GetErrorCount() && roles.Has(Role::Box))
            dimensions_.LoseBox(); // outside the grid
    }
    scopes_.Follow(mayMissKeywords_);
}

void DeckReader::EndSection()
{
    scopes_.CloseAll(sections_.IsSure() && !isPart_);
    precedents_.EndSection(sections_.IsSure() && !mayMissKeywords_);
    if (!sections_.IsSure() || mayMissKeywords_)
        physics_.Lose();
    physics_.EndSection();
}

void DeckReader::EnterSection(const Token& head, const Entry& entry)
{
    EndSection();
    dimensions_.ResetBox();
    const IKeywordSyntax& syntax = vocabulary_.Get(entry, sections_.GetCurrent());
    sections_.Enter(SectionType::FromString(syntax.GetName()), head.range, entry);
    if (sections_.GetCurrent() == SectionType::RUNSPEC)
        data_.SetUnits(UnitSystem::METRIC); // unless it says otherwise
}

/// `isReported`: the keyword isn't valid here, and no more need be reported.
void DeckReader::ReadData(KeywordInstance& keyword, const Token& head, bool isReported)
{
    keyword.data = KeywordDataFactory::Instance().Construct(*keyword.syntax);
    const ICellPropertyInfo* const cell = keyword.syntax->GetCellPropertyInfo();
    const std::size_t turns = text_.GetTurns();
    const FindingReporter::Muted muted(reporter_, isReported);
    const DataReader::Traits traits = {cell && cell->CopyLayerAboveByDefault(),
        cell && cell->DualPorosityMatrixOnly(), keyword.section == SectionType::SCHEDULE};
    data_.Read(plans_.Get(*keyword.syntax->GetDataMD(), cell != nullptr), head, *keyword.data, traits,
        keyword.records, rules_.Watch(*keyword.syntax, keyword.section));
    if (DataNotes notes = data_.TakeNotes(); !notes.IsEmpty())
        keyword.notes = std::make_unique<DataNotes>(std::move(notes));
    keyword.whole.length = turns == data_.GetTurns() ? data_.GetEnd() - head.range.offset : 0;
}

void DeckReader::FollowSizes(const KeywordInstance& keyword, const RolesOfKeyword& roles)
{
    const std::string& name = keyword.syntax->GetName();
    if (roles.Has(Role::EndOfBox))
        dimensions_.ResetBox();
    else if (roles.Has(Role::RestartedRun) && keyword.section == SectionType::SOLUTION)
        precedents_.SetRestarted();
    if (!keyword.data) {
        bool isUnits = false;
        const auto units = UnitSystem::FromString(name, &isUnits);
        if (isUnits && keyword.section == SectionType::RUNSPEC)
            data_.SetUnits(units);
        return;
    }
    if (roles.Has(Role::Box))
        dimensions_.SetBox(*keyword.data);
    else if (roles.Has(Role::SizeOfGridAgain))
        CompareGrids(keyword);
    else if (keyword.section == SectionType::RUNSPEC)
        dimensions_.Add(name, *keyword.data, static_cast<std::uint32_t>(deck_->keywords.size() - 1));
}

/// What is wrong with one of them was reported, and needn't be reported of each file that is found by the
/// others.
void DeckReader::FollowPaths(const KeywordInstance& keyword)
{
    if (IsListOfRecords(keyword.data->GetMD(), {MDType::String, MDType::String}))
        DataAccessUtils::AddPathAliases(keyword.data.get(), text_.GetAliases());
}

/// A grid of pillars says its size again. Nobody knows which of them is right.
void DeckReader::CompareGrids(const KeywordInstance& pillars)
{
    const std::string& sizes = deck_->language.FindNameOf(Role::SizeOfGrid);
    const auto difference = dimensions_.FindDifference(*pillars.data, sizes);
    if (!difference)
        return;
    const KeywordInstance& whole = deck_->keywords[difference->other.keyword];
    if (!data_.HasReported("NX*NY*NZ")) // else that is the reason
        reporter_.Report(pillars.name, Code::WrongSize,
            fmt::format("{}: {} is {}, but {} of {} is {}", pillars.syntax->GetName(), difference->name,
                difference->value, difference->name, sizes, difference->other.value),
            "write the same sizes in both", {}, {{whole.name, sizes + " is here"}});
    dimensions_.DoubtAllOf(*pillars.data);
}

std::unique_ptr<DeckContents> ReadDeck(
    const std::string& path, const ReadSettings& options, const LanguageIndex& language)
{
    return DeckReader(path, options, language).Read();
}

} // namespace Veld::Quor::Core::Decks
