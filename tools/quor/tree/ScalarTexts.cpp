#include "tools/quor/tree/ScalarTexts.h"

#include "quor/metadata/VisitMD.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/Defaults.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/ModeWords.h"
#include "tools/quor/tree/UnitTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

/// How reals are written.
using RealText = std::function<std::string(double)>;

std::string ValueText(const Value& value, MDType::Enum type, const RealText& realText)
{
    return std::visit(Overloaded{[](std::monostate) { return std::string("an unknown choice"); },
                          [](bool flag) { return std::string(flag ? "YES" : "NO"); },
                          [type](const std::string& text) {
                              return type == MDType::Choice ? text : fmt::format("'{}'", text);
                          },
                          [&realText](double number) { return realText(number); },
                          [](int number) { return fmt::format("{}", number); }},
        value);
}

std::string ValueText(const Default& value, MDType::Enum type, const RealText& realText)
{
    switch (value.type) {
    case Default::Type::None:
        return "none";
    case Default::Type::Calculated:
        return "calculated";
    case Default::Type::Specified:
        break;
    }
    return ValueText(value.value, type, realText);
}

void AddDefaults(ScalarTexts& texts, const Defaults& defaults, MDType::Enum type, const RealText& realText)
{
    std::vector<SimulatorDefault> own;
    for (const SimulatorDefault& row : defaults.simulators) {
        if (row.isOfKeyword)
            own.push_back(row);
    }
    const bool isOne = !own.empty()
        && std::all_of(own.begin(), own.end(),
            [&own](const SimulatorDefault& row) { return row.value == own.front().value; });
    const Default& main = isOne ? own.front().value : defaults.keyword;
    Words others;
    for (const SimulatorDefault& row : own) {
        if (!(row.value == main))
            others.push_back(fmt::format(
                "{} {}", SimulatorType::ToString(row.simulator), ValueText(row.value, type, realText)));
    }
    texts.defaultText = ValueText(main, type, realText);
    texts.otherDefaults = Join(others);
}

template <class MD>
std::string LimitsText(const MD& md)
{
    const auto min = md.GetMin();
    const auto max = md.GetMax();
    if (min && max)
        return fmt::format("{} to {}", *min, *max);
    if (min)
        return fmt::format(">= {}", *min);
    return max ? fmt::format("<= {}", *max) : "";
}

std::string AliasesText(const IKeywordChoiceMD& md, int choice, bool areHidden, const char* label)
{
    Words names;
    for (const auto& [name, isHidden] : AliasesOf(md, choice)) {
        if (isHidden == areHidden)
            names.push_back(name);
    }
    return names.empty() ? "" : label + Join(names);
}

std::string ChoicesText(const IKeywordChoiceMD& md, const ModeTable& keyword)
{
    Words texts;
    for (int i = 0; i < md.NumChoices(); ++i) {
        Words notes;
        for (std::string note :
            {AliasesText(md, i, false, "alias "), AliasesText(md, i, true, "hidden alias "),
                RestrictionsText(ModesOf(md.GetValidity(i)), ModesOf(md.GetUnsupportedBy(i)), keyword)}) {
            if (!note.empty())
                notes.push_back(std::move(note));
        }
        const std::string& word = md.GetChoice(i);
        const std::string text = word.find_first_not_of(' ') == std::string::npos ? "(blank)" : word;
        texts.push_back(notes.empty() ? text : fmt::format("{} ({})", text, Join(notes, "; ")));
    }
    return Join(texts);
}

/// What only some types have; nothing for the others.
struct OwnTexts {
    ScalarTexts& texts;
    const ModeTable& keyword;
    std::optional<UnitSystem::Enum> units;

    void operator()(const IKeywordAssignmentMD& md) const { texts.limits = LimitsText(md); }
    void operator()(const IKeywordIntegerMD& md) const { texts.limits = LimitsText(md); }
    void operator()(const IKeywordRealMD& md) const
    {
        texts.limits = LimitsText(md);
        if (const std::string* measurement = md.GetMeasurement()) {
            texts.measurement = *measurement;
            texts.unit = units ? UnitText(*measurement, *units) : "";
        }
    }
    void operator()(const IKeywordChoiceMD& md) const { texts.choices = ChoicesText(md, keyword); }
    void operator()(const IKeywordStringMD& md) const
    {
        texts.limits = fmt::format("<= {} chars", md.LimitLengthTo());
        if (md.IsCaseSensitive())
            texts.marks.push_back("case-sensitive");
        if (md.CanContainComma())
            texts.marks.push_back("may contain comma");
    }
    void operator()(const IKeywordDataMD&) const { }
};

} // namespace

ScalarTexts TextsOf(
    const IKeywordDataMD& scalar, const ModeTable& keyword, std::optional<UnitSystem::Enum> units)
{
    ScalarTexts texts;
    VisitMD(scalar, [&](const auto& md) {
        OwnTexts{texts, keyword, units}(md);
        if constexpr (requires { md.GetDefault(SimulatorType::Any); })
            AddDefaults(texts, DefaultsOf(md, keyword), md.GetType(),
                [&](double number) { return AmountText(texts.measurement, number, units); });
    });
    return texts;
}

} // namespace Veld::Quor::Tools
