#include "tools/deck/DeckCheck.h"

#include "tools/deck/DataState.h"
#include "tools/deck/LineText.h"
#include "tools/deck/SourceText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <set>
#include <utility>

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

constexpr std::size_t deepestInclusion = 100;
/// Files that include others twice over can grow a small deck beyond all bounds.
constexpr std::size_t mostInclusions = 100'000;
constexpr std::size_t longestExcerpt = 160;

/// Bytes of a line that a finding is about.
struct Spot {
    Line line;
    std::size_t offset = 0;
    std::size_t length = 0;
};

/// What is told at a spot.
struct Told {
    const char* code;
    Severity severity;
    std::string message;
    std::string hint = {};
};

/// A word as messages quote it.
std::string Shorten(std::string_view word)
{
    constexpr std::size_t longest = 40;
    return word.size() <= longest ? std::string(word) : std::string(word.substr(0, longest)) + "...";
}

/// A block between a skip keyword and its end.
struct SkipBlock {
    Spot opened;
    std::string_view keyword;
    bool isPassedOver; // by the simulator asked for
};

/// One file on the way from the deck down to the line being read.
struct Frame {
    Frame(std::string path, const SourceText& text)
        : name(std::move(path))
        , identity(text.GetIdentity())
        , lines(text.GetText())
    {
    }

    std::string name;
    SourceText::Identity identity;
    LineReader lines;
    std::vector<SkipBlock> blocks; // open ones, outermost first
    std::size_t passedOver = 0; // how many of `blocks` are
    Place inclusion; // the keyword that leads on to the next file, while that is read
};

class DeckWalk {
public:
    DeckWalk(const std::string& path, const CheckOptions& options, Vocabulary& vocabulary)
        : path_(path)
        , folder_(std::filesystem::path(path).parent_path())
        , options_(options)
        , vocabulary_(vocabulary)
        , report_{Findings(options.maxFindings)}
    {
    }

    DeckReport Run();

private:
    enum class Flow { GoOn, LeaveFile };

    void ReadFile(const std::string& path, const SourceText& text);
    Flow ReadLine(const Line& line);
    void ReadPassedOver(const Line& line);
    Flow ReadWord(const Line& line, const LoneWord& lone);
    Flow ReadMisspelt(const Line& line, const LoneWord& lone);
    Flow ReadKeyword(const Spot& spot, const Entry& entry);
    void ReadOrdinary(const Spot& spot, const Entry& entry);
    void EnterSection(const Spot& spot, const Entry& entry);

    Flow ReadInclude(const Spot& keyword);
    void TellMissingName(const Spot& keyword);
    void Include(const Spot& keyword, const Spot& nameSpot, const std::string& name);
    std::optional<SourceText> ReadSource(const Spot& nameSpot, const std::string& path);
    bool MayInclude(const Spot& spot, const std::string& path, const SourceText::Identity& identity);
    void MissInclusion();

    void OpenBlock(const Spot& spot, std::string_view keyword, bool isPassedOver);
    void CloseBlock(const Spot& spot, std::string_view keyword);
    void TellOpenBlocks();
    void TellOpenText();

    void TellUnknown(const Spot& spot, std::string_view word);
    void Tell(const Spot& spot, Told told);
    Place PlaceOf(const Spot& spot) const;
    /// `SectionType::None` if it isn't known.
    SectionType::Enum GetSureSection() const { return isSectionSure_ ? section_ : SectionType::None; }
    Frame& GetFrame() { return *frames_.back(); }
    const Frame& GetFrame() const { return *frames_.back(); }

    std::string path_;
    std::filesystem::path folder_;
    const CheckOptions& options_;
    Vocabulary& vocabulary_;
    DeckReport report_;

    std::vector<Frame*> frames_; // the deck first, then one inclusion after the other
    std::set<SourceText::Identity> files_;
    std::size_t inclusions_ = 0;
    bool isEnded_ = false;

    DataState data_;
    Spot lastKeyword_; // whose data these are
    SectionType::Enum section_ = SectionType::None;
    SectionType::Enum furthestSection_ = SectionType::None;
    // False behind an inclusion that couldn't be read: it may have gone on to another section.
    bool isSectionSure_ = true;
    bool isMissingSectionTold_ = false;
    std::array<Place, SectionType::Count> sectionPlaces_; // line 0: not met so far
};

DeckReport DeckWalk::Run()
{
    ReadFile(path_, SourceText::Read(path_));
    report_.files = files_.size();
    report_.sections = static_cast<std::size_t>(std::count_if(
        sectionPlaces_.begin(), sectionPlaces_.end(), [](const Place& place) { return place.line != 0; }));
    return std::move(report_);
}

