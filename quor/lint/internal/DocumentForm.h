#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// An element in its context: one tag means different things in different parents.
enum class Form {
    Root,
    Keyword,
    Text,
    Flag,
    KeywordAliases,
    KeywordAlias,
    ValidSimulators,
    KeywordSimulator,
    ValidOptions,
    Option,
    ValidSections,
    Section,
    VariantSimulator,
    Precedents,
    Precedent,
    Scope,
    EndKeyword,
    SummaryMnemonic,
    Category,
    Cell,
    Data,
    Record,
    Item,
    List,
    CustomReadTermination,
    Map,
    Assignment,
    AssignedInteger,
    AssignmentAliases,
    AssignmentAlias,
    AssignmentValidity,
    ItemSimulator,
    Raw,
    Real,
    Integer,
    Boolean,
    Line,
    String,
    Choice,
    Limit,
    Quantity,
    Default,
    Override,
    Values,
    Value,
    ChoiceAliases,
    ChoiceAlias,
    Validity,
    UnsupportedBy,
    Count,
};

/// What the text of an attribute has to be.
enum class Words {
    Any,
    Flag,
    Simulator,
    OverrideSimulator,
    Mode,
    Section,
    Termination,
    Constraint,
    Category,
    SupportLevel,
    Upper, ///< no letter in lower case
};

struct AttributeForm {
    const char* name;
    Words words = Words::Any;
    bool isRequired = false;
};

/// What the loader does with a second element of a kind.
enum class Repeat { Adds, FirstCounts, LastCounts };

struct ChildForm {
    const char* tag;
    Form form;
    Repeat repeat = Repeat::Adds;
    const char* key = nullptr; ///< the attribute that must differ; null if equal elements are allowed
    const char* duplicate = nullptr; ///< message for a second one with the same key: its tag, its key
    bool isType = false; ///< one of several of which one counts, as `repeat` says
    bool isOdd = false; ///< seen only at an odd position among its parent's nodes
};

struct ElementForm {
    Form form;
    const char* tag; ///< for hints
    std::vector<AttributeForm> attributes = {};
    std::vector<ChildForm> children = {};
    const char* empty = nullptr; ///< message for one without children; null if that is allowed
    bool failsOnUnknown = false; ///< on an unknown child; else it is ignored
    bool hasText = false;

    const AttributeForm* FindAttribute(std::string_view name) const;
    const ChildForm* FindChild(std::string_view childTag) const;
};

/// The form of a syntax document: a row for each form, in their order.
const std::vector<ElementForm>& DocumentForm();
const ElementForm& FormOf(Form form);

/// The texts that an attribute can have; empty if they aren't an enumeration.
const std::vector<std::string>& TextsOf(Words words);
/// The values of a summary category; empty if there is no such category.
std::vector<std::string> ValuesOfCategory(const std::string& category);

} // namespace Veld::Quor::Core::Lint
