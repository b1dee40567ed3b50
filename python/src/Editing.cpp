#include "python/src/Binding.h"

#include "quor/metadata/VisitMD.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace Veld::Quor::Python {

using MDType = Keywords::IKeywordDataMD::MDType;

namespace {

/// The texts of a deck in memory, some of them replaced; other files come from where the deck's came from.
std::shared_ptr<Decks::MemorySource> SourceOf(
    const DeckPointer& deck, std::vector<std::pair<std::uint32_t, std::string>>&& replaced)
{
    auto source = std::make_shared<Decks::MemorySource>(deck->GetOptions().GetSource());
    const Decks::DeckFiles& files = deck->GetFiles();
    for (std::uint32_t i = 0; i < files.GetSize(); ++i) {
        if (files.Get(i).text)
            source->Set(files.Get(i).name, files.Get(i).text);
    }
    for (auto& [file, bytes] : replaced)
        source->Set(files.Get(file).name, std::move(bytes));
    return source;
}

/// The deck as it is read from other texts of its files, so that it can be edited.
DeckPointer Reread(const DeckPointer& deck, std::vector<std::pair<std::uint32_t, std::string>> replaced)
{
    const auto source = SourceOf(deck, std::move(replaced));
    const py::gil_scoped_release unlocked;
    return std::make_shared<Decks::Deck>(Decks::Deck::Read(deck->GetFiles().Get(0).name, Language(),
        Decks::ReadOptions(deck->GetOptions()).SetSource(source).SetEditable(true)));
}

/// Of the value at a path in data.
const Keywords::IKeywordDataMD& MDOf(const Decks::DeckValue& value)
{
    const Keywords::IKeywordDataMD* md = value.keyword.GetData().GetMD();
    for (const std::size_t index : value.path) {
        if (md->GetType() == MDType::List)
            md = Keywords::AsList(*md).GetItemMD();
        else
            md = Keywords::AsRecord(*md).GetItemMD(static_cast<int>(index));
    }
    return *md;
}

/// A change of a text: the path of its file, offset, length, and the bytes that replace those.
using Edit = std::tuple<std::string, std::size_t, std::size_t, py::bytes>;

/// The deck with these changes of its texts made.
DeckPointer Apply(const DeckPointer& deck, const std::vector<Edit>& edits)
{
    std::map<std::string, std::vector<Decks::TextEdit>> byFile;
    for (const auto& [name, offset, length, bytes] : edits)
        byFile[name].push_back({{0, offset, length}, bytes});
    std::vector<std::pair<std::uint32_t, std::string>> texts;
    for (std::uint32_t i = 0; i < deck->GetFiles().GetSize(); ++i) {
        const Decks::DeckFile& file = deck->GetFiles().Get(i);
        if (const auto found = byFile.find(file.name); found != byFile.end() && file.text) {
            texts.emplace_back(i,
                std::string(file.text->GetMark()) + Decks::ApplyEdits(file.text->GetText(), found->second));
            byFile.erase(found);
        }
    }
    return Reread(deck, std::move(texts));
}

/// Changes of the texts of a deck, which it holds.
class Editor {
public:
    explicit Editor(DeckPointer deck)
        : deck_(std::move(deck))
        , editor_(*deck_)
    {
    }

    /// Returns whether addresses may be others afterwards.
    bool SetValue(const std::string& address, const py::object& value)
    {
        const Decks::DeckValue current = Decks::ResolveOne(*deck_, Decks::ValueAddress::Parse(address));
        try {
            if (value.is_none())
                editor_.ClearValue(current);
            else
                editor_.SetValue(current, NewValueOf(value, MDOf(current)));
        } catch (const Service::Exception& error) {
            Raise(error.what(), LocationOf(current));
        }
        return ChangesAddresses(current);
    }

    void SetArray(const Keyword& keyword, const py::array& values)
    {
        const Keywords::IKeywordData* const data = Check(keyword).FindData();
        const bool isInteger = data && IsArray(*data)
            && Keywords::AsList(*data->GetMD()).GetItemMD()->GetType() == MDType::Integer;
        if (isInteger)
            Set<int>(keyword, values);
        else
            Set<double>(keyword, values);
    }

    void AddRecord(const Keyword& keyword, const std::string& text)
    {
        editor_.AddRecord(Check(keyword), text);
    }
    void RemoveRecord(const Keyword& keyword, std::size_t index)
    {
        editor_.RemoveRecord(Check(keyword), index);
    }
    void RemoveKeyword(const Keyword& keyword) { editor_.RemoveKeyword(Check(keyword)); }
    void AddAfter(const Keyword& keyword, const std::string& text)
    {
        editor_.AddKeywordAfter(Check(keyword), text);
    }
    void AddAtEnd(const std::string& section, const std::string& text)
    {
        editor_.AddKeywordAtEnd(SectionOf(section), text);
    }
    void AddInStep(std::size_t step, const std::string& text) { editor_.AddKeywordInStep(step, text); }

    /// The changes that make the texts of this deck out of those of the changed one.
    std::vector<Edit> GetReverse() const
    {
        std::vector<Edit> edits;
        const Decks::DeckFiles& files = deck_->GetFiles();
        std::size_t gained = 0; // by the changes before, in the file; may wrap around
        for (const Decks::TextEdit& edit : editor_.GetEdits()) {
            const std::string& name = files.Get(edit.range.file).name;
            if (edits.empty() || std::get<0>(edits.back()) != name)
                gained = 0;
            edits.emplace_back(name, edit.range.offset + gained, edit.text.size(),
                py::bytes(std::string(files.GetText(edit.range))));
            gained += edit.text.size() - edit.range.length;
        }
        return edits;
    }

