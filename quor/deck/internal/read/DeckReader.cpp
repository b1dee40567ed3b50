#include "quor/data/DataAccessUtils.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/internal/read/DataPlan.h"
#include "quor/deck/internal/read/DataReader.h"
#include "quor/deck/internal/read/DataShape.h"
#include "quor/deck/internal/read/Deck.h"
#include "quor/deck/internal/read/DeckText.h"
#include "quor/deck/internal/read/Dimensions.h"
#include "quor/deck/internal/read/TimeLine.h"
#include "quor/deck/internal/read/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/service/Log.h"
#include "quor/foundation/service/MessageCapper.h"
#include "quor/syntax/ICellPropertyInfo.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using namespace Core::Service;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Hands what the library says of choices to the reader, for as long as it lives.
class ChoiceMessages {
public:
    explicit ChoiceMessages(DataReader& reader)
        : before_(Log::SetHandler([&reader](const char* text, MessageSeverity) { reader.NoteChoice(text); }))
    {
        MessageCapper::instance()->SetLimit(-1);
    }
    ~ChoiceMessages()
    {
        MessageCapper::instance()->SetLimit(MessageCapper::DefaultLimit);
        MessageCapper::instance()->Reset();
        Log::SetHandler(before_);
    }
    ChoiceMessages(const ChoiceMessages&) = delete;
    ChoiceMessages& operator=(const ChoiceMessages&) = delete;

private:
    LogHandler before_;
};

ReadOptions WithSource(ReadOptions options)
{
    if (!options.source)
        options.source = std::make_shared<FileSource>();
    return options;
}

class DeckReader {
public:
    DeckReader(const std::string& path, const ReadOptions& options, Vocabulary& vocabulary)
        : options_(WithSource(options))
        , vocabulary_(vocabulary)
        , deck_(std::make_unique<Deck>(options.maxFindings))
        , reporter_(deck_->files, deck_->findings, options.isKnown)
        , text_(path, *options_.source, options.target, vocabulary, deck_->files, reporter_)
        , plans_(options.target)
        , dimensions_(vocabulary.GetTable(), options.target.simulator)
        , data_(
              options.target, text_, reporter_,
              [this](const std::string& name) { return dimensions_.Find(name); }, options.variables,
              options.keepsValueRanges)
        , timeLine_(reporter_)
    {
        text_.SetProgress(options.progress);
        text_.SetCancellation(options.isCancelled);
    }

    std::unique_ptr<Deck> Read();

private:
    void ReadHead(const Token& head);
    void ReadUnknown(const Token& head);
    void ReadMisspelt(const Token& head);
    void ReadAs(const Token& head, const Entry& entry);
    const Entry* ReportUnknown(const TextRange& range, std::string_view word);
    void ReadStray(const Token& token);
    void ReadKeyword(const Token& head, const Entry& entry, bool isGuess = false);
    void EnterSection(const Token& head, const Entry& entry);
    bool IsWelcome(const Token& head, const Entry& entry);
    void AssumeFirstSection(const Entry& entry);
    bool AssumesSection(const Entry& entry);
    bool IsValidIn(SectionType::Enum section, const Entry& entry) const;
    void ReadData(DeckKeyword& keyword, const Token& head, bool isReported);
    void CheckNoData(const Token& head);
    void Follow(const DeckKeyword& keyword);
    void FollowPaths(const DeckKeyword& keyword);
    void CheckPrecedents(const DeckKeyword& keyword);
    void FollowScopes(const DeckKeyword& keyword);
    void CloseScopes();
    /// `SectionType::None` if it isn't known.
    SectionType::Enum GetSureSection() const { return isSectionSure_ ? section_ : SectionType::None; }

    ReadOptions options_;
    Vocabulary& vocabulary_;
    std::unique_ptr<Deck> deck_;
    FindingReporter reporter_;
    DeckText text_;
    DataPlans plans_;
    Dimensions dimensions_;
    DataReader data_;
    TimeLine timeLine_;

