#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordListMD.h"

#include <string_view>

// Lists of records, which may be long.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

/// Those that need no thought, up to the first that does.
void DataReader::ReadPlainRecords(
    const DataPlan& plan, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    const bool mayBePlain = plan.termination == DataPlan::Termination::SLASH && plan.items.front().isPlain
        && !ListMD(plan).GetCustomReadTermination() && !notes_.KeepsValueRanges();
    if (!mayBePlain || words_.GetRepeats() > 0)
        return;
    while (text_.SkipToPlainData()) {
        const TextRange begin = text_.RangeOf(text_.GetRest().substr(0, 1));
        if (!TakePlainRecord(plan.items.front(), list))
            return;
        if (starts) {
            starts->push_back(RecordStart::Of(begin));
            if (watch_)
                watch_->Add(list);
        }
    }
}

bool DataReader::TakePlainRecord(const DataPlan& plan, IKeywordListData& list)
{
    const std::string_view text = text_.GetRest();
    if (text.front() == '/')
        return false;
    auto& record = static_cast<IKeywordRecordData&>(*static_cast<IKeywordData*>(list.AddData(nullptr)));
    if (!plain_.Read(text, plan, record) || !words_.MayRepeatDefaults(plain_.GetRepeated())) {
        list.RemoveData(static_cast<std::size_t>(list.GetSize()) - 1);
        return false;
    }
    words_.TakePlain(plain_.GetGiven(), text_.RangeOf(plain_.GetLast()));
    notes_.PassPlain(plain_.GetGiven());
    words_.TakeSlash(text_.TakeToSlash(plain_.GetLength()));
    notes_.PassPlain(plan.slots - plain_.GetGiven());
    notes_.PassEnd();
    return true;
}

} // namespace Veld::Quor::Core::Decks
