#pragma once

#include "quor/Deck.h"

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The module `quor._core`: the classes of decks as they are, for the Python package around it. What refers
/// to a deck holds it, so that no order of deletion leaves a view without its data.
namespace Veld::Quor::Python {

namespace py = pybind11;
namespace Decks = Core::Decks;
namespace Keywords = Core::Keywords;
namespace Service = Core::Service;

using DeckPointer = std::shared_ptr<Decks::Deck>; // never changed: the binding has no pointer to const

/// One keyword of a deck.
struct Keyword {
    DeckPointer deck;
    std::size_t index;

    Decks::DeckKeyword Get() const { return (*deck)[index]; }
};

/// A record of a keyword, or one that is nested in such.
struct Record {
    Keyword keyword;
    std::size_t element; ///< of the keyword's outermost list, from 0
    std::size_t table; ///< from 1; 0: the records of the keyword are not in tables
    const Keywords::IKeywordRecordData* data;

    const Keywords::IKeywordRecordMD& GetMD() const { return Keywords::AsRecord(*data->GetMD()); }
};

/// That of the process, made at the first call and never freed. Without the interpreter's lock.
const Decks::DeckLanguage& Language();
/// The table that the language is of.
Keywords::KeywordSyntaxTable& Table();
/// The entry for a name in the first section in which it is valid. Throws `QuorKeyError` with a name that is
/// near.
const Keywords::IKeywordSyntax& LookUp(const std::string& name);

/// The text of a deck or a path: bytes that are no UTF-8 are kept, as Python keeps them in paths.
py::str Text(std::string_view text);
/// A text for people: bytes that are no UTF-8 are shown by their number.
py::str Message(std::string_view text);
/// A `datetime`, or None for an undefined time and one after the year 9999.
py::object DateTime(const Service::Time& time);

/// Throws `ValueError` with the names that there are.
/// @{
Keywords::SimulatorType::Enum SimulatorOf(const std::string& name);
Keywords::SimulatorModeType::Enum ModeOf(const std::string& name);
Keywords::SectionType::Enum SectionOf(const std::string& name);
/// @}

/// Throws `QuorError`, or `QuorKeyError` for what isn't there, with a location.
/// @{
[[noreturn]] void Raise(const std::string& message, const Decks::Location& location);
[[noreturn]] void RaiseMissing(const std::string& message, const Decks::Location& location);
/// @}

/// Python's numbers have no size and a whole one serves as a real one: the type is that of the item.
Decks::NewValue NewValueOf(const py::handle& value, const Keywords::IKeywordDataMD& md);

/// The records of a keyword, those of tables one after the other.
std::vector<Record> RecordsOf(const Keyword& keyword);
/// The name of an item, or its number from 1 if it has none.
std::string ItemName(const Keywords::IKeywordRecordMD& md, int item);
/// By name, without regard to case, or by number from 1 for an item without a name; empty if there is none.
std::optional<int> FindItem(const Keywords::IKeywordRecordMD& md, std::string_view name);
/// The value of an item, or else its default; None if there is neither.
py::object ItemValue(const Record& record, int item);
/// The data of a node as Python has them: a Record, a list, an array, a dict or a text.
py::object ValueOf(
    const Keyword& keyword, std::size_t element, std::size_t table, const Keywords::IKeywordData& data);
/// A list of scalars: a read-only view of numbers, or a new array of texts.
py::object ArrayOf(const DeckPointer& deck, const Keywords::IKeywordListData& list);
/// Whether each element was left to its default.
py::object DefaultedOf(const Keywords::IKeywordListData& list);
/// Whether it is a list of scalars.
bool IsArray(const Keywords::IKeywordData& data);
/// The metadata of the records in it, at any depth of lists; null if it has none.
const Keywords::IKeywordRecordMD* FindRecordMD(const Keywords::IKeywordDataMD* md);

/// The unit of a measurement in the system of the deck; None if it has none.
py::object UnitIn(const Decks::Deck& deck, const std::string& measurement);

void BindErrors(py::module_& module);
void BindReading(py::module_& module);
void BindDeck(py::module_& module);
void BindKeywords(py::module_& module);
void BindRecords(py::module_& module);
void BindColumns(py::module_& module);
void BindEditing(py::module_& module);
void BindBuilding(py::module_& module);
void BindComparing(py::module_& module);
void BindLanguage(py::module_& module);

} // namespace Veld::Quor::Python