    SectionType::Enum section_ = SectionType::None;
    SectionType::Enum headedSection_ =
        SectionType::None; // whose line was read last; the other may be assumed
    SectionType::Enum expectedSection_ =
        SectionType::None; // of the keyword that was reported to be in a wrong one
    SectionType::Enum furthestSection_ = SectionType::None;
    // False after an inclusion that couldn't be read: it may have gone on to another section.
    bool isSectionSure_ = true;
    bool isMissingSectionReported_ = false;
    bool mayMissKeywords_ = false; // one could not be made out
    bool mayTakeSlash_ = false; // after a keyword without data a slash does no harm
    std::array<std::optional<TextRange>, SectionType::Count> sectionRanges_;
    std::set<std::string> seen_; // names of the keywords so far, and of missing ones that were reported
    std::vector<std::pair<const IKeywordSyntax*, TextRange>> scopes_; // open ones, outermost first
};

std::unique_ptr<Deck> DeckReader::Read()
{
    const ChoiceMessages messages(data_);
    for (;;) {
        const Token head = text_.NextHead();
        if (text_.MissedInclusion())
            isSectionSure_ = false;
        text_.ForgetMissedInclusion();
        if (head.kind == Token::Kind::End)
            break;
        const std::size_t errors = reporter_.GetErrorCount();
        ReadHead(head);
        const bool mayHoldSizes = section_ == SectionType::None || section_ == SectionType::RUNSPEC;
        if (mayHoldSizes && errors != reporter_.GetErrorCount())
            dimensions_.ForgetDefaults();
    }
    CloseScopes();
    if (deck_->keywords.empty() && deck_->files.GetSize() == 1 && reporter_.GetErrorCount() == 0)
        reporter_.Report(
            {}, Code::NoSection, "the deck has no keywords", "a deck begins with the section RUNSPEC");
    text_.Finish();
    reporter_.ReportBadSuppressions();
    deck_->distinctFiles = text_.GetFileCount();
    deck_->sections = static_cast<std::size_t>(std::count_if(
        sectionRanges_.begin(), sectionRanges_.end(), [](const auto& range) { return range.has_value(); }));
    return std::move(deck_);
}

void DeckReader::ReadHead(const Token& head)
{
    const bool mayTakeSlash = std::exchange(mayTakeSlash_, false);
    if (head.kind == Token::Kind::Word) {
        if (mayTakeSlash && head.text == "/")
            text_.NextData();
        else
            ReadStray(head);
    } else if (head.entry) {
        ReadKeyword(head, *head.entry);
    } else {
        ReadUnknown(head);
    }
}

/// A word at the start of a line that is no keyword.
void DeckReader::ReadUnknown(const Token& head)
{
    const std::string upper = ToUpper(head.text);
    if (upper == head.text) {
        ReadMisspelt(head);
    } else if (const Entry* const entry = vocabulary_.Find(upper)) {
        reporter_.Report(head.range, Code::LowerCase,
            fmt::format("the keyword {} is not in upper case", upper), fmt::format("write {}", upper));
        ReadAs(head, *entry);
    } else {
        ReadStray(head);
    }
}

/// If it is sure which keyword was meant, what follows is read as if it stood there, and nothing reported of
/// it.
void DeckReader::ReadMisspelt(const Token& head)
{
    using Role = KeywordDeckRole;
    const Entry* const meant = ReportUnknown(head.range, head.text);
    if (!meant || meant->role == Role::End || meant->role == Role::EndInclude) {
        mayMissKeywords_ = true;
        text_.SkipData();
        return;
    }
    const FindingReporter::Muted muted(reporter_, true);
    if (!meant->IsOfText() || !text_.TakeAs(head, *meant))
        ReadKeyword(head, *meant, true);
}

void DeckReader::ReadAs(const Token& head, const Entry& entry)
{
    if (!entry.IsOfText() || !text_.TakeAs(head, entry))
        ReadKeyword(head, entry);
}