void DeckWalk::ReadFile(const std::string& path, const SourceText& text)
{
    Frame frame(path, text);
    frames_.push_back(&frame);
    files_.insert(frame.identity);
    if (text.IsWide()) {
        Tell({{{}, 1}, 0, 0},
            {"encoding", Severity::Error, "the file is in an encoding of 16-bit units",
                "save it as plain text or in UTF-8"});
        MissInclusion();
    } else {
        Line line;
        while (!isEnded_ && frame.lines.Next(line)) {
            if (ReadLine(line) == Flow::LeaveFile)
                break;
        }
    }
    TellOpenText();
    TellOpenBlocks();
    data_.Settle();
    frames_.pop_back();
}

DeckWalk::Flow DeckWalk::ReadLine(const Line& line)
{
    if (GetFrame().passedOver > 0) {
        ReadPassedOver(line);
        return Flow::GoOn;
    }
    const auto lone = FindLoneWord(line.text);
    if (data_.ExpectsText()) {
        const bool isKeyword = lone && !data_.IsDirectlyBehind() && vocabulary_.Find(lone->word);
        if (!isKeyword) {
            data_.AddText(line.text);
            return Flow::GoOn;
        }
    }
    if (lone)
        return ReadWord(line, *lone);
    const std::string_view word = FindLeadingWord(line.text);
    if (const Entry* include = word.empty() ? nullptr : vocabulary_.FindInclude(word))
        return ReadKeyword({line, 0, word.size()}, *include);
    data_.Add(line.text);
    return Flow::GoOn;
}

/// Only what opens and closes blocks counts in a block that is passed over.
void DeckWalk::ReadPassedOver(const Line& line)
{
    const auto lone = FindLoneWord(line.text);
    const Entry* const entry = lone ? vocabulary_.Find(lone->word) : nullptr;
    if (!entry)
        return;
    const Spot spot{line, 0, lone->word.size()};
    if (entry->role == KeywordDeckRole::Skip || entry->skipsFor)
        OpenBlock(spot, lone->word, false);
    else if (entry->role == KeywordDeckRole::EndSkip)
        CloseBlock(spot, lone->word);
}

DeckWalk::Flow DeckWalk::ReadWord(const Line& line, const LoneWord& lone)
{
    if (const Entry* entry = vocabulary_.Find(lone.word))
        return ReadKeyword({line, 0, lone.word.size()}, *entry);
    if (data_.IsEndOfData(lone.word)) {
        data_.Close();
        return Flow::GoOn;
    }
    // No keyword needs a slash of its own, whereas names of wells and groups stand before one.
    if (lone.hasSlash || !data_.MayKeywordStand()) {
        data_.Add(line.text);
        return Flow::GoOn;
    }
    return ReadMisspelt(line, lone);
}

DeckWalk::Flow DeckWalk::ReadMisspelt(const Line& line, const LoneWord& lone)
{
    const Spot spot{line, 0, lone.word.size()};
    if (lone.isUpper) {
        TellUnknown(spot, lone.word);
        data_.Begin(nullptr);
        return Flow::GoOn;
    }
    const std::string upper = ToUpper(lone.word);
    const Entry* const entry = vocabulary_.Find(upper);
    if (!entry) {
        data_.Add(line.text);
        return Flow::GoOn;
    }
    Tell(spot,
        {"lower-case", Severity::Error, fmt::format("the keyword {} is not in upper case", upper),
            fmt::format("write {}", upper)});
    return ReadKeyword(spot, *entry);
}

DeckWalk::Flow DeckWalk::ReadKeyword(const Spot& spot, const Entry& entry)
{
    ++report_.keywords;
    switch (entry.role) {
    case KeywordDeckRole::End:
        isEnded_ = true;
        break;
    case KeywordDeckRole::EndInclude:
        if (frames_.size() > 1)
            return Flow::LeaveFile;
        Tell(spot,
            {"stray-endinc", Severity::Warning,
                fmt::format("{} has no effect in a file that isn't included", entry.spelling),
                "END ends the deck"});
        break;
    case KeywordDeckRole::Include:
        return ReadInclude(spot);
    case KeywordDeckRole::Skip:
        OpenBlock(spot, entry.spelling, true);
        break;
    case KeywordDeckRole::EndSkip:
        CloseBlock(spot, entry.spelling);
        break;
    case KeywordDeckRole::Section:
        EnterSection(spot, entry);
        break;
    case KeywordDeckRole::Ordinary:
        if (entry.skipsFor)
            OpenBlock(spot, entry.spelling, *entry.skipsFor == options_.target.simulator);
        else
            ReadOrdinary(spot, entry);
        break;
    }
    return Flow::GoOn;
}