    /// The changed deck.
    DeckPointer Read() const
    {
        std::vector<std::pair<std::uint32_t, std::string>> texts;
        for (const std::uint32_t file : editor_.GetChangedFiles())
            texts.emplace_back(file, editor_.GetText(file));
        return Reread(deck_, std::move(texts));
    }

private:
    Decks::DeckKeyword Check(const Keyword& keyword) const
    {
        if (keyword.deck != deck_)
            throw py::value_error(keyword.Get().GetName()
                + " is of another deck, or of this one before it was changed: ask for it again");
        return keyword.Get();
    }

    template <class T>
    void Set(const Keyword& keyword, const py::array& values)
    {
        if (std::is_same_v<T, int> && values.dtype().kind() == 'f')
            throw py::type_error(
                keyword.Get().GetName() + " has integers: convert the array with astype(int)");
        if (values.dtype().kind() == 'c')
            throw py::type_error(keyword.Get().GetName() + " has no complex numbers");
        if (std::is_same_v<T, int>)
            CheckIntegers(keyword.Get().GetName(), values);
        const auto flat = py::array_t<T, py::array::c_style | py::array::forcecast>(values);
        editor_.SetArray(Check(keyword), flat.data(), static_cast<std::size_t>(flat.size()));
    }

    /// A deck has integers of 32 bits.
    static void CheckIntegers(const std::string& name, const py::array& values)
    {
        const auto wide = py::array_t<std::int64_t, py::array::c_style | py::array::forcecast>(values);
        const auto* const begin = wide.data();
        const auto* const end = begin + wide.size();
        const auto* const odd = std::find_if(begin, end, [](std::int64_t value) {
            return value > std::numeric_limits<int>::max() || value < -std::numeric_limits<int>::max();
        });
        if (odd != end)
            throw py::value_error(
                name + ": the number " + std::to_string(*odd) + " is too large for an integer");
    }

    /// Whether it identifies a record, leads to another date, or is one of the sizes of the deck.
    bool ChangesAddresses(const Decks::DeckValue& value) const
    {
        const Decks::DeckKeyword& keyword = value.keyword;
        const auto* const record = FindRecordMD(keyword.GetSyntax().GetDataMD());
        const std::size_t item = value.path.back();
        const bool identifies = record && item < static_cast<std::size_t>(record->GetSize())
            && record->IsIdentifier(static_cast<int>(item));
        const auto& steps = deck_->GetSteps();
        return identifies || keyword.GetSection() == Keywords::SectionType::RUNSPEC
            || std::any_of(steps.begin(), steps.end(),
                [&](const Decks::ReportStep& step) { return step.keyword == keyword.GetIndex(); });
    }

    Decks::Location LocationOf(const Decks::DeckValue& value) const
    {
        if (value.range)
            return deck_->GetFiles().LocationOf(*value.range);
        return value.keyword.GetLocation();
    }

    DeckPointer deck_;
    Decks::DeckEditor editor_;
};

/// The keyword that an address matches, and the index of its record; None if the address is of the keyword.
py::tuple FindRecord(const DeckPointer& deck, const std::string& address)
{
    const Decks::ValueAddress parsed = Decks::ValueAddress::Parse(address);
    if (!parsed.items.empty())
        throw py::value_error(
            "'" + address + "' is the address of a value: set it to None to leave it to its default");
    const bool isWhole = parsed.identifiers.empty();
    std::set<std::pair<std::size_t, std::size_t>> found; // keyword, record
    for (const Decks::DeckValue& value : Decks::Resolve(*deck, parsed))
        found.emplace(value.keyword.GetIndex(), isWhole || value.path.size() < 2 ? 0 : value.path[0]);
    if (found.empty())
        Decks::ResolveOne(*deck, parsed); // says what the deck has instead
    if (found.size() != 1)
        throw py::value_error("'" + address + "' matches " + std::to_string(found.size())
            + (isWhole ? " keywords" : " records") + ", expected one");
    const auto [keyword, record] = *found.begin();
    return py::make_tuple(
        Keyword{deck, keyword}, isWhole ? py::object(py::none()) : py::object(py::int_(record)));
}

} // namespace

void BindEditing(py::module_& module)
{
    module.def("reread", Reread, py::arg("deck"), py::arg("texts"));
    module.def("apply", Apply, py::arg("deck"), py::arg("edits"));
    module.def("find_record", FindRecord, py::arg("deck"), py::arg("address"));
    py::class_<Editor>(module, "Editor")
        .def(py::init<DeckPointer>(), py::arg("deck"))
        .def("set_value", &Editor::SetValue, py::arg("address"), py::arg("value"))
        .def("set_array", &Editor::SetArray, py::arg("keyword"), py::arg("values"))
        .def("add_record", &Editor::AddRecord, py::arg("keyword"), py::arg("text"))
        .def("remove_record", &Editor::RemoveRecord, py::arg("keyword"), py::arg("index"))
        .def("remove_keyword", &Editor::RemoveKeyword, py::arg("keyword"))
        .def("add_after", &Editor::AddAfter, py::arg("keyword"), py::arg("text"))
        .def("add_at_end", &Editor::AddAtEnd, py::arg("section"), py::arg("text"))
        .def("add_in_step", &Editor::AddInStep, py::arg("step"), py::arg("text"))
        .def("reverse",
            [](const Editor& editor) {
                py::list edits;
                for (const auto& [name, offset, length, bytes] : editor.GetReverse())
                    edits.append(py::make_tuple(py::bytes(name), offset, length, bytes));
                return edits;
            })
        .def("read", &Editor::Read);
}

} // namespace Veld::Quor::Python