/// The keyword that was meant, if one is nearer than all others; else null.
const Entry* DeckReader::ReportUnknown(const TextRange& range, std::string_view word)
{
    if (reporter_.IsFull()) {
        reporter_.Report(range, Code::UnknownKeyword, {});
        return nullptr;
    }
    const std::string name(word);
    const auto& nearest = vocabulary_.GetNearestNames().Find(name, GetSureSection());
    std::string hint;
    for (const std::string& known : nearest)
        hint += (hint.empty() ? "did you mean " : ", ") + known;
    if (hint.empty() && word.size() > longestName)
        hint = fmt::format("the names of keywords have at most {} characters", longestName);
    else if (!hint.empty())
        hint += '?';
    reporter_.Report(
        range, Code::UnknownKeyword, fmt::format("{} is not a keyword", Shorten(word)), std::move(hint));
    const auto isNear = [&name](const std::string& known) { return EditDistance(name, known, 1) <= 1; };
    const auto first = std::find_if(nearest.begin(), nearest.end(), isNear);
    const bool isSure = std::count_if(nearest.begin(), nearest.end(), isNear) == 1;
    return isSure ? vocabulary_.Find(*first) : nullptr;
}

void DeckReader::ReadStray(const Token& token)
{
    const std::string after = deck_->keywords.empty()
        ? std::string("before the first keyword")
        : fmt::format("behind the data of {}", deck_->keywords.back().syntax->GetName());
    const Token word = token.kind == Token::Kind::Keyword ? token : text_.NextData();
    const Entry* const entry = vocabulary_.Find(word.text);
    reporter_.Report(word.range, Code::StrayText,
        fmt::format(
            "here is {}, {}, where a keyword is expected", Shorten(deck_->files.GetText(word.range)), after),
        entry ? "a keyword stands at the beginning of its line" : "");
    const auto lone = FindLoneWord(text_.GetLineFrom(word.range));
    const bool isIndented = entry && lone && !lone->hasSlash && text_.IsFirstOnLine(word.range);
    if (isIndented)
        ReadAs(word, *entry);
    else
        text_.SkipData();
    mayMissKeywords_ = mayMissKeywords_ || !isIndented;
}

/// `isGuess`: the deck has another word, which was reported; nothing is to be reported of it, nor made of it.
void DeckReader::ReadKeyword(const Token& head, const Entry& entry, bool isGuess)
{
    if (entry.role == KeywordDeckRole::Section)
        EnterSection(head, entry);
    const bool isReported = entry.role != KeywordDeckRole::Section && !IsWelcome(head, entry);
    DeckKeyword keyword{&vocabulary_.Get(entry, section_), section_, head.range, head.range};
    const auto countErrors = [this] { return reporter_.GetErrorCount() - data_.GetReportedVariableCount(); };
    const std::size_t errors = countErrors();
    if (keyword.syntax->GetDataMD())
        ReadData(keyword, head, isReported);
    else
        CheckNoData(head);
    keyword.isSound = !isReported && !isGuess && errors == countErrors();
    deck_->keywords.push_back(std::move(keyword));
    if (deck_->keywords.back().isSound && data_.GetUnknownVariableCount() == 0)
        Follow(deck_->keywords.back());
    if (deck_->keywords.back().data)
        FollowPaths(deck_->keywords.back());
    CheckPrecedents(deck_->keywords.back());
    FollowScopes(deck_->keywords.back());
    seen_.insert(deck_->keywords.back().syntax->GetName());
}

