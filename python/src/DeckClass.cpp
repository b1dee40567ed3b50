#include "python/src/Binding.h"

#include <set>

namespace Veld::Quor::Python {

namespace {

std::vector<Keyword> Handles(const DeckPointer& deck, const std::vector<Decks::DeckKeyword>& keywords)
{
    std::vector<Keyword> handles;
    handles.reserve(keywords.size());
    for (const Decks::DeckKeyword& keyword : keywords)
        handles.push_back({deck, keyword.GetIndex()});
    return handles;
}

/// The arguments of `quor.Finding`, in their order.
py::tuple FindingRow(const Decks::Finding& finding)
{
    py::list from;
    for (const Decks::Location& location : finding.includedFrom)
        from.append(py::make_tuple(Text(location.file), location.line));
    return py::make_tuple(finding.code, Decks::ToString(finding.severity), Message(finding.message),
        Message(finding.hint), Text(finding.location.file), finding.location.line, finding.location.column,
        finding.location.column + finding.length, Message(finding.excerpt), py::tuple(from), finding.more);
}

py::list FindingRows(const DeckPointer& deck)
{
    py::list rows;
    for (const Decks::Finding& finding : deck->GetFindings())
        rows.append(FindingRow(finding));
    return rows;
}

/// Number, date, file, line and the index of the keyword that leads to it.
py::list StepRows(const DeckPointer& deck)
{
    py::list rows;
    std::size_t number = 0;
    for (const Decks::ReportStep& step : deck->GetSteps()) {
        const Decks::Location location = deck->GetFiles().LocationOf(step.range);
        rows.append(
            py::make_tuple(++number, DateTime(step.time), Text(location.file), location.line, step.keyword));
    }
    return rows;
}

std::vector<std::string> Sections(const DeckPointer& deck)
{
    std::vector<std::string> names;
    std::set<Keywords::SectionType::Enum> met = {Keywords::SectionType::None};
    for (const Decks::DeckKeyword keyword : *deck) {
        if (met.insert(keyword.GetSection()).second)
            names.push_back(Keywords::SectionType::ToString(keyword.GetSection()));
    }
    return names;
}

/// The path and the bytes of each file once, a byte order mark included; the deck itself first.
py::list Texts(const DeckPointer& deck)
{
    py::list texts;
    std::set<std::string> met;
    for (std::uint32_t i = 0; i < deck->GetFiles().GetSize(); ++i) {
        const Decks::DeckFile& file = deck->GetFiles().Get(i);
        if (!met.insert(file.name).second || !file.text)
            continue;
        std::string bytes(file.text->GetMark());
        bytes += file.text->GetText();
        texts.append(py::make_tuple(Text(file.name), py::bytes(bytes), Text(file.includedAs), i));
    }
    return texts;
}

/// The text of a file with the files that it includes in place of their inclusions.
std::string Whole(const Decks::DeckFiles& files, std::uint32_t file, std::size_t end)
{
    const std::string_view source = files.GetText(file);
    std::string text;
    std::size_t position = 0;
    for (std::uint32_t i = file + 1; i < files.GetSize(); ++i) {
        const Decks::DeckFile& other = files.Get(i);
        if (!other.inclusion || other.inclusion->file != file)
            continue;
        text += source.substr(position, other.inclusion->offset - position);
        text += Whole(files, i, other.end);
        position = other.inclusion->offset + other.inclusion->length;
        if (!text.empty() && text.back() == '\n' && position < source.size() && source[position] == '\n')
            ++position;
    }
    return text += source.substr(position, end - position);
}

py::bytes WholeText(const DeckPointer& deck)
{
    return Whole(deck->GetFiles(), 0, deck->GetFiles().GetText(0).size());
}

py::object Start(const DeckPointer& deck)
{
    return DateTime(deck->GetStart());
}

py::tuple TargetOf(const DeckPointer& deck)
{
    const Decks::Target& target = deck->GetTarget();
    return py::make_tuple(Keywords::SimulatorType::ToString(target.simulator),
        Keywords::SimulatorModeType::ToString(target.mode));
}

} // namespace

void BindDeck(py::module_& module)
{
    py::class_<Decks::Deck, DeckPointer>(module, "Deck")
        .def("__len__", [](const DeckPointer& deck) { return deck->GetSize(); })
        .def("is_editable", [](const DeckPointer& deck) { return deck->GetOptions().IsEditable(); })
        .def("has", [](const DeckPointer& deck, const std::string& name) { return deck->Has(name); })
        .def("at",
            [](const DeckPointer& deck, std::size_t index) {
                return Keyword{deck, (*deck)[index].GetIndex()};
            })
        .def("get",
            [](const DeckPointer& deck, const std::string& name) {
                return Keyword{deck, deck->Get(name).GetIndex()};
            })
        .def("all",
            [](const DeckPointer& deck, const std::string& name) {
                return Handles(deck, deck->GetAll(name));
            })
        .def("section",
            [](const DeckPointer& deck, const std::string& name) {
                return Handles(deck, deck->GetSection(SectionOf(name)));
            })
        .def("after_step",
            [](const DeckPointer& deck, std::size_t step) { return Handles(deck, deck->GetAfterStep(step)); })
        .def("findings", FindingRows)
        .def("steps", StepRows)
        .def("start", Start)
        .def("sections", Sections)
        .def("target", TargetOf)
        .def("texts", Texts)
        .def("whole_text", WholeText);
}

} // namespace Veld::Quor::Python
