#include "quor/syntax/SummaryCategories.h"

#include "quor/foundation/service/EnumInfo.h"

namespace Veld::Quor::Core::Keywords {

namespace {

template <class T>
using Rows = std::vector<Service::EnumInfo<T>>;

const Rows<SummaryEntity>& SummaryEntityRows()
{
    static const auto& rows = *new Rows<SummaryEntity>{{SummaryEntity::Aquifer, "Aquifer"},
        {SummaryEntity::AquiferGradient, "Aquifer Gradient"}, {SummaryEntity::Block, "Block"},
        {SummaryEntity::BlockGradient, "Block Gradient"}, {SummaryEntity::Completion, "Completion"},
        {SummaryEntity::ConductiveFault, "Conductive Fault"}, {SummaryEntity::Field, "Field"},
        {SummaryEntity::General, "General"}, {SummaryEntity::Group, "Group"},
        {SummaryEntity::GroupGradient, "Group Gradient"}, {SummaryEntity::LGRBlock, "LGR Block"},
        {SummaryEntity::LGRBlockGradient, "LGR Block Gradient"},
        {SummaryEntity::LGRCompletion, "LGR Completion"}, {SummaryEntity::LGRWell, "LGR Well"},
        {SummaryEntity::LGRWellGradient, "LGR Well Gradient"}, {SummaryEntity::Region, "Region"},
        {SummaryEntity::RegionFlow, "Region Flow"}, {SummaryEntity::Segment, "Segment"},
        {SummaryEntity::Well, "Well"}, {SummaryEntity::WellGradient, "Well Gradient"}};
    return rows;
}

const Rows<SummaryFlow>& SummaryFlowRows()
{
    static const auto& rows = *new Rows<SummaryFlow>{
        {SummaryFlow::Injection, "Injection"}, {SummaryFlow::Production, "Production"}};
    return rows;
}

const Rows<SummaryFunction>& SummaryFunctionRows()
{
    static const auto& rows = *new Rows<SummaryFunction>{{SummaryFunction::Historical, "Historical"},
        {SummaryFunction::Rate, "Rate"}, {SummaryFunction::Total, "Total"}};
    return rows;
}

const Rows<SummaryOption>& SummaryOptionRows()
{
    static const auto& rows =
        *new Rows<SummaryOption>{{SummaryOption::API, "API"}, {SummaryOption::Aquifer, "Aquifer"},
            {SummaryOption::ConductiveFault, "Conductive Fault"}, {SummaryOption::Flow, "Flow"}};
    return rows;
}

/// Wanted: a document says "Aqui" for the aquifer option, and "Aquifer" is unknown there, though it is an
/// entity.
const Rows<SummaryOption>& SummaryOptionDocumentRows()
{
    static const auto& rows = *new Rows<SummaryOption>([] {
        Rows<SummaryOption> texts = SummaryOptionRows();
        texts[SummaryOption::Aquifer].text = "Aqui";
        return texts;
    }());
    return rows;
}

const Rows<SummaryPhase>& SummaryPhaseRows()
{
    static const auto& rows =
        *new Rows<SummaryPhase>{{SummaryPhase::Gas, "Gas"}, {SummaryPhase::Liquid, "Liquid"},
            {SummaryPhase::Oil, "Oil"}, {SummaryPhase::Volume, "Volume"}, {SummaryPhase::Water, "Water"}};
    return rows;
}

} // namespace

SummaryEntity::Enum SummaryEntity::FromString(const std::string& text, bool* found)
{
    return Service::FindByText(SummaryEntityRows(), text, found);
}

SummaryEntity::Enum SummaryEntity::FromString(const char* text, bool* found)
{
    return Service::FindByText(SummaryEntityRows(), text, found);
}

const std::string& SummaryEntity::ToString(Enum value)
{
    return Service::FindText(SummaryEntityRows(), value);
}

SummaryFlow::Enum SummaryFlow::FromString(const std::string& text, bool* found)
{
    return Service::FindByText(SummaryFlowRows(), text, found);
}

SummaryFlow::Enum SummaryFlow::FromString(const char* text, bool* found)
{
    return Service::FindByText(SummaryFlowRows(), text, found);
}

const std::string& SummaryFlow::ToString(Enum value)
{
    return Service::FindText(SummaryFlowRows(), value);
}

SummaryFunction::Enum SummaryFunction::FromString(const std::string& text, bool* found)
{
    return Service::FindByText(SummaryFunctionRows(), text, found);
}

SummaryFunction::Enum SummaryFunction::FromString(const char* text, bool* found)
{
    return Service::FindByText(SummaryFunctionRows(), text, found);
}

const std::string& SummaryFunction::ToString(Enum value)
{
    return Service::FindText(SummaryFunctionRows(), value);
}

SummaryOption::Enum SummaryOption::FromString(const std::string& text, bool* found)
{
    return Service::FindByText(SummaryOptionDocumentRows(), text, found);
}

SummaryOption::Enum SummaryOption::FromString(const char* text, bool* found)
{
    return Service::FindByText(SummaryOptionDocumentRows(), text, found);
}

const std::string& SummaryOption::ToString(Enum value)
{
    return Service::FindText(SummaryOptionRows(), value);
}

SummaryPhase::Enum SummaryPhase::FromString(const std::string& text, bool* found)
{
    return Service::FindByText(SummaryPhaseRows(), text, found);
}

SummaryPhase::Enum SummaryPhase::FromString(const char* text, bool* found)
{
    return Service::FindByText(SummaryPhaseRows(), text, found);
}

const std::string& SummaryPhase::ToString(Enum value)
{
    return Service::FindText(SummaryPhaseRows(), value);
}

} // namespace Veld::Quor::Core::Keywords