void DeckReader::EnterSection(const Token& head, const Entry& entry)
{
    CloseScopes();
    dimensions_.ResetBox();
    section_ = headedSection_ = SectionType::FromString(vocabulary_.Get(entry, section_).GetName());
    expectedSection_ = SectionType::None;
    isSectionSure_ = true;
    std::optional<TextRange>& range = sectionRanges_[static_cast<std::size_t>(section_)];
    const bool isFirst = furthestSection_ == SectionType::None;
    if (range) {
        const Location location = deck_->files.LocationOf(*range);
        reporter_.Report(head.range, Code::SectionOrder,
            fmt::format("the section {} is repeated", entry.spelling),
            fmt::format("it began in {}:{}", location.file, location.line));
        return;
    }
    range = head.range;
    if (!isFirst && section_ < furthestSection_) {
        const std::string& furthest = SectionType::ToString(furthestSection_);
        reporter_.Report(head.range, Code::SectionOrder,
            fmt::format("the section {} stands behind {}", entry.spelling, furthest),
            fmt::format("put it before {}", furthest));
        return;
    }
    furthestSection_ = section_;
    if (const auto objection = FindObjection(entry, SectionType::None, options_.target))
        reporter_.Report(head.range, objection->code, objection->message, objection->hint);
}

/// Whether the keyword may stand here; reports if not.
bool DeckReader::IsWelcome(const Token& head, const Entry& entry)
{
    if (section_ == SectionType::None && isSectionSure_ && !IsValidInAllSections(entry)) {
        if (!std::exchange(isMissingSectionReported_, true))
            reporter_.Report(head.range, Code::NoSection,
                fmt::format("{} stands before the first section", entry.spelling),
                "a deck begins with the section RUNSPEC");
        AssumeFirstSection(entry);
        if (section_ == SectionType::None)
            return false;
    }
    const auto objection = FindObjection(entry, GetSureSection(), options_.target);
    if (!objection) {
        if (expectedSection_ != SectionType::None && !IsValidIn(expectedSection_, entry))
            expectedSection_ = SectionType::None;
        return true;
    }
    if (objection->code == Code::WrongSection && AssumesSection(entry))
        return true;
    reporter_.Report(head.range, objection->code, objection->message,
        expectedSection_ == SectionType::None
            ? objection->hint
            : fmt::format("put it there, or the line {} before it", SectionType::ToString(expectedSection_)));
    return false;
}

/// The line of the section is missing, and was reported to be.
void DeckReader::AssumeFirstSection(const Entry& entry)
{
    if (IsValidIn(SectionType::RUNSPEC, entry))
        section_ = SectionType::RUNSPEC;
}

/// Whether the line of a section seems to be missing before the keyword, which is so where one keyword after
/// the other belongs to a later section. The first of them was reported.
bool DeckReader::AssumesSection(const Entry& entry)
{
    const bool isBack = section_ != headedSection_ && IsValidIn(headedSection_, entry);
    if (isBack || IsValidIn(expectedSection_, entry)) {
        section_ = isBack ? headedSection_ : expectedSection_;
        expectedSection_ = SectionType::None;
        return true;
    }
    const SectionType::Enum only = FindOnlySection(entry, options_.target);
    const bool mayBeMissing = only != SectionType::None && only > section_
        && (furthestSection_ == SectionType::None || only > furthestSection_);
    expectedSection_ = mayBeMissing ? only : SectionType::None;
    return false;
}

bool DeckReader::IsValidIn(SectionType::Enum section, const Entry& entry) const
{
    return section != SectionType::None && !FindObjection(entry, section, options_.target);
}

/// `isReported`: the keyword may not stand here, and more need not be said.
void DeckReader::ReadData(DeckKeyword& keyword, const Token& head, bool isReported)
{
    keyword.data = KeywordDataFactory::Instance().Construct(*keyword.syntax);
    const ICellPropertyInfo* const cell = keyword.syntax->GetCellPropertyInfo();
    const std::size_t turns = text_.GetTurns();
    const FindingReporter::Muted muted(reporter_, isReported);
    data_.Read(plans_.Get(*keyword.syntax->GetDataMD()), head, *keyword.data,
        cell && cell->CopyLayerAboveByDefault(), keyword.records);
    if (DataNotes notes = data_.TakeNotes(); !notes.IsEmpty())
        keyword.notes = std::make_unique<DataNotes>(std::move(notes));
    keyword.whole.length = turns == data_.GetTurns() ? data_.GetEnd() - head.range.offset : 0;
}

