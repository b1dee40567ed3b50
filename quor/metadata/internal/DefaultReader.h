#pragma once

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/DefaultTable.h"

#include <string>
#include <vector>

/// How a default is read, for all scalars. The classes differ in how they parse a value, and the choice in
/// when.
namespace Veld::Quor::Core::Keywords {

/// What the type attribute of a default or an override says; `DefaultType::None` for any other text.
DefaultType::Enum ReadDefaultType(const TreeElement& element);

/// Fails if a calculated default has a value, or a specified one has none.
void CheckDefaultValue(const TreeElement& element, DefaultType::Enum type);

/// The type, checked against the value; fails for a text that is no type.
DefaultType::Enum ReadCheckedDefaultType(const TreeElement& element);

[[noreturn]] void FailDefaultType();

inline std::string DefaultValueOf(const TreeElement& element)
{
    return element.Get(Tag::Val);
}

/// Calls `use` with `SimulatorType::Any` and with each simulator of the keyword: a default of the keyword as
/// a whole is written under all of them.
template <class Use>
void ForKeywordAndEach(const std::vector<SimulatorType::Enum>& simulators, Use use)
{
    for (const SimulatorType::Enum simulator : simulators)
        use(simulator);
    use(SimulatorType::Any);
}

/// Calls `use` with simulator, type and element of each override below a default, in document order, so that
/// a later one for the same simulator wins. The simulator need not be one of the keyword's.
template <class Use>
void ForEachOverride(const TreeElement& defaultElement, Use use)
{
    for (const TreeElement child : Service::XML::Internal::ChildElements(defaultElement)) {
        if (!child.Is(Tag::Override))
            continue;
        bool known = false;
        const SimulatorType::Enum simulator = SimulatorType::FromString(NameOf(child), &known);
        if (!known)
            throw KeywordException("Unknown simulator encountered.");
        use(simulator, ReadCheckedDefaultType(child), child);
    }
}

/// The default of all scalars but the choice. `parse` makes a value of a text.
template <class T, class Parse>
void ReadDefault(const TreeElement& element, const std::vector<SimulatorType::Enum>& simulators,
    DefaultTable<T>& defaults, Parse parse)
{
    const auto valueOf = [&parse](const TreeElement& from, DefaultType::Enum type) {
        return type == DefaultType::Specified ? Service::Optional<T>(parse(DefaultValueOf(from)))
                                              : Service::Optional<T>();
    };
    const DefaultType::Enum type = ReadCheckedDefaultType(element);
    if (type != DefaultType::NoDefault) { // else what an earlier default element wrote stays
        const Service::Optional<T> value = valueOf(element, type);
        ForKeywordAndEach(simulators, [&](SimulatorType::Enum key) { defaults.Set(key, value); });
    }
    ForEachOverride(
        element, [&](SimulatorType::Enum simulator, DefaultType::Enum ownType, const TreeElement& from) {
            if (ownType == DefaultType::NoDefault)
                defaults.Erase(simulator);
            else
                defaults.Set(simulator, valueOf(from, ownType));
            defaults.SetOverride(simulator, ownType);
        });
}

} // namespace Veld::Quor::Core::Keywords
