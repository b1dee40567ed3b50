// Creates the data of a keyword that is a list of records, and fills one record, each value by the name of its
// item. Items that are not set have no value: defaults are in the metadata.

#include "quor/Keywords.h"

#include <iostream>
#include <stdexcept>
#include <string>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;

namespace {

/// Position of an item of the record.
int Find(const IKeywordRecordMD& md, const std::string& name)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        if (md.GetItemMD(i)->GetName() == name)
            return i;
    }
    throw std::out_of_range("no item " + name);
}

/// `T` must be the one that the item's metadata ask for.
template <class T>
Service::Optional<T>& Item(IKeywordRecordData& record, const std::string& name)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    return *static_cast<Service::Optional<T>*>(record.GetData(Find(md, name)));
}

} // namespace

int main()
{
    const IKeywordSyntax& dates = *KeywordSyntaxTable::Instance().Lookup("DATES", true);
    const auto data = KeywordDataFactory::Instance().Construct(dates);
    auto& list = static_cast<IKeywordListData&>(*data);

    auto& record = *static_cast<IKeywordRecordData*>(list.AddData(nullptr));
    Item<int>(record, "DAY") = 14;
    Item<std::string>(record, "MONTH") = std::string("JLY");
    Item<int>(record, "YEAR") = 2031;

    std::cout << list.GetSize() << " record of " << record.GetSize() << " items\n"
              << "DAY " << Item<int>(record, "DAY").Value() << '\n'
              << "TIME " << Item<std::string>(record, "TIME").ValueOr("not given") << '\n';
}
