#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/deck/internal/read/data/VisitData.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordIntegerMD.h"

#include <fmt/format.h>

// Any data, and what is common to its kinds.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

bool StartsWithLine(const DataPlan& plan)
{
    return !plan.items.empty() && plan.items.front().type == MDType::Line;
}

/// What the item of the name says of a size, be it in the record or in one that it holds: the length of a
/// list, or a whole number.
std::optional<long long> FindSize(const DataPlan& plan, const IKeywordRecordData& record,
    const std::string& name, SimulatorType::Enum simulator)
{
    for (std::size_t i = 0; i < plan.items.size(); ++i) {
        const DataPlan& item = plan.items[i];
        const void* const storage = record.GetData(static_cast<int>(i));
        if (item.type == MDType::Record) {
            if (const auto size =
                    FindSize(item, *static_cast<const IKeywordRecordData*>(storage), name, simulator))
                return size;
        } else if (item.md->GetName() != name) {
            continue;
        } else if (item.type == MDType::List) {
            return static_cast<const IKeywordListData*>(storage)->GetSize();
        } else if (item.type == MDType::Integer) {
            const auto& given = *static_cast<const Optional<int>*>(storage);
            const Optional<int> size = given.HasValue()
                ? given
                : static_cast<const IKeywordIntegerMD*>(item.md)->GetDefault(simulator);
            if (size.HasValue())
                return *size;
        }
    }
    return std::nullopt;
}

} // namespace

DataReader::DataReader(const Target& target, DeckText& text, FindingReporter& reporter,
    Decks::SizeOfName sizeOfName, VariableTexts variables, bool keepsValueRanges,
    std::size_t maxRepeatedValues)
    : target_(target)
    , text_(text)
    , reporter_(reporter)
    , sizeOfName_(std::move(sizeOfName))
    , variables_(std::move(variables), text, reporter)
    , values_(target, variables_)
    , words_(text, reporter, maxRepeatedValues)
    , notes_(text, keepsValueRanges)
    , order_(text, values_)
{
}

void DataReader::Read(const DataPlan& plan, const Token& keyword, IKeywordData& data, const Traits& traits,
    std::vector<RecordStart>& starts, RecordWatch* watch)
{
    keyword_ = keyword;
    root_ = &plan;
    traits_ = traits;
    watch_ = watch;
    records_.clear();
    words_.Begin(keyword);
    values_.Begin(keyword, traits.mayHaveQuantities);
    variables_.Begin();
    notes_.Begin();
    order_.Begin();
    PassRemark(plan);
    if (plan.termination == Termination::EOL && !StartsWithLine(plan) && text_.IsAtLineEnd())
        text_.PeekData(); // the line is the next one
    const bool endsByItself = plan.type != MDType::Raw && plan.termination == Termination::NONE;
    const Ended ended = ReadRoot(plan, data, starts);
    if (ended == Ended::Complete && endsByItself && words_.Peek() == Got::Slash)
        text_.NextData(); // a slash after data that end by themselves does no harm; it isn't part of them
    else if (ended == Ended::Complete && plan.type == MDType::List)
        PassSurplus(plan, static_cast<const IKeywordListData&>(data).GetSize());
    if (words_.GetRepeats() > 0)
        reporter_.Report(words_.GetRange(), Code::TooManyValues,
            fmt::format("{}: too many values (the repeat count is too large by {})", keyword_.text,
                words_.GetRepeats()));
    notesOfKeyword_ = notes_.Finish(data, {keyword.range.file, GetEnd(), 0});
}

DataReader::Ended DataReader::ReadRoot(
    const DataPlan& plan, IKeywordData& data, std::vector<RecordStart>& starts)
{
    if (plan.type == MDType::List)
        return ReadList(plan, static_cast<IKeywordListData&>(data), &starts);
    return ReadContainer(plan, data);
}

DataReader::Ended DataReader::ReadContainer(const DataPlan& plan, IKeywordData& data)
{
    return VisitData(data,
        Overloaded{[&](IKeywordRecordData& record) { return ReadRecord(plan, record); },
            [&](IKeywordListData& list) { return ReadList(plan, list, nullptr); },
            [&](IKeywordMapData& map) { return ReadMap(plan, map); },
            [&](IKeywordRawData& raw) {
                ReadRaw(plan, raw);
                return Ended::Complete;
            }});
}

/// After one word too many.
DataReader::Ended DataReader::SkipToSlash()
{
    return words_.SkipToSlash() == Got::Slash ? Ended::Complete : Unclosed(Open::Record);
}

/// Names are those of items of the records being read, the innermost first, and then those of the deck.
long long DataReader::SizeOf(const std::string* text) const
{
    if (!text)
        return unknownSize;
    return EvaluateSize(*text, [this](const std::string& name) {
        return SizeOfName(name);
    }).value_or(unknownSize);
}

std::optional<long long> DataReader::SizeOfName(const std::string& name) const
{
    for (auto record = records_.rbegin(); record != records_.rend(); ++record)
        if (const auto size = FindSize(*record->first, *record->second, name, target_.simulator))
            return size;
    return sizeOfName_(name);
}

} // namespace Veld::Quor::Core::Decks
