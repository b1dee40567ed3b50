// Creates the data of a keyword that is a list of records, and fills one record, each value by the name of
// its item. Items that are not set have no value: defaults are in the metadata.

#include "quor/Keywords.h"

#include <iostream>
#include <string>

using namespace Veld::Quor::Core::Keywords;

int main()
{
    const IKeywordSyntax& dates = *KeywordSyntaxTable::Instance().Lookup("DATES", true);
    const auto data = KeywordDataFactory::Instance().Construct(dates);
    IKeywordListData& list = AsList(*data);

    IKeywordRecordData& record = AddRecord(list);
    Set(record, "DAY", 14);
    Set(record, "MONTH", "JLY");
    Set(record, "YEAR", 2031);

    std::cout << list.GetSize() << " record of " << record.GetSize() << " items\n"
              << "DAY " << Get<int>(record, "DAY").Value() << '\n'
              << "TIME " << Get<std::string>(record, "TIME").ValueOr("not given") << '\n';
}