void DeckWalk::ReadOrdinary(const Spot& spot, const Entry& entry)
{
    data_.Begin(&vocabulary_.Get(entry, section_));
    lastKeyword_ = spot;
    if (section_ == SectionType::None && isSectionSure_ && !IsValidInAllSections(entry)) {
        if (!std::exchange(isMissingSectionTold_, true))
            Tell(spot,
                {"no-section", Severity::Error,
                    fmt::format("{} stands before the first section", entry.spelling),
                    "a deck begins with the section RUNSPEC"});
        return;
    }
    const auto objection = FindObjection(entry, GetSureSection(), options_.target);
    if (objection)
        Tell(spot, {objection->code, Severity::Error, objection->message, objection->hint});
}

void DeckWalk::EnterSection(const Spot& spot, const Entry& entry)
{
    data_.Begin(nullptr);
    section_ = SectionType::FromString(vocabulary_.Get(entry, section_).GetName());
    isSectionSure_ = true;
    Place& place = sectionPlaces_[static_cast<std::size_t>(section_)];
    const bool isFirst = furthestSection_ == SectionType::None;
    if (place.line != 0) {
        Tell(spot,
            {"section-order", Severity::Error, fmt::format("the section {} is repeated", entry.spelling),
                fmt::format("it began in {}:{}", place.file, place.line)});
        return;
    }
    place = PlaceOf(spot);
    if (!isFirst && section_ < furthestSection_) {
        Tell(spot,
            {"section-order", Severity::Error,
                fmt::format("the section {} stands behind {}", entry.spelling,
                    SectionType::ToString(furthestSection_)),
                fmt::format("put it before {}", SectionType::ToString(furthestSection_))});
        return;
    }
    furthestSection_ = section_;
    const auto objection = FindObjection(entry, SectionType::None, options_.target);
    if (objection)
        Tell(spot, {objection->code, Severity::Error, objection->message, objection->hint});
}

/// The name stands behind the keyword or on a line below it.
DeckWalk::Flow DeckWalk::ReadInclude(const Spot& keyword)
{
    Line line = keyword.line;
    auto token = FindFileName(line.text, keyword.length);
    while (!token && GetFrame().lines.Next(line)) {
        const auto lone = FindLoneWord(line.text);
        if (lone && !lone->hasSlash && vocabulary_.Find(lone->word)) {
            TellMissingName(keyword);
            return ReadWord(line, *lone);
        }
        token = FindFileName(line.text, 0);
    }
    if (!token || token->name.empty()) {
        TellMissingName(keyword);
        return Flow::GoOn;
    }
    const Spot nameSpot{line, token->offset, token->length};
    if (token->isClosed) {
        Include(keyword, nameSpot, std::string(token->name));
        return Flow::GoOn;
    }
    Tell(nameSpot,
        {"include-name", Severity::Error, "the name of the file to include has no closing quote",
            "close it on the same line"});
    MissInclusion();
    return Flow::GoOn;
}

void DeckWalk::TellMissingName(const Spot& keyword)
{
    Tell(keyword,
        {"include-name", Severity::Error, "the name of the file to include is missing",
            "put it in quotes, with a slash behind it"});
    MissInclusion();
}

void DeckWalk::Include(const Spot& keyword, const Spot& nameSpot, const std::string& name)
{
    if (name.find('$') != std::string::npos) {
        Tell(nameSpot,
            {"include-alias", Severity::Note,
                fmt::format("path aliases are not resolved, so '{}' is not read", name)});
        MissInclusion();
        return;
    }
    const std::string path = (folder_ / name).string(); // an absolute name stands for itself
    const std::optional<SourceText> text = ReadSource(nameSpot, path);
    if (!text) {
        MissInclusion();
        return;
    }
    GetFrame().inclusion = PlaceOf(keyword);
    ReadFile(path, *text);
}

/// Empty, and told, if the file can't be read or may not be included here.
std::optional<SourceText> DeckWalk::ReadSource(const Spot& nameSpot, const std::string& path)
{
    try {
        // First, since a file that includes itself may be large and do so often.
        if (!MayInclude(nameSpot, path, SourceText::Identify(path)))
            return std::nullopt;
        return SourceText::Read(path);
    } catch (const SourceError& error) {
        Tell(nameSpot,
            {"include-missing", Severity::Error, fmt::format("can't read '{}': {}", path, error.what()),
                "a relative name starts from the folder of the deck"});
        return std::nullopt;
    }
}