void DeckReader::CheckNoData(const Token& head)
{
    if (text_.IsAtLineEnd()) {
        mayTakeSlash_ = true;
        return;
    }
    const Token word = text_.NextData();
    if (word.kind == Token::Kind::Slash)
        return;
    reporter_.Report(
        word.range, Code::StrayText, fmt::format("{} takes no data", head.text), "end the line behind it");
    text_.SkipData();
}

void DeckReader::Follow(const DeckKeyword& keyword)
{
    timeLine_.Follow(keyword);
    const std::string& name = keyword.syntax->GetName();
    if (name == "ENDBOX")
        dimensions_.ResetBox();
    if (!keyword.data)
        return;
    if (name == "BOX")
        dimensions_.SetBox(*keyword.data);
    else if (section_ == SectionType::RUNSPEC)
        dimensions_.Add(*keyword.data);
}

/// What is wrong with one of them was reported, and needn't be reported of each file that is found by the
/// others.
void DeckReader::FollowPaths(const DeckKeyword& keyword)
{
    if (keyword.syntax->GetName() == "PATHS"
        && IsListOfRecords(keyword.data->GetMD(), {MDType::String, MDType::String}))
        DataAccessUtils::AddPathAliases(keyword.data.get(), text_.GetAliases());
}

void DeckReader::CheckPrecedents(const DeckKeyword& keyword)
{
    if (!keyword.syntax->HasPrecedents() || !isSectionSure_ || mayMissKeywords_)
        return;
    std::string missing;
    for (const std::string& name : keyword.syntax->GetPrecedents(section_)) {
        if (seen_.insert(name).second)
            missing += (missing.empty() ? "" : ", ") + name;
    }
    if (!missing.empty())
        reporter_.Report(keyword.name, Code::MissingPrecedent,
            fmt::format("{} needs {} before it", keyword.syntax->GetName(), missing));
}

void DeckReader::FollowScopes(const DeckKeyword& keyword)
{
    const auto ends = [&keyword](const IKeywordSyntax& scope) {
        const auto& words = scope.GetScopeKeywords();
        return std::find(words.begin(), words.end(), keyword.syntax) != words.end();
    };
    if (!scopes_.empty() && ends(*scopes_.back().first)) {
        scopes_.pop_back();
        dimensions_.Leave();
    } else if (vocabulary_.EndsScopes(*keyword.syntax) && !mayMissKeywords_) {
        reporter_.Report(keyword.name, Code::StrayEnd,
            fmt::format("{} ends nothing that was opened", keyword.syntax->GetName()));
    }
    if (!keyword.syntax->HasScope())
        return;
    scopes_.emplace_back(keyword.syntax, keyword.name);
    dimensions_.Enter();
    if (keyword.data)
        dimensions_.Add(*keyword.data);
}

void DeckReader::CloseScopes()
{
    for (; !scopes_.empty(); scopes_.pop_back()) {
        dimensions_.Leave();
        const IKeywordSyntax* const end = scopes_.back().first->GetScopeSyntax();
        if (end && isSectionSure_)
            reporter_.Report(scopes_.back().second, Code::UnclosedScope,
                fmt::format("what {} opens is not closed", scopes_.back().first->GetName()),
                fmt::format("close it with {}", end->GetName()));
    }
}

} // namespace

std::string Deck::NameOf(const DeckKeyword& keyword) const
{
    return keyword.syntax->IsWildcard() ? ToUpper(files.GetText(keyword.name)) : keyword.syntax->GetName();
}

std::unique_ptr<Deck> ReadDeck(const std::string& path, const ReadOptions& options, Vocabulary& vocabulary)
{
    return DeckReader(path, options, vocabulary).Read();
}

} // namespace Veld::Quor::Core::Decks
