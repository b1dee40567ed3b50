#include "python/src/Binding.h"

namespace Veld::Quor::Python {

namespace {

py::tuple LocationRow(const std::optional<Decks::Location>& location)
{
    if (!location)
        return py::make_tuple(py::none(), py::none());
    return py::make_tuple(Text(location->file), location->line);
}

const char* KindName(Decks::Change::Kind kind)
{
    switch (kind) {
    case Decks::Change::Kind::Changed:
        return "changed";
    case Decks::Change::Kind::Added:
        return "added";
    case Decks::Change::Kind::Removed:
        return "removed";
    }
    return "";
}

const char* KindName(Decks::Loss::Kind kind)
{
    switch (kind) {
    case Decks::Loss::Kind::KeywordNotValid:
        return "keyword-not-valid";
    case Decks::Loss::Kind::ItemNotValid:
        return "item-not-valid";
    case Decks::Loss::Kind::ItemUnsupported:
        return "item-unsupported";
    case Decks::Loss::Kind::ChoiceNotValid:
        return "choice-not-valid";
    case Decks::Loss::Kind::ChoiceUnsupported:
        return "choice-unsupported";
    case Decks::Loss::Kind::NoDefault:
        return "no-default";
    case Decks::Loss::Kind::OtherDefault:
        return "other-default";
    }
    return "";
}

/// The arguments of `quor.Change`, in their order.
py::list Differences(const DeckPointer& a, const DeckPointer& b)
{
    Decks::Difference difference;
    {
        const py::gil_scoped_release unlocked;
        difference = Decks::Compare(*a, *b);
    }
    py::list rows;
    for (const Decks::ChangeGroup& group : difference.groups) {
        for (const Decks::Change& change : group.changes) {
            const auto differing = change.item.array ? change.item.array->differing : 0;
            rows.append(py::make_tuple(KindName(change.kind), Keywords::SectionType::ToString(group.section),
                Text(group.step), Text(change.keyword), Text(change.identity), Text(change.item.item),
                Text(change.item.before), Text(change.item.after), differing, LocationRow(change.before),
                LocationRow(change.after)));
        }
    }
    return rows;
}

/// The arguments of `quor.Loss`, in their order.
py::list Losses(const DeckPointer& deck, const std::string& simulator, const std::string& mode)
{
    Decks::Target target = {SimulatorOf(simulator)};
    if (!mode.empty())
        target.mode = ModeOf(mode);
    const auto options = Decks::PortOptions().SetFrom(deck->GetTarget()).SetTo(target).SetLocations(true);
    std::vector<Decks::Loss> losses;
    {
        const py::gil_scoped_release unlocked;
        losses = Decks::FindLosses(*deck, options);
    }
    py::list rows;
    for (const Decks::Loss& loss : losses) {
        py::list locations;
        for (const Decks::Location& location : loss.locations)
            locations.append(py::make_tuple(Text(location.file), location.line));
        rows.append(py::make_tuple(KindName(loss.kind), Text(loss.keyword),
            Keywords::SectionType::ToString(loss.section), Text(loss.item), Text(loss.detail), loss.count,
            Text(loss.first.file), loss.first.line, py::tuple(locations)));
    }
    return rows;
}

/// The index and the formatted text of each file.
std::vector<std::pair<std::uint32_t, py::bytes>> Formatted(const DeckPointer& deck, bool isNormalized)
{
    std::vector<std::pair<std::uint32_t, py::bytes>> texts;
    Decks::DeckFormatter formatter(*deck, Decks::FormatOptions().SetNormalized(isNormalized));
    for (std::uint32_t i = 0; i < deck->GetFiles().GetSize(); ++i) {
        const Decks::DeckFile& file = deck->GetFiles().Get(i);
        if (file.text)
            texts.emplace_back(i, py::bytes(std::string(file.text->GetMark()) + formatter.FormatFile(i)));
    }
    return texts;
}

py::list WellRows(const Decks::DeckSummary& summary)
{
    py::list rows;
    for (const Decks::Well& well : summary.wells)
        rows.append(py::make_tuple(
            Text(well.name), Text(well.group), Text(well.control), well.completions, DateTime(well.since)));
    return rows;
}

py::list GroupRows(const Decks::DeckSummary& summary)
{
    py::list rows;
    for (const Decks::Group& group : summary.groups)
        rows.append(py::make_tuple(Text(group.name), Text(group.parent), group.depth, group.wells));
    return rows;
}

py::dict SizesOf(const Decks::DeckSummary& summary)
{
    py::dict keywords;
    for (const Decks::SizeSummary& size : summary.sizes) {
        py::dict items;
        for (const auto& [item, value] : size.sizes)
            items[py::str(item)] = value;
        keywords[py::str(size.keyword)] = items;
    }
    return keywords;
}

/// Title, units, wells, groups and sizes.
py::tuple Summary(const DeckPointer& deck)
{
    Decks::DeckSummary summary;
    {
        const py::gil_scoped_release unlocked;
        summary = Decks::Summarize(*deck);
    }
    const auto system = Keywords::UnitSystem::ToString(Decks::UnitSystemOf(*deck));
    return py::make_tuple(
        Text(summary.title), system, WellRows(summary), GroupRows(summary), SizesOf(summary));
}

} // namespace

void BindComparing(py::module_& module)
{
    module.def("diff", Differences, py::arg("a"), py::arg("b"));
    module.def("losses", Losses, py::arg("deck"), py::arg("simulator"), py::arg("mode"));
    module.def("formatted", Formatted, py::arg("deck"), py::arg("normalize"));
    module.def("summary", Summary, py::arg("deck"));
}

} // namespace Veld::Quor::Python
