// The load of a table, beside a bare Xerces-C++ parse of the same file. The two take turns, so that what
// disturbs the machine disturbs both, and the best turn of each counts.

#include "quor/Keywords.h"

#include <benchmark/benchmark.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <malloc.h>
#include <unistd.h>

using namespace Veld::Quor::Core;

namespace {

using Seconds = std::chrono::duration<double>;

/// What is allocated, large blocks included.
double AllocatedBytes()
{
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Eight characters at most, as the language has it.
std::string NameOf(int number)
{
    return std::string("K").append(std::to_string(number));
}

std::string KeywordText(int number)
{
    std::string text = "  <keyword name=\"";
    text.append(NameOf(number))
        .append(R"(">
    <description>Rate and pressure at which a group of wells is held, from this date on.</description>
    <validSimulators>
      <simulator name="Dunmere"/>
      <simulator name="Wend" gridEditsOnly="true"/>
    </validSimulators>
    <validOptions>
      <option value="BlackOil"/>
    </validOptions>
    <validSections>
      <section name="SCHEDULE"/>
    </validSections>
    <aliases>
      <alias name="A)")
        .append(std::to_string(number))
        .append(R"(">
        <isHiddenAlias/>
      </alias>
    </aliases>
    <data>
      <list termination="SLASH">
        <record termination="SLASH">
          <item name="GROUP" identifier="true">
            <string>
              <description>Name of the group.</description>
              <lengthLimit>8</lengthLimit>
            </string>
          </item>
          <item name="CELLS" optional="true">
            <integer>
              <description>Number of cells.</description>
              <min val="1"/>
              <default type="specified" val="1"/>
            </integer>
          </item>
          <item name="RATE" optional="true">
            <real>
              <description>Rate at surface.</description>
              <quantity name="liquid_surface_rate"/>
              <min val="0"/>
              <default type="specified" val="1e5">
                <override name="Sedge" type="specified" val="2e5"/>
                <override name="Hallow" type="calculated"/>
              </default>
            </real>
          </item>
          <item name="CONTROL" optional="true">
            <choice>
              <description>What holds the group.</description>
              <values>
                <value string="RATE"/>
                <value string="PRESSURE">
                  <aliases>
                    <alias name="BHP"/>
                  </aliases>
                </value>
                <value string="NONE"/>
              </values>
              <default type="specified" val="NONE"/>
            </choice>
          </item>
          <item name="TABLE">
            <list termination="SLASH">
              <record>
                <item name="X" columnConstraint="strictly_increasing">
                  <real>
                    <quantity name="pressure"/>
                  </real>
                </item>
                <item name="Y">
                  <real/>
                </item>
              </record>
            </list>
          </item>
        </record>
      </list>
    </data>
  </keyword>
)");
    return text;
}

class DocumentFile {
public:
    explicit DocumentFile(int keywords)
        : path_(std::filesystem::temp_directory_path() / ("quor-load-" + std::to_string(::getpid()) + ".xml"))
    {
        std::ofstream stream(path_);
        stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<keywords>\n";
        for (int i = 0; i < keywords; ++i)
            stream << KeywordText(i);
        stream << "</keywords>\n";
    }
    ~DocumentFile() { std::filesystem::remove(path_); }
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;

    std::string Path() const { return path_.string(); }
    double Size() const { return static_cast<double>(std::filesystem::file_size(path_)); }

private:
    std::filesystem::path path_;
};

template <class Action>
Seconds TimeOf(Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::steady_clock::now() - start;
}

bool HasAll(int keywords)
{
    Keywords::KeywordSyntaxTable& table = Keywords::KeywordSyntaxTable::Instance();
    for (int i = 0; i < keywords; ++i) {
        const Keywords::IKeywordSyntax* const syntax = table.Lookup(NameOf(i), false);
        if (!syntax || syntax->GetName() != NameOf(i))
            return false;
    }
    return true;
}

void Parse(const std::string& path)
{
    xercesc::XercesDOMParser parser;
    parser.parse(path.c_str());
    benchmark::DoNotOptimize(parser.getDocument());
}

void LoadTable(benchmark::State& state)
{
    const int keywords = static_cast<int>(state.range(0));
    const DocumentFile file(keywords);
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.Path().c_str(), 1);
    Service::XML::Initialise::Init();
    Keywords::KeywordSyntaxTable::Instance(true, false);
    Parse(file.Path()); // so that neither of the two gets its memory from the system
    Seconds load = Seconds::max();
    Seconds parse = Seconds::max();
    double bytes = 0;
    for ([[maybe_unused]] auto turn : state) {
        parse = std::min(parse, TimeOf([&file] { Parse(file.Path()); }));
        const double before = AllocatedBytes();
        const Seconds one = TimeOf([] { Keywords::KeywordSyntaxTable::Instance(); });
        bytes = AllocatedBytes() - before;
        state.SetIterationTime(one.count());
        load = std::min(load, one);
        if (!HasAll(keywords)) {
            state.SkipWithError("a keyword is not in the table");
            break;
        }
        Keywords::KeywordSyntaxTable::Instance(true, false);
    }
    state.counters["us_a_keyword"] = load.count() * 1e6 / keywords;
    state.counters["parse_us_a_keyword"] = parse.count() * 1e6 / keywords;
    state.counters["to_parse"] = load / parse;
    state.counters["bytes_a_keyword"] = bytes / keywords;
    state.counters["MB_a_second"] = file.Size() / load.count() / 1e6;
}

BENCHMARK(LoadTable)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Iterations(5)->UseManualTime()->Unit(
    benchmark::kMillisecond);

} // namespace
