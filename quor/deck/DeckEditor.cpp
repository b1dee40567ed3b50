#include "quor/deck/DeckEditor.h"

#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/edit/DeckChanges.h"
#include "quor/deck/internal/edit/ListEdits.h"
#include "quor/deck/internal/edit/NewWords.h"
#include "quor/deck/internal/edit/WritableValues.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/internal/FloatValue.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

std::uint32_t IndexIn(const Deck& deck, const DeckKeyword& keyword)
{
    CheckIsOf(deck, keyword);
    return static_cast<std::uint32_t>(keyword.GetIndex());
}

/// A list of numbers of the keyword.
template <class T>
std::unique_ptr<IKeywordData> MakeArray(
    const DeckKeyword& keyword, MDType::Enum type, const T* first, std::size_t count)
{
    const IKeywordDataMD* const md = keyword.GetSyntax().GetDataMD();
    if (!IsListOf(md, type))
        throw DataAccessError(
            fmt::format("{} is not a list of {} values", keyword.GetName(), MDType::ToString(type)));
    const T* const bad = std::find_if_not(first, first + count, [](T value) { return CanBeWritten(value); });
    if (bad != first + count)
        throw EditError(fmt::format("{}: value {} of the array: a deck can't hold the number {}",
            keyword.GetName(), bad - first + 1, *bad));
    auto data = KeywordDataFactory::Instance().Construct(keyword.GetSyntax());
    AddValues(AsList(*data), first, count);
    return data;
}

} // namespace

NewValue::NewValue(float value)
    : value_(ToDouble(value))
{
}

EditError::EditError(const std::string& message)
    : Service::Exception(message)
{
}

EditError::~EditError() = default;

DeckEditor::DeckEditor(const Deck& deck)
    : deck_(deck)
    , id_(ContentsOf(deck).id)
    , changes_(std::make_unique<DeckChanges>(ContentsOf(deck)))
{
    if (!deck.GetOptions().IsEditable())
        throw std::invalid_argument("the deck wasn't read to be edited: see ReadOptions::SetEditable");
}

DeckEditor::~DeckEditor() = default;

// Values

void DeckEditor::SetValue(std::string_view address, const NewValue& value)
{
    SetValue(ValueAddress::Parse(address), value);
}

void DeckEditor::SetValue(const ValueAddress& address, const NewValue& value)
{
    SetValue(ResolveOne(GetDeck(), address), value);
}

void DeckEditor::SetValue(const DeckValue& current, const NewValue& value)
{
    Set(current, &value);
}

void DeckEditor::ClearValue(std::string_view address)
{
    ClearValue(ValueAddress::Parse(address));
}

void DeckEditor::ClearValue(const ValueAddress& address)
{
    ClearValue(ResolveOne(GetDeck(), address));
}

void DeckEditor::ClearValue(const DeckValue& current)
{
    Set(current, nullptr);
}

/// Null: the default.
void DeckEditor::Set(const DeckValue& current, const NewValue* value)
{
    const std::uint32_t index = IndexIn(GetDeck(), current.keyword);
    const DeckContents& contents = ContentsOf(GetDeck());
    const KeywordInstance& keyword = contents.keywords[index];
    const auto scalar = keyword.data ? FindScalar(*keyword.data, current.path) : std::nullopt;
    if (!scalar)
        throw AddressError(fmt::format("{} has no value at this path", current.keyword.GetName()));
    if (!current.range && keyword.isSound && keyword.whole.length == keyword.name.length)
        throw EditError(
            fmt::format("{} is without its data; write them after it", current.keyword.GetName()));
    if (!current.range)
        throw EditError(fmt::format("errors in {} hide where its values are", current.keyword.GetName()));
    const auto word = value ? MakeNewWord(keyword, current.path, *value, contents.GetTarget())
                            : MakeDefaultWord(keyword, current.path, contents.GetTarget());
    const std::string* const variable = keyword.notes->variables
        ? keyword.notes->variables->Find(*scalar->node, static_cast<int>(scalar->index))
        : nullptr;
    if (variable)
        throw EditError(fmt::format("{} is given by {}: {}", current.address.ToString(),
            variable->find('$') == std::string::npos ? "a quantity of the user" : "a variable", *variable));
    changes_->SetWord(index, current.path, word);
}

void DeckEditor::SetArray(const DeckKeyword& keyword, const double* first, std::size_t count)
{
    ReplaceArray(keyword, *MakeArray(keyword, MDType::Real, first, count));
}

void DeckEditor::SetArray(const DeckKeyword& keyword, const int* first, std::size_t count)
{
    ReplaceArray(keyword, *MakeArray(keyword, MDType::Integer, first, count));
}

void DeckEditor::ReplaceArray(const DeckKeyword& keyword, const IKeywordData& data)
{
    const DeckContents& contents = ContentsOf(GetDeck());
    const std::uint32_t index = IndexIn(GetDeck(), keyword);
    changes_->SetArray(index, ReplaceData(contents, contents.keywords[index], data));
}

// Records

void DeckEditor::AddRecord(const DeckKeyword& keyword, std::string_view text)
{
    const DeckContents& contents = ContentsOf(GetDeck());
    const std::uint32_t index = IndexIn(GetDeck(), keyword);
    changes_->AddRecords(index, AddRecordTo(contents, contents.keywords[index], text));
}

void DeckEditor::AddRecords(const DeckKeyword& keyword, const IKeywordData& records)
{
    const DeckContents& contents = ContentsOf(GetDeck());
    const std::uint32_t index = IndexIn(GetDeck(), keyword);
    if (records.GetMD() != keyword.GetSyntax().GetDataMD())
        throw DataAccessError(fmt::format("{}: the records are those of another keyword", keyword.GetName()));
    if (AsList(records).GetSize() > 0)
        changes_->AddRecords(index, AddRecordsTo(contents, contents.keywords[index], records));
}

void DeckEditor::RemoveRecord(const DeckKeyword& keyword, std::size_t index)
{
    changes_->RemoveRecord(IndexIn(GetDeck(), keyword), index);
}

// Keywords

void DeckEditor::AddKeywordAfter(const DeckKeyword& keyword, std::string_view text)
{
    AddKeyword(IndexIn(GetDeck(), keyword), false, text);
}

void DeckEditor::AddKeywordAtEnd(SectionType::Enum section, std::string_view text)
{
    for (std::size_t i = GetDeck().GetSize(); i-- > 0;) {
        if (GetDeck()[i].GetSection() == section)
            return AddKeyword(i, true, text);
    }
    if (section == SectionType::None)
        throw std::out_of_range("the deck has no keyword before its first section");
    throw std::out_of_range(fmt::format("the deck has no section {}", SectionType::ToString(section)));
}

void DeckEditor::AddKeywordInStep(std::size_t step, std::string_view text)
{
    std::vector<DeckKeyword> keywords = GetDeck().GetAfterStep(step);
    const std::vector<ReportStep>& steps = GetDeck().GetSteps();
    const std::size_t opener = steps[step].keyword;
    if (step + 1 < steps.size() && steps[step + 1].keyword == opener)
        throw EditError(
            fmt::format("the {} of the report step leads to later steps too", GetDeck()[opener].GetName()));
    if (step + 1 < steps.size() && !keywords.empty() && keywords.back().GetIndex() == steps[step + 1].keyword)
        keywords.pop_back(); // it leads to the next step
    AddKeyword(keywords.empty() ? opener : keywords.back().GetIndex(), true, text);
}

void DeckEditor::AddKeyword(std::size_t after, bool leavesBlocks, std::string_view text)
{
    changes_->AddKeyword(AddKeywordTo(ContentsOf(GetDeck()), after, leavesBlocks, text));
}

void DeckEditor::RemoveKeyword(const DeckKeyword& keyword)
{
    changes_->RemoveKeyword(IndexIn(GetDeck(), keyword));
}

// Results

std::vector<TextEdit> DeckEditor::GetEdits() const
{
    GetDeck(); // throws if it is gone
    return changes_->GetEdits();
}

std::vector<std::uint32_t> DeckEditor::GetChangedFiles() const
{
    std::vector<std::uint32_t> files;
    for (const TextEdit& edit : GetEdits()) {
        if (files.empty() || files.back() != edit.range.file)
            files.push_back(edit.range.file);
    }
    return files;
}

std::string DeckEditor::GetText(std::uint32_t file) const
{
    const DeckFiles& files = GetDeck().GetFiles();
    const SourceText& text = *files.Get(file).text;
    std::vector<TextEdit> edits = GetEdits();
    edits.erase(std::remove_if(edits.begin(), edits.end(),
                    [file](const TextEdit& edit) { return edit.range.file != file; }),
        edits.end());
    return std::string(text.GetMark()) + ApplyEdits(text.GetText(), std::move(edits));
}

std::shared_ptr<const DeckSource> DeckEditor::MakeSource(std::shared_ptr<const DeckSource> others) const
{
    if (!others)
        others = std::make_shared<FileSource>();
    auto source = std::make_shared<MemorySource>(std::move(others));
    const DeckFiles& files = GetDeck().GetFiles();
    for (std::uint32_t file = 0; file < files.GetSize(); ++file)
        source->Set(files.Get(file).name, files.Get(file).text);
    for (const std::uint32_t file : GetChangedFiles())
        source->Set(files.Get(file).name, GetText(file));
    return source;
}

Deck DeckEditor::Read(const DeckLanguage& language) const
{
    return Read(language, GetDeck().GetOptions());
}

Deck DeckEditor::Read(const DeckLanguage& language, const ReadOptions& options) const
{
    return Deck::ReadFrom(
        MakeSource(options.GetSource()), GetDeck().GetFiles().Get(0).name, language, options);
}

const Deck& DeckEditor::GetDeck() const
{
    if (ContentsOf(deck_).id != id_)
        throw std::logic_error("the deck of the editor was assigned to");
    return deck_;
}

} // namespace Veld::Quor::Core::Decks
