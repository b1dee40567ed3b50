#include "quor/lint/internal/KeywordValidity.h"

#include "quor/lint/internal/Reporter.h"

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

/// Sets the simulator of an entry: Wend includes its variants, unless the entry is for one of them.
template <class Set>
void Apply(const Element& entry, const Set& set)
{
    const std::size_t row = RowOf(entry);
    set(row, true);
    if (row != SimulatorType::Wend)
        return;
    set(SimulatorType::Wend_CLASSIC, !entry.IsFlagged("gridEditsOnly"));
    set(SimulatorType::Wend_GE, !entry.IsFlagged("classicOnly"));
}

const std::vector<Element>& ChildrenOf(const Element* element)
{
    static const std::vector<Element> none;
    return element ? element->children : none;
}

Simulators ReadSimulators(const Element* element)
{
    Simulators simulators;
    bool any = false;
    for (const Element& entry : ChildrenOf(element)) {
        if (entry.tag != "simulator")
            continue;
        any = true;
        if (entry.Get("supportLevel") != "ignored")
            Apply(entry, [&](std::size_t row, bool value) { simulators.set(row, value); });
    }
    return any ? simulators : simulators.set();
}

std::bitset<modeCount> ReadModes(const Element* element)
{
    std::bitset<modeCount> modes;
    for (const Element& entry : ChildrenOf(element)) {
        if (entry.tag == "option")
            modes.set(ModeOf(entry));
    }
    return modes.any() ? modes : modes.set();
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

KeywordValidity::KeywordValidity(const ValidityElements& elements)
{
    const Simulators simulators = ReadSimulators(elements.simulators);
    const auto modes = ReadModes(elements.options);
    for (std::size_t row = 0; row < simulatorCount; ++row) {
        std::bitset<modeCount> own;
        for (std::size_t mode = 0; mode < modeCount; ++mode)
            own.set(mode, SimulatorType::HasMode(SimulatorType::Enum(row), SimulatorModeType::Enum(mode)));
        modeless.set(row, simulators[row] && (own & modes).none());
        for (std::size_t mode = 0; mode < modeCount; ++mode)
            runs.set(RunOf(row, mode), simulators[row] && own[mode] && (modes[mode] || modeless[row]));
    }

    const auto set = [&](std::size_t section, std::size_t row, bool value) {
        for (std::size_t mode = 0; mode < modeCount; ++mode)
            cells.set(section * runs.size() + RunOf(row, mode), value && runs[RunOf(row, mode)]);
    };
    const auto setAll = [&](std::size_t section) {
        for (std::size_t row = 0; row < simulatorCount; ++row)
            set(section, row, true);
    };
    bool any = false;
    if (elements.sections) {
        ForEachBelow(*elements.sections, "section", [&](const Element& entry) {
            any = true;
            const auto section = static_cast<std::size_t>(SectionType::FromString(entry.Get("name")));
            bool hasSimulators = false;
            for (const Element& child : entry.children)
                hasSimulators = hasSimulators || child.tag == "simulator";
            if (!hasSimulators)
                return setAll(section);
            ForEachBelow(entry, "simulator", [&](const Element& simulator) {
                Apply(simulator, [&](std::size_t row, bool value) { set(section, row, value); });
            });
        });
    }
    for (std::size_t section = 0; !any && section < sectionCount; ++section)
        setAll(section);
}

Runs KeywordValidity::GetRuns() const
{
    Runs all;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        if (cells[cell])
            all.set(cell % all.size());
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
