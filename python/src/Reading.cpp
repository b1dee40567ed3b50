#include "python/src/Binding.h"

#include <map>
#include <utility>

namespace Veld::Quor::Python {

namespace {

/// What the functions of this file have in common.
Decks::ReadOptions Options(const std::string& simulator, const std::string& mode,
    const std::map<std::string, std::string>& variables, std::size_t maxFindings, bool isStrict)
{
    Decks::ReadOptions options;
    options.SetSource(std::make_shared<Decks::FileSource>()); // copies: a script may cut short what it reads
    if (!simulator.empty())
        options.SetSimulator(SimulatorOf(simulator));
    if (!mode.empty())
        options.SetMode(ModeOf(mode));
    for (const auto& [name, value] : variables)
        options.SetVariable(name, value);
    return options.SetMaxFindings(maxFindings).SetStrict(isStrict);
}

DeckPointer ReadFile(const std::string& path, const std::string& simulator, const std::string& mode,
    const std::map<std::string, std::string>& variables, std::size_t maxFindings, bool isStrict)
{
    const Decks::ReadOptions options = Options(simulator, mode, variables, maxFindings, isStrict);
    try {
        const py::gil_scoped_release unlocked;
        return std::make_shared<Decks::Deck>(Decks::Deck::Read(path, Language(), options));
    } catch (const Decks::SourceError& error) {
        Raise(error.what(), {path});
    }
}

/// `texts`: pairs of a path and its bytes, the deck itself first.
DeckPointer ReadTexts(const std::vector<std::pair<std::string, std::string>>& texts,
    const std::string& simulator, const std::string& mode,
    const std::map<std::string, std::string>& variables, std::size_t maxFindings, bool isStrict)
{
    const Decks::ReadOptions options = Options(simulator, mode, variables, maxFindings, isStrict);
    const auto source = std::make_shared<Decks::MemorySource>(options.GetSource());
    for (const auto& [path, bytes] : texts)
        source->Set(path, bytes);
    const py::gil_scoped_release unlocked;
    return std::make_shared<Decks::Deck>(
        Decks::Deck::Read(texts.front().first, Language(), Decks::ReadOptions(options).SetSource(source)));
}

} // namespace

Keywords::KeywordSyntaxTable& Table()
{
    static Keywords::KeywordSyntaxTable& table = Keywords::KeywordSyntaxTable::Instance();
    return table;
}

const Decks::DeckLanguage& Language()
{
    static const Decks::DeckLanguage& language = *new Decks::DeckLanguage(Table());
    return language;
}

void BindReading(py::module_& module)
{
    module.def("read", ReadFile, py::arg("path"), py::arg("simulator"), py::arg("mode"), py::arg("variables"),
        py::arg("max_findings"), py::arg("strict"));
    module.def("read_texts", ReadTexts, py::arg("texts"), py::arg("simulator"), py::arg("mode"),
        py::arg("variables"), py::arg("max_findings"), py::arg("strict"));
    module.def("simulators", [] {
        std::vector<std::string> names;
        for (const auto& row : Keywords::SimulatorType::EnumInfos())
            names.emplace_back(row.text);
        return names;
    });
}

} // namespace Veld::Quor::Python