bool DeckWalk::MayInclude(const Spot& spot, const std::string& path, const SourceText::Identity& identity)
{
    const bool isLoop = std::any_of(frames_.begin(), frames_.end(),
        [&identity](const Frame* frame) { return frame->identity == identity; });
    if (isLoop) {
        Tell(spot,
            {"include-loop", Severity::Error,
                fmt::format("'{}' is being read already and can't be included in itself", path)});
        return false;
    }
    if (frames_.size() > deepestInclusion) {
        Tell(spot,
            {"include-depth", Severity::Error,
                fmt::format("more than {} files are included in one another", deepestInclusion)});
        return false;
    }
    if (++inclusions_ > mostInclusions) {
        isEnded_ = true; // each further one would say the same
        Tell(spot,
            {"include-count", Severity::Error,
                fmt::format("more than {} inclusions; the rest of the deck is not read", mostInclusions)});
        return false;
    }
    return true;
}

/// What an inclusion that isn't read holds is not known.
void DeckWalk::MissInclusion()
{
    isSectionSure_ = false;
}

void DeckWalk::OpenBlock(const Spot& spot, std::string_view keyword, bool isPassedOver)
{
    GetFrame().blocks.push_back({spot, keyword, isPassedOver});
    if (isPassedOver)
        ++GetFrame().passedOver;
}

void DeckWalk::CloseBlock(const Spot& spot, std::string_view keyword)
{
    Frame& frame = GetFrame();
    if (!frame.blocks.empty()) {
        if (frame.blocks.back().isPassedOver)
            --frame.passedOver;
        frame.blocks.pop_back();
        return;
    }
    Tell(spot,
        {"stray-endskip", Severity::Error,
            fmt::format("{} ends no block that was opened in this file", keyword)});
}

void DeckWalk::TellOpenBlocks()
{
    for (const SkipBlock& block : GetFrame().blocks) {
        Tell(block.opened,
            {"unclosed-skip", Severity::Error,
                fmt::format("the block that {} opens is not closed in this file", block.keyword),
                "close it with ENDSKIP"});
    }
}

void DeckWalk::TellOpenText()
{
    if (isEnded_ || data_.GetMissingEnd().empty())
        return;
    Tell(lastKeyword_,
        {"unclosed-text", Severity::Error, "the text of this keyword goes on to the end of the file",
            fmt::format("end it with {} at the start of a line", data_.GetMissingEnd())});
    data_.Close();
}

void DeckWalk::TellUnknown(const Spot& spot, std::string_view word)
{
    if (report_.findings.IsFull()) {
        Tell(spot, {"unknown-keyword", Severity::Error, {}});
        return;
    }
    std::string hint;
    for (const std::string& name : vocabulary_.GetNearestNames().Find(std::string(word), GetSureSection()))
        hint += (hint.empty() ? "did you mean " : ", ") + name;
    if (hint.empty() && word.size() > longestName)
        hint = fmt::format("the names of keywords have at most {} characters", longestName);
    else if (!hint.empty())
        hint += '?';
    Tell(spot, {"unknown-keyword", Severity::Error, fmt::format("{} is not a keyword", Shorten(word)), hint});
}

void DeckWalk::Tell(const Spot& spot, Told told)
{
    if (!report_.findings.Admit(told.severity))
        return;
    Finding finding;
    finding.code = told.code;
    finding.severity = told.severity;
    finding.place = PlaceOf(spot);
    finding.length = spot.length;
    finding.message = std::move(told.message);
    finding.hint = std::move(told.hint);
    for (auto frame = frames_.rbegin() + 1; frame != frames_.rend(); ++frame)
        finding.includedFrom.push_back((*frame)->inclusion);
    const std::size_t start = spot.offset + spot.length <= longestExcerpt ? 0 : spot.offset;
    finding.excerpt = spot.line.text.substr(start, longestExcerpt);
    finding.excerptColumn = start + 1;
    report_.findings.Keep(std::move(finding));
}

Place DeckWalk::PlaceOf(const Spot& spot) const
{
    return {GetFrame().name, spot.line.number, spot.offset + 1};
}

} // namespace

DeckReport CheckDeck(const std::string& path, const CheckOptions& options, Vocabulary& vocabulary)
{
    return DeckWalk(path, options, vocabulary).Run();
}

} // namespace Veld::Quor::Tools::Deck
