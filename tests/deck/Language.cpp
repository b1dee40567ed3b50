#include "tests/deck/Language.h"

#include "tests/support/Documents.h"

namespace Veld::Quor::Tests {

namespace {

std::string Keyword(const std::string& name, const std::string& content = {})
{
    return "<keyword name='" + name + "'>" + content + "</keyword>\n";
}

std::string In(const std::string& section)
{
    return "<validSections><section name='" + section + "'/></validSections>";
}

std::string For(const std::string& simulator)
{
    return "<validSimulators><simulator name='" + simulator + "'/></validSimulators>";
}

std::string Described(const std::string& description)
{
    return "<description>" + description + "</description>";
}

std::string Numbers()
{
    return "<data><list><integer/></list></data>";
}

} // namespace

std::string SmallLanguage()
{
    std::string text;
    for (const char* name : {"RUNSPEC", "GRID", "EDIT", "PROPS", "REGIONS", "SOLUTION", "SUMMARY", "SCHEDULE",
             "INCLUDE", "END", "ENDINC", "SKIP", "SKIPCAR", "SKIPDUN", "ENDSKIP", "ECHO", "NOTES"})
        text += Keyword(name);
    text += Keyword("OPTIMIZE", For("Dunmere"));
    for (const char* name : {"OIL", "WATER"})
        text += Keyword(name, In("RUNSPEC"));
    text += Keyword("TITLE", In("RUNSPEC") + "<data><record><item name='T'><line/></item></record></data>");
    text += Keyword("DIMENS", In("RUNSPEC") + Numbers());
    text += Keyword("PARALLEL", In("RUNSPEC") + For("Dunmere") + Described("Splits the run."));
    text += Keyword("COMPS", In("RUNSPEC") + "<validOptions><option value='Compositional'/></validOptions>");
    text += Keyword("PORO", In("GRID") + Numbers());
    text += Keyword("PERMX",
        In("GRID") + Described("Permeability in x.")
            + "<aliases><alias name='PERMR'/><alias name='KX'><isHiddenAlias/></alias><alias "
              "name='PERMEABILITY'/></aliases>");
    text += Keyword(
        "NOWHERE", "<validSimulators><simulator name='Carrow' supportLevel='ignored'/></validSimulators>");
    text += Keyword("SPLIT", In("GRID") + For("Carrow"));
    text += Keyword("SPLIT", In("PROPS") + For("Dunmere"));
    for (const char* name : {"WELSPECS", "WELSPECL", "WCONHIST"})
        text += Keyword(name, In("SCHEDULE"));
    text += Keyword("DATES", In("SCHEDULE") + "<data><list><string/></list></data>");
    text += Keyword("UNTIL",
        In("SCHEDULE")
            + "<data><list><line/><customReadTermination><stringTermination>STOP</stringTermination></"
              "customReadTermination></list></data>");
    text += Keyword("WELSPECH", In("SCHEDULE") + "<isHidden/>");
    text += Keyword("WBHP", In("SUMMARY") + "<data><list><string/></list></data>");
    text += Keyword("TIME", In("SUMMARY"));
    text += Keyword("TIME", In("SCHEDULE"));
    text += Keyword("HOSTDATA", "<data><raw stringTermination='EndHost'/></data>");
    text += Keyword("FU*", In("SUMMARY"));
    return text;
}

Core::Keywords::KeywordSyntaxTable& SmallTable()
{
    static const LoadedTable table(SmallLanguage());
    return *table.operator->();
}

} // namespace Veld::Quor::Tests
