// Walks the data of any keyword and prints each value with its path and type.

#include "quor/Keywords.h"

#include <iostream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
void PrintValue(const ConstDataIterator::ValueType& stop)
{
    if (!stop.isOptional) {
        std::cout << *static_cast<const T*>(stop.value);
        return;
    }
    const auto& value = *static_cast<const Service::Optional<T>*>(stop.value);
    if (value)
        std::cout << *value;
    else
        std::cout << "not given";
}

void Print(const ConstDataIterator::ValueType& stop, const std::string& container)
{
    std::cout << container << '.' << (stop.md->GetName().empty() ? "value" : stop.md->GetName());
    switch (stop.md->GetType()) {
    case MDType::Assignment:
    case MDType::Choice:
    case MDType::Integer:
        std::cout << " integer ";
        PrintValue<int>(stop);
        break;
    case MDType::Real:
        std::cout << " real ";
        PrintValue<double>(stop);
        break;
    case MDType::Line:
    case MDType::String:
        std::cout << " text ";
        PrintValue<std::string>(stop);
        break;
    default:
        std::cout << " of another type";
    }
    std::cout << '\n';
}

void Walk(const IKeywordSyntax& keyword, const IKeywordData& data)
{
    std::string container;
    int record = 0;
    for (ConstDataIterator it(data); it != ConstDataIterator::End(); ++it) {
        switch (it->md->GetType()) {
        case MDType::List:
        case MDType::Map:
            container = keyword.GetName();
            break;
        case MDType::Record:
            container = keyword.GetName() + '[' + std::to_string(record++) + ']';
            break;
        default:
            Print(**it, container);
        }
    }
}

} // namespace

int main()
{
    const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();

    const IKeywordSyntax& tstep = *table.Lookup("TSTEP", true);
    const auto steps = KeywordDataFactory::Instance().Construct(tstep);
    const std::vector<double> days{31, 28.5};
    static_cast<IKeywordListData&>(*steps).AddData(days.data(), days.data() + days.size());
    Walk(tstep, *steps);

    const IKeywordSyntax& dates = *table.Lookup("DATES", true);
    const auto list = KeywordDataFactory::Instance().Construct(dates);
    auto& record = *static_cast<IKeywordRecordData*>(static_cast<IKeywordListData&>(*list).AddData(nullptr));
    *static_cast<Service::Optional<int>*>(record.GetData(0)) = 14;
    Walk(dates, *list);
}
