#include "tests/deck/EditorLanguage.h"

#include "tests/support/Documents.h"

namespace Veld::Quor::Tests {

namespace {

const char* const documents = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SCHEDULE'/> <keyword name='FLAG'/>
<keyword name='INCLUDE'/> <keyword name='END'/> <keyword name='SKIP'/> <keyword name='ENDSKIP'/>
<keyword name='TITLE'><data><record termination='EOL'><item name='T'><line/></item></record></data></keyword>
<keyword name='START'><data><record termination='SLASH'>
  <item name='D'><integer/></item> <item name='M'><string/></item> <item name='Y'><integer/></item>
  <item name='T' optional='true'><string/></item></record></data></keyword>
<keyword name='DATES'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='D'><integer/></item> <item name='M'><string/></item> <item name='Y'><integer/></item>
  <item name='T' optional='true'><string/></item></record></list></data></keyword>
<keyword name='BOX'><data><record termination='SLASH'>
  <item name='I1' optional='true'><integer/></item> <item name='I2' optional='true'><integer/></item>
  <item name='J1' optional='true'><integer/></item> <item name='J2' optional='true'><integer/></item>
  <item name='K1' optional='true'><integer/></item> <item name='K2' optional='true'><integer/></item>
</record></data></keyword>
<keyword name='ONELINE'><data><record termination='EOL'>
  <item name='A'><integer/></item> <item name='B' optional='true'><integer/></item>
  <item name='C' optional='true'><integer/></item></record></data></keyword>
<keyword name='ARRAY'><data><list termination='SLASH' itemsDefaultable='true'><real/></list></data></keyword>
<keyword name='WHOLE'><data><list termination='SLASH'><integer/></list></data></keyword>
<keyword name='EMPTY'><data><list termination='SLASH'><integer/></list></data></keyword>
<keyword name='NAMES'><data><list termination='SLASH'><string/></list></data></keyword>
<keyword name='LINES'><data><list termination='SLASH'><line/></list></data></keyword>
<keyword name='TEXTS'><data><list><line/><customReadTermination>
  <stringTermination>STOP</stringTermination></customReadTermination></list></data></keyword>
<keyword name='WELLS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='WELL' identifier='true'><string/></item>
  <item name='KIND' optional='true'><choice><values><value string='OIL'/><value string='WATER'>
    <aliases>
      <alias name='AQUA'>
        <isHiddenAlias/>
      </alias>
    </aliases></value></values></choice></item>
  <item name='RATE' optional='true'><real/></item>
  <item name='COUNT' optional='true'><integer/></item>
  <item name='ON' optional='true'><boolean/></item>
  <item name='NOTE' optional='true'><string/></item>
</record></list></data></keyword>
<keyword name='CELLS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='WELL' identifier='true'><string><caseSensitive/></string></item>
  <item name='I' identifier='true' optional='true'><integer/></item>
  <item name='X' identifier='true' optional='true'><real/></item>
  <item name='SKIN' optional='true'><real/></item>
</record></list></data></keyword>
<keyword name='ROWS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='A'><integer/></item> <item name='B' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='FIXED'><data><list size='2' termination='NONE'><record termination='SLASH'>
  <item name='A'><integer/></item> <item name='B' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='PAIRS'><data><list size='2' termination='NONE'><record termination='NONE'>
  <item name='A'><integer/></item> <item name='B'><integer/></item>
</record></list></data></keyword>
<keyword name='REMARKS'><data><list termination='SLASH'><record termination='EOL'>
  <item name='N'><integer/></item> <item name='T' optional='true'><line/></item>
</record></list></data></keyword>
<keyword name='ROW'><data><list termination='SLASH'><record termination='NONE'>
  <item name='A'><integer/></item> <item name='B'><integer/></item></record></list></data></keyword>
<keyword name='TABLES'><data><list size='2' termination='NONE'><list termination='SLASH'><record termination='NONE'>
  <item name='X'><real/></item> <item name='Y'><real><default type='calculated'/></real></item>
</record></list></list></data></keyword>
<keyword name='NESTED'><data><list termination='SLASH'><record termination='NONE'>
  <item name='HEAD'><real/></item>
  <item name='ROWS'><list termination='SLASH'><record termination='NONE'>
    <item name='P.Q'><real/></item><item><real/></item></record></list></item>
</record></list></data></keyword>
<keyword name='PARTS'><data><record termination='NONE'>
  <item name='FIRST'><record termination='SLASH'>
    <item name='A'><integer/></item><item name='B' optional='true'><integer/></item></record></item>
  <item name='SECOND'><record termination='SLASH'>
    <item name='A' optional='true'><integer/></item></record></item>
  <item name='THIRD'><integer/></item></record></data></keyword>
<keyword name='MIXED'><data><record termination='SLASH'>
  <item name='FIRST'><record termination='NONE'>
    <item name='A'><integer/></item><item name='B' optional='true'><integer/></item>
    <item name='C' optional='true'><integer/></item></record></item>
  <item name='LAST' optional='true'><integer/></item></record></data></keyword>
<keyword name='MULTSAVE'><data><record termination='SLASH'>
  <item name='A' optional='true'><integer/></item></record></data></keyword>
<keyword name='MAP'><data><map><assignment name='A'><integer/></assignment></map></data></keyword>
<keyword name='RAW'><data><raw stringTermination='ENDRAW'/></data></keyword>
)";

} // namespace

const Core::Decks::DeckLanguage& GetEditorLanguage()
{
    static const LoadedTable table(documents);
    static const Core::Decks::DeckLanguage language(*table.operator->());
    return language;
}

Core::Decks::Deck ReadEditable(const std::string& text)
{
    return Core::Decks::Deck::ReadText(
        "RUNSPEC\n" + text, GetEditorLanguage(), Core::Decks::ReadOptions().SetEditable(true));
}

} // namespace Veld::Quor::Tests
