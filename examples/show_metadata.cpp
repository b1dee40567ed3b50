// Looks a keyword up and prints the tree of its metadata, one node a line.
//
//     show-metadata [KEYWORD]

#include "quor/Keywords.h"

#include <iostream>
#include <string>

using namespace Veld::Quor::Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

void Print(const IKeywordDataMD& md, int depth)
{
    std::cout << std::string(2 * static_cast<std::size_t>(depth), ' ') << MDType::ToString(md.GetType());
    if (!md.GetName().empty())
        std::cout << ' ' << md.GetName();
    if (!md.GetDescription().empty())
        std::cout << ": " << md.GetDescription();
    std::cout << '\n';

    // The type decides the interface.
    if (md.GetType() == MDType::Record) {
        const IKeywordRecordMD& record = AsRecord(md);
        for (int i = 0; i < record.GetSize(); ++i)
            Print(*record.GetItemMD(i), depth + 1);
    } else if (md.GetType() == MDType::List) {
        if (const IKeywordDataMD* const item = AsList(md).GetItemMD())
            Print(*item, depth + 1);
    } else if (md.GetType() == MDType::Map) {
        const IKeywordMapMD& map = AsMap(md);
        for (int i = 0; i < map.GetSize(); ++i)
            Print(*map.GetItemMD(i), depth + 1);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const std::string name = argc > 1 ? argv[1] : "WELSPECS";
    const IKeywordSyntax* const keyword = KeywordSyntaxTable::Instance().Lookup(name, true);
    if (!keyword) {
        std::cerr << "no keyword " << name << '\n';
        return 1;
    }
    std::cout << keyword->GetName() << ": " << keyword->GetDescription() << '\n';
    if (const IKeywordDataMD* const md = keyword->GetDataMD())
        Print(*md, 1);
}
