// The hot paths below the decks, each a few times, for callgrind to count their instructions: gate.sh runs
// it. What prepares a path is not counted.

#include "benchmarks/data/Data.h"
#include "benchmarks/syntax/Document.h"
#include "quor/Keywords.h"

#include <valgrind/callgrind.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

using namespace Veld::Quor::Benchmarks;
using namespace Veld::Quor::Core::Keywords;

namespace {

volatile std::size_t kept;

void Count(const char* path, const std::function<void()>& action)
{
    action(); // what is worked out at the first call is not of each call
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    action();
    CALLGRIND_DUMP_STATS_AT(path);
    CALLGRIND_STOP_INSTRUMENTATION;
}

void CountLoad()
{
    const DocumentFile file(200);
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.Path().c_str(), 1);
    Count("load", [] {
        KeywordSyntaxTable::Instance(true, false);
        KeywordSyntaxTable::Instance();
    });
}

void CountLookups()
{
    const auto lookUp = [](const std::string& prefix) {
        std::vector<std::string> names;
        for (int i = 0; i < 200; ++i)
            names.push_back(prefix + std::to_string(i));
        return [names] {
            const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
            std::size_t found = 0;
            for (int round = 0; round < 50; ++round) {
                for (const std::string& name : names)
                    found += table.Lookup(name, true) ? 1U : 0U;
            }
            kept = found;
        };
    };
    Count("look-up-hit", lookUp("K"));
    Count("look-up-miss", lookUp("Q"));
    Count("look-up-near-miss", lookUp("KK"));
    Count("look-up-by-wildcard", lookUp("W"));
}

void CountRecords()
{
    constexpr std::size_t count = 2000;
    Count("records-made-and-freed", [] { MakeRecords(count); });
    const Data data = MakeRecords(count);
    Count("records-copied-and-freed", [&] { data->CloneSafely(); });
    const Data copy = data->CloneSafely();
    Count("records-compared", [&] { kept = *data == *copy; });
    Count("iterator", [&] {
        std::size_t stops = 0;
        for (ConstDataIterator it(*data); it != ConstDataIterator::End(); ++it)
            stops += it->isOptional ? 1U : 2U;
        kept = stops;
    });
}

void CountValues()
{
    constexpr std::size_t count = 20'000;
    Count("reals-appended", [] {
        const Data data = MakeReals(0);
        auto& list = static_cast<IKeywordListData&>(*data);
        for (std::size_t i = 0; i < count; ++i) {
            const double value = 1.5;
            list.AddData(&value);
        }
    });
    const Data data = MakeReals(count);
    const Data copy = data->CloneSafely();
    Count("reals-compared", [&] { kept = *data == *copy; });
}

} // namespace

int main()
{
    CountLoad();
    CountLookups();
    CountRecords(); // of another document
    CountValues();
}
