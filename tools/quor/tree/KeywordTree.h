#pragma once

#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Veld::Quor::Tools {

using MDType = Core::Keywords::IKeywordDataMD::MDType;

/// Modes by simulator: bit m of entry s is set for mode m of simulator s.
struct ModeTable : std::array<std::uint8_t, Core::Keywords::SimulatorType::Count> {
    std::uint8_t& operator[](Core::Keywords::SimulatorType::Enum simulator)
    {
        return at(static_cast<std::size_t>(simulator));
    }
    std::uint8_t operator[](Core::Keywords::SimulatorType::Enum simulator) const
    {
        return at(static_cast<std::size_t>(simulator));
    }
};

/// Each mode of each simulator.
ModeTable AllModes();

/// Of a choice the word; `std::monostate` for a default that names no choice.
using Value = std::variant<std::monostate, bool, int, double, std::string>;

struct Default {
    enum class Type { None, Calculated, Specified };

    Type type = Type::None;
    Value value = {}; ///< if specified

    friend bool operator==(const Default&, const Default&) = default;
};

struct SimulatorDefault {
    Core::Keywords::SimulatorType::Enum simulator;
    bool isOfKeyword; ///< whether the keyword is valid for the simulator
    Default value;
    std::string overrideType; ///< empty: the document gives the simulator no default of its own
};

struct Defaults {
    Default keyword; ///< of the keyword as a whole
    std::vector<SimulatorDefault> simulators; ///< those of the keyword and those with an override, ascending
};

struct Choice {
    std::string text;
    std::vector<std::pair<std::string, bool>> aliases; ///< true: hidden
    ModeTable valid = AllModes();
    ModeTable unsupported{};
};

struct StringRules {
    bool isCaseSensitive;
    int greatestLength;
    bool mayHoldComma;
};

struct ScalarValue {
    Defaults defaults;
    std::optional<Value> min;
    std::optional<Value> max;
    std::optional<std::string> measurement;
    std::optional<std::string> format; ///< for printing
    std::vector<Choice> choices;
    std::optional<StringRules> string;
};

/// What an item is beside its type, by its place in a record.
struct Location {
    bool isOptional;
    bool isIdentifier;
    bool isSkippableOnRead;
    bool isSkippableOnWrite;
    Core::Keywords::IKeywordDataMD::ColumnConstraintType::Enum column;
    ModeTable valid;
    ModeTable unsupported;
};

/// How an assignment of a map is known.
struct KeyRules {
    std::vector<std::string> keys;
    bool isWildcard;
    ModeTable valid; ///< whole simulators
};

struct Ending {
    Core::Keywords::IKeywordDataMD::TerminationType::Enum type;
    bool hasOwnWords = false; ///< whether the document names words that end the list
    std::vector<std::string> words; ///< those of them that are known: they can be tried, not listed
};

struct ListRules {
    std::optional<std::string> size;
    std::optional<std::string> minSize;
    std::optional<std::string> maxSize;
    bool mayBeDefaulted;
    bool repeatsPrevious;
    std::optional<bool> startsOnNewLine;
    std::optional<bool> endsOnNewLine;
};

/// A node of a keyword's metadata, ready to be printed; what its type doesn't have is empty.
struct Node {
    MDType::Enum type = MDType::None;
    std::string name; ///< of an item of a record
    unsigned number = 0; ///< one-based among the items of a record
    std::string description;
    std::optional<Location> location;
    std::optional<ScalarValue> scalar;
    std::optional<KeyRules> key;
    std::optional<Ending> ending;
    std::optional<ListRules> list;
    std::optional<std::string> rawEnd;
    std::vector<Node> children; ///< the items of a record, the item of a list, the assignments of a map
};

struct KeywordTree {
    std::optional<Node> data; ///< empty: the keyword carries nothing
    ModeTable valid; ///< of the keyword, in some section
};

KeywordTree BuildTree(const Core::Keywords::IKeywordSyntax& syntax);

/// The measurements of all reals, each once, by name.
std::vector<std::string> MeasurementsOf(const KeywordTree& tree);

/// "integer", "list" and so on; "none" for no node.
const char* TypeWord(MDType::Enum type);

/// What the values of the keyword are: the type of its data, and of a list that of the item.
MDType::Enum ValueTypeOf(const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools
