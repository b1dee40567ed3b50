#include "tools/deck/DataState.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/deck/LineText.h"

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// The word that ends raw text, in upper case; empty if no word does.
std::string RawEndOf(const IKeywordDataMD& data)
{
    if (data.GetType() != MDType::Raw)
        return {};
    const std::string end = static_cast<const IKeywordRawMD&>(data).GetTerminationString();
    return FindLeadingWord(end) == end ? ToUpper(end) : "";
}

/// Whether a whole line is the first that belongs to the keyword.
bool StartsWithLine(const IKeywordDataMD& data)
{
    if (data.GetType() != MDType::Record)
        return false;
    const auto& record = static_cast<const IKeywordRecordMD&>(data);
    return record.GetSize() > 0 && KeywordUtils::GetMDType(record.GetItemMD(0)) == MDType::Line;
}

const ICustomReadTermination* EndWordsOf(const IKeywordDataMD& data)
{
    return data.GetType() == MDType::List
        ? static_cast<const IKeywordListMD&>(data).GetCustomReadTermination()
        : nullptr;
}

} // namespace

void DataState::Begin(const IKeywordSyntax* syntax)
{
    Close();
    const IKeywordDataMD* const data = syntax ? syntax->GetDataMD() : nullptr;
    if (!data)
        return;
    isOpen_ = true;
    endWords_ = EndWordsOf(*data);
    rawEnd_ = RawEndOf(*data);
    expectsText_ = !rawEnd_.empty() || StartsWithLine(*data);
    isDirectlyBehind_ = expectsText_;
}

void DataState::AddText(std::string_view line)
{
    if (!rawEnd_.empty()) {
        if (ToUpper(FindLeadingWord(line)) == rawEnd_)
            Close();
        return;
    }
    isDirectlyBehind_ = false;
    if (!IsComment(line))
        Close();
}

void DataState::Add(std::string_view line)
{
    if (!IsEmpty(line))
        lastLine_ = line;
}

bool DataState::IsEndOfData(std::string_view word) const
{
    bool ignored = false;
    return endWords_ && endWords_->Matches(std::string(word), ignored);
}

void DataState::Close()
{
    lastLine_ = {};
    isOpen_ = false;
    expectsText_ = false;
    rawEnd_.clear();
    endWords_ = nullptr;
}

bool DataState::MayKeywordStand() const
{
    return lastLine_.empty() ? !isOpen_ : HasEndingSlash(lastLine_);
}

void DataState::Settle()
{
    isOpen_ = !MayKeywordStand();
    lastLine_ = {};
}

} // namespace Veld::Quor::Tools::Deck
