#include <quor/Keywords.h>

using namespace Veld::Quor::Core::Keywords;

/// The debugger stops here, and prints the arguments. It calls no function: there are processors where it
/// can't.
void Stop(const IKeywordData& data, const IKeywordSyntax& syntax, const IKeywordDataMD& md,
    const IKeywordData& cells)
{
    static_cast<void>(data);
    static_cast<void>(syntax);
    static_cast<void>(md);
    static_cast<void>(cells);
}

int main()
{
    const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
    const IKeywordSyntax* const wells = table.Lookup("WCONPROD", SectionType::SCHEDULE, true);
    const std::unique_ptr<IKeywordData> data = KeywordDataFactory::Instance().Construct(*wells);
    IKeywordRecordData& well = AddRecord(AsList(*data));
    Set(well, "WELL", "P1");
    Set(well, "ORAT", 900.0);
    const std::unique_ptr<IKeywordData> cells =
        KeywordDataFactory::Instance().Construct(*table.Lookup("PORO", SectionType::GRID, true));
    for (const double porosity : {0.25, 0.5})
        AddValue(AsList(*cells), porosity);
    Stop(*data, *wells, *wells->GetDataMD(), *cells);
}
