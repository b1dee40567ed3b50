#include "quor/variables/KeywordVariableUtils.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"
#include "quor/variables/IKeywordVariables.h"

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

namespace {

class VariableWalk {
public:
    VariableWalk(const IKeywordVariables& variables, IVariableProcessor& processor)
        : variables_(variables)
        , processor_(processor)
    {
    }

    void Visit(const IKeywordData& data, MDType::Enum type)
    {
        switch (type) {
        case MDType::List:
            VisitList(CastMD<const IKeywordListData>(data));
            break;
        case MDType::Record:
            VisitRecord(CastMD<const IKeywordRecordData>(data));
            break;
        case MDType::Map:
            Process(data);
            break;
        default:
            break;
        }
    }

private:
    bool Process(const IKeywordData& data)
    {
        const IKeywordDataVariables* const found = variables_.GetDataVariables(data);
        if (found)
            processor_.Process(data, *found);
        return found != nullptr;
    }

    void VisitList(const IKeywordListData& list)
    {
        if (Process(list)) // Wanted: unlike a record, a list with variables is not looked into.
            return;
        const MDType::Enum type =
            KeywordUtils::GetMDType(CastMD<const IKeywordListMD>(*list.GetMD()).GetItemMD());
        if (type != MDType::List && type != MDType::Record) // Wanted: a map is no element that counts.
            return;
        for (std::int64_t i = 0; i < list.GetSize(); ++i) {
            const void* const element = list.GetData(static_cast<std::size_t>(i));
            Visit(*static_cast<const IKeywordData*>(element), type);
        }
    }

    void VisitRecord(const IKeywordRecordData& record)
    {
        Process(record);
        const auto& md = CastMD<const IKeywordRecordMD>(*record.GetMD());
        for (int i = 0; i < record.GetSize(); ++i) {
            const MDType::Enum type = KeywordUtils::GetMDType(md.GetItemMD(i));
            if (!KeywordUtils::IsItemMDType(type) && type != MDType::None)
                Visit(*static_cast<const IKeywordData*>(record.GetData(i)), type);
        }
    }

    const IKeywordVariables& variables_;
    IVariableProcessor& processor_;
};

} // namespace

void KeywordVariableUtils::ProcessVariables(
    const IKeywordData& data, const IKeywordVariables& variables, IVariableProcessor& processor)
{
    VariableWalk(variables, processor).Visit(data, KeywordUtils::GetMDType(data.GetMD()));
}

} // namespace Veld::Quor::Core::Keywords
