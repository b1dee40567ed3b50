#include "benchmarks/syntax/Document.h"

#include <fstream>

#include <unistd.h>

namespace Veld::Quor::Benchmarks {

namespace {

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

} // namespace

DocumentFile::DocumentFile(int keywords)
    : path_(std::filesystem::temp_directory_path() / ("quor-load-" + std::to_string(::getpid()) + ".xml"))
{
    std::ofstream stream(path_);
    stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<keywords>\n";
    for (int i = 0; i < keywords; ++i)
        stream << KeywordText(i);
    stream << "<keyword name=\"W*\"/><keyword name=\"KKA*\"/></keywords>\n";
}

DocumentFile::~DocumentFile()
{
    std::filesystem::remove(path_);
}

} // namespace Veld::Quor::Benchmarks
