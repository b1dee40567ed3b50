#include "tools/quor/dump/DumpNames.h"

#include "quor/metadata/IKeywordRecordMD.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

bool IsContainer(const IKeywordDataMD& md)
{
    using MDType = IKeywordDataMD::MDType;
    const MDType::Enum type = md.GetType();
    return type == MDType::Record || type == MDType::List || type == MDType::Map || type == MDType::Raw;
}

std::vector<std::string> MembersOf(const IKeywordRecordMD& md)
{
    std::vector<std::string> members;
    for (int i = 0; i < md.GetSize(); ++i) {
        const std::string& name = md.GetItemMD(i)->GetName();
        const bool isTaken = std::find(members.begin(), members.end(), name) != members.end();
        members.push_back(name.empty() || isTaken ? fmt::format("#{}", i + 1) : name);
    }
    return members;
}

} // namespace Veld::Quor::Tools
