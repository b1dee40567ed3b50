#include "benchmarks/data/Data.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace Veld::Quor::Benchmarks {

using namespace Core::Keywords;

namespace {

/// RECORDS, a list of records of twelve items, and REALS, a list of reals, of a separate document.
Data MakeList(const char* name)
{
    static const KeywordSyntaxTable& table = []() -> KeywordSyntaxTable& {
        std::string items;
        for (int i = 0; i < 6; ++i)
            items += "<item><real/></item><item><integer/></item>";
        const std::filesystem::path file =
            std::filesystem::temp_directory_path() / ("quor-benchmark-" + std::to_string(::getpid()));
        std::ofstream(file)
            << "<keywords><keyword name='RECORDS'><data><list><record>" << items
            << "</record></list></data></keyword><keyword name='REALS'><data><list><real/></list>"
               "</data></keyword></keywords>";
        ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.c_str(), 1);
        KeywordSyntaxTable::Instance(true, false);
        KeywordSyntaxTable& loaded = KeywordSyntaxTable::Instance();
        std::filesystem::remove(file);
        ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
        return loaded;
    }();
    return KeywordDataFactory::Instance().Construct(*table.Lookup(name, true));
}

} // namespace

Data MakeRecords(std::size_t count)
{
    Data data = MakeList("RECORDS");
    auto& list = static_cast<IKeywordListData&>(*data);
    list.Reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        list.AddData(nullptr);
    return data;
}

void Fill(IKeywordData& records)
{
    auto& list = static_cast<IKeywordListData&>(records);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        auto& record = *static_cast<IKeywordRecordData*>(list.GetData(i));
        for (int item = 0; item < record.GetSize(); ++item) {
            if (item % 2 == 0)
                *static_cast<Core::Service::Optional<double>*>(record.GetData(item)) = item;
            else
                *static_cast<Core::Service::Optional<int>*>(record.GetData(item)) = item;
        }
    }
}

Data MakeReals(std::size_t count)
{
    const std::vector<double> values(count, 1.5);
    Data data = MakeList("REALS");
    static_cast<IKeywordListData&>(*data).AddData(values.data(), values.data() + count);
    return data;
}

} // namespace Veld::Quor::Benchmarks
