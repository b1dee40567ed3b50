#include "quor/foundation/SectionType.h"

namespace Veld::Quor::Core::Keywords {

const std::vector<Service::EnumInfo<SectionType>>& SectionType::EnumInfos()
{ // never freed: a host may ask from a destructor at exit
    static const auto& rows = *new std::vector<Service::EnumInfo<SectionType>>{{RUNSPEC, "RUNSPEC"},
        {GRID, "GRID"}, {EDIT, "EDIT"}, {PROPS, "PROPS"}, {REGIONS, "REGIONS"}, {SOLUTION, "SOLUTION"},
        {SUMMARY, "SUMMARY"}, {SCHEDULE, "SCHEDULE"}, {OPTIMIZE, "OPTIMIZE"}};
    return rows;
}

SectionType::Enum SectionType::FromString(const std::string& name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

SectionType::Enum SectionType::FromString(const char* name, bool* found)
{
    return Service::FindByText(EnumInfos(), name, found);
}

const std::string& SectionType::ToString(Enum value)
{
    return Service::FindText(EnumInfos(), value);
}

} // namespace Veld::Quor::Core::Keywords
