#include "quor/lint/internal/KeywordValidity.h"

#include "quor/lint/internal/Reporter.h"
#include "quor/syntax/internal/SyntaxValidity.h"

#include <algorithm>

namespace Veld::Quor::Core::Lint {

namespace {

std::size_t RowOf(const Element& simulator)
{
    return static_cast<std::size_t>(SimulatorType::FromString(simulator.Get("name")));
}

std::size_t ModeOf(const Element& option)
{
    return static_cast<std::size_t>(SimulatorModeType::FromString(option.Get("value")));
}

const std::vector<Element>& ChildrenOf(const Element* element)
{
    static const std::vector<Element> none;
    return element ? element->children : none;
}

SimulatorEntry EntryOf(const Element& simulator)
{
    return {SimulatorType::FromString(simulator.Get("name")), simulator.IsFlagged("gridEditsOnly"),
        simulator.IsFlagged("classicOnly")};
}

ValidityFacts::Section SectionOf(const Element& element)
{
    ValidityFacts::Section section = {SectionType::FromString(element.Get("name")), std::nullopt};
    const auto isSimulator = [](const Element& child) { return child.tag == "simulator"; };
    if (std::none_of(element.children.begin(), element.children.end(), isSimulator))
        return section;
    section.simulators.emplace();
    ForEachBelow(element, "simulator",
        [&](const Element& simulator) { section.simulators->push_back(EntryOf(simulator)); });
    return section;
}

} // namespace

bool ValidityElements::Note(const Element& child)
{
    if (child.tag == "validSimulators")
        simulators = &child;
    else if (child.tag == "validOptions")
        options = &child;
    else if (child.tag == "validSections")
        sections = &child;
    else
        return false;
    return true;
}

ValidityElements ValidityElements::Or(const ValidityElements& other) const
{
    return {simulators ? simulators : other.simulators, options ? options : other.options,
        sections ? sections : other.sections};
}

ValidityFacts ValidityElements::ReadFacts() const
{
    ValidityFacts facts;
    for (const Element& entry : ChildrenOf(simulators)) {
        if (entry.tag != "simulator")
            continue;
        if (!facts.simulators)
            facts.simulators.emplace();
        if (entry.Get("supportLevel") != "ignored")
            facts.simulators->push_back(EntryOf(entry));
    }
    for (const Element& entry : ChildrenOf(options)) {
        if (entry.tag != "option")
            continue;
        if (!facts.modes)
            facts.modes.emplace();
        facts.modes->push_back(SimulatorModeType::FromString(entry.Get("value")));
    }
    if (sections)
        ForEachBelow(*sections, "section",
            [&](const Element& section) { facts.sections.push_back(SectionOf(section)); });
    return facts;
}

KeywordValidity::KeywordValidity(const ValidityElements& elements)
{
    const ValidityFacts facts = elements.ReadFacts();
    Keywords::SyntaxValidity validity;
    validity.Set(facts);
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        const std::size_t run = cell % runCount;
        cells.set(cell,
            validity.IsValid(SectionType::Enum(cell / runCount), SimulatorType::Enum(run / modeCount),
                SimulatorModeType::Enum(run % modeCount)));
    }
    FindModeless(facts);
}

void KeywordValidity::FindModeless(const ValidityFacts& facts)
{
    if (!facts.modes)
        return;
    const auto hasSome = [&](SimulatorType::Enum simulator) {
        return std::any_of(facts.modes->begin(), facts.modes->end(),
            [simulator](SimulatorModeType::Enum mode) { return SimulatorType::HasMode(simulator, mode); });
    };
    ValidityFacts anywhere = facts;
    anywhere.sections.clear();
    Keywords::SyntaxValidity validity;
    validity.Set(anywhere);
    for (std::size_t row = 0; row < simulatorCount; ++row)
        modeless.set(
            row, validity.IsValidSimulator(SimulatorType::Enum(row)) && !hasSome(SimulatorType::Enum(row)));
}

Runs KeywordValidity::GetRuns() const
{
    Runs all;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        if (cells[cell])
            all.set(cell % runCount);
    }
    return all;
}

bool KeywordValidity::IsValidFor(SimulatorType::Enum simulator) const
{
    const Runs all = GetRuns();
    bool any = false;
    for (std::size_t mode = 0; mode < modeCount; ++mode)
        any = any || all[RunOf(static_cast<std::size_t>(simulator), mode)];
    return any;
}

Runs ReadItemRuns(const Element& validity)
{
    Runs runs;
    for (const Element& entry : validity.children) {
        if (entry.position % 2 == 0)
            continue;
        for (std::size_t mode = 0; entry.tag == "simulator" && mode < modeCount; ++mode)
            runs.set(RunOf(RowOf(entry), mode));
        for (std::size_t row = 0; entry.tag == "option" && row < simulatorCount; ++row)
            runs.set(RunOf(row, ModeOf(entry)));
    }
    return runs;
}

std::string ListSimulators(const Simulators& simulators)
{
    std::vector<std::string> names;
    for (std::size_t row = 0; row < simulatorCount; ++row) {
        if (simulators[row])
            names.push_back(SimulatorType::ToString(SimulatorType::Enum(row)));
    }
    return Listed(names, "and");
}

} // namespace Veld::Quor::Core::Lint
