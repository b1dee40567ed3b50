// Walks the data of any keyword and prints each value with its path and type.

#include "quor/Keywords.h"

#include <iostream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
void PrintValue(const ConstDataIterator::ValueType& stop)
{
    if (const auto value = Get<T>(stop))
        std::cout << *value;
    else
        std::cout << "not given";
}

void Print(const ConstDataIterator::ValueType& stop, const std::string& container)
{
    std::cout << container << '.' << (stop.md->GetName().empty() ? "value" : stop.md->GetName()) << ' '
              << MDType::ToString(stop.md->GetType()) << ' ';
    switch (stop.md->GetType()) {
    case MDType::Choice:
        std::cout << GetChoice(stop).ValueOr("not given");
        break;
    case MDType::Assignment:
    case MDType::Integer:
        PrintValue<int>(stop);
        break;
    case MDType::Real:
        PrintValue<double>(stop);
        break;
    case MDType::Line:
    case MDType::String:
        PrintValue<std::string>(stop);
        break;
    default:
        std::cout << "of another type";
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
    AddValues(AsList(*steps), days.data(), days.size());
    Walk(tstep, *steps);

    const IKeywordSyntax& dates = *table.Lookup("DATES", true);
    const auto list = KeywordDataFactory::Instance().Construct(dates);
    Set(AddRecord(AsList(*list)), "DAY", 14);
    Walk(dates, *list);
}
