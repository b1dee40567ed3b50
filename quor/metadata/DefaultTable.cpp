#include "quor/metadata/DefaultTable.h"

#include "quor/foundation/service/EnumInfo.h"

namespace Veld::Quor::Core::Keywords {

const std::string& DefaultType::ToString(Enum value)
{
    static const auto& rows = *new std::vector<Service::EnumInfo<DefaultType>>{
        {Calculated, "calculated"}, {Specified, "specified"}, {NoDefault, "no default"}};
    return Service::FindText(rows, value);
}

} // namespace Veld::Quor::Core::Keywords
