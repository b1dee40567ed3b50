#include "tests/trust/Mistake.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/ICellPropertyInfo.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

/// Changes a keyword; none if it has no place for the mistake.
using ChangeKeyword = std::optional<Mistake> (*)(const SampleDeck&, const DeckKeyword&, Random&);

MakeMistake OnKeyword(const std::string& where, ChangeKeyword change)
{
    return [where = Where(where), change](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<std::size_t> keywords = FindKeywords(deck, where);
        for (int i = 0; i < 30 && !keywords.empty(); ++i) {
            if (auto mistake = change(deck, deck.GetDeck()[random.Choose(keywords)], random))
                return mistake;
        }
        return std::nullopt;
    };
}

/// What the data of a keyword are, by how they end.
enum class Form { None, Record, Values, Records, Tables, Other };

Form FormOf(const DeckKeyword& keyword)
{
    const IKeywordDataMD* md = keyword.GetSyntax().GetDataMD();
    if (!md)
        return Form::None;
    if (md->GetType() == MDType::Record)
        return Form::Record;
    if (md->GetType() != MDType::List)
        return Form::Other;
    const IKeywordDataMD* item = static_cast<const IKeywordListMD*>(md)->GetItemMD();
    if (item->GetType() == MDType::List)
        return Form::Tables;
    if (item->GetType() != MDType::Record)
        return item->GetType() == MDType::Line ? Form::Other : Form::Values;
    return static_cast<const IKeywordListMD*>(md)->GetTermination() == IKeywordDataMD::TerminationType::SLASH
        ? Form::Records
        : Form::Tables;
}

std::optional<Mistake> MisspellName(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    const std::string name = keyword.GetName();
    if (name.size() < 3)
        return std::nullopt;
    std::string other = MisspeltName(deck, name, random);
    while (other.starts_with(name.substr(0, 8))) // of which only so many letters count
        other = MisspeltName(deck, name, random);
    return Mistake{{{keyword.GetNameRange(), other}}};
}

bool IsSection(const DeckKeyword& keyword)
{
    return keyword.GetSyntax().GetDeckRole() == KeywordDeckRole::Section;
}

std::optional<Mistake> MisspellSection(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    return IsSection(keyword) ? MisspellName(deck, keyword, random) : std::nullopt;
}

std::optional<Mistake> MisspellWithData(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    return keyword.FindData() ? MisspellName(deck, keyword, random) : std::nullopt;
}

std::optional<Mistake> MisspellWithoutData(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    return keyword.FindData() || IsSection(keyword) ? std::nullopt : MisspellName(deck, keyword, random);
}

std::optional<Mistake> LowerName(const SampleDeck&, const DeckKeyword& keyword, Random&)
{
    std::string name = keyword.GetName();
    for (char& letter : name)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return Mistake{{{keyword.GetNameRange(), name}}};
}

std::optional<Mistake> IndentName(const SampleDeck&, const DeckKeyword& keyword, Random&)
{
    return Mistake{{{{keyword.GetNameRange().file, keyword.GetNameRange().offset, 0}, "  "}}};
}

/// The first keyword that the section before it doesn't have is a place.
std::optional<Mistake> RemoveSection(const SampleDeck& deck, const DeckKeyword& keyword, Random&)
{
    if (!IsSection(keyword) || keyword.IsNamed("RUNSPEC"))
        return std::nullopt;
    Mistake mistake{{{deck.LinesOf(keyword.GetNameRange()), ""}}};
    for (const DeckKeyword other : deck.GetDeck().GetSection(keyword.GetSection()))
        mistake.places.push_back(other.GetNameRange());
    return mistake;
}

std::optional<Mistake> RepeatSection(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    const auto inSection = deck.GetDeck().GetSection(keyword.GetSection());
    if (!IsSection(keyword) || inSection.size() < 2)
        return std::nullopt;
    const TextRange at = inSection[1 + random.Below(inSection.size() - 1)].GetNameRange();
    return Mistake{{{{at.file, deck.LinesOf(at).offset, 0}, keyword.GetName() + "\n"}}};
}

/// Moves a keyword to the start of a section in which it isn't valid.
std::optional<Mistake> MoveToAnotherSection(
    const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    const auto section = static_cast<SectionType::Enum>(random.Below(SectionType::Count));
    const auto there = deck.GetDeck().GetSection(section);
    if (IsSection(keyword) || there.empty() || section == keyword.GetSection()
        || keyword.GetSyntax().IsValid(section, SimulatorType::Any))
        return std::nullopt;
    const TextRange to = deck.LinesOf(there.front().GetNameRange());
    const TextRange from = deck.LinesOf(keyword.GetRange());
    return Mistake{{{{to.file, to.offset + to.length, 0}, std::string(deck.GetText(from))}, {from, ""}}};
}

std::optional<Mistake> JoinNames(const SampleDeck& deck, const DeckKeyword& keyword, Random&)
{
    const TextRange line = deck.LinesOf(keyword.GetNameRange());
    const std::size_t next = keyword.GetIndex() + 1;
    if (keyword.FindData() || IsSection(keyword) || next == deck.GetDeck().GetSize()
        || deck.GetDeck()[next].GetNameRange().offset != line.offset + line.length)
        return std::nullopt;
    return Mistake{{{{line.file, line.offset + line.length - 1, 1}, " "}}};
}

/// Removes a slash; where the next word is is a place for the finding too. `isLast`: that of the keyword.
std::optional<Mistake> RemoveSlash(
    const SampleDeck& deck, const DeckKeyword& keyword, Random& random, bool isLast)
{
    const std::vector<Word> words = deck.WordsOf(keyword);
    std::vector<std::size_t> slashes;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].isSlash && (i + 1 == words.size()) == isLast)
            slashes.push_back(i);
    }
    if (slashes.empty())
        return std::nullopt;
    const std::size_t at = random.Choose(slashes);
    Mistake mistake{{{words[at].range, ""}}};
    mistake.places.push_back(at > 0 ? words[at - 1].range : keyword.GetNameRange());
    if (at + 1 < words.size())
        mistake.places.push_back(words[at + 1].range);
    else if (const std::size_t next = keyword.GetIndex() + 1; next < deck.GetDeck().GetSize())
        mistake.places.push_back(deck.GetDeck()[next].GetNameRange());
    return mistake;
}

template <Form form, bool isLast>
std::optional<Mistake> RemoveSlashOf(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    return FormOf(keyword) == form ? RemoveSlash(deck, keyword, random, isLast) : std::nullopt;
}

/// A slash after a value of an array that is not its last.
std::optional<Mistake> CutArray(const SampleDeck& deck, const DeckKeyword& keyword, Random& random)
{
    const std::vector<Word> words = deck.WordsOf(keyword);
    if (FormOf(keyword) != Form::Values || words.size() < 4 || !keyword.GetSyntax().GetCellPropertyInfo()
        || keyword.GetSyntax().GetCellPropertyInfo()->CopyLayerAboveByDefault())
        return std::nullopt;
    const TextRange after = words[random.Below(words.size() - 2)].range;
    return Mistake{{{{after.file, after.offset + after.length, 0}, " /"}}, {keyword.GetRange()}};
}

std::optional<Mistake> InsertText(const SampleDeck& deck, const DeckKeyword& keyword, Random&)
{
    const TextRange line = deck.LinesOf(keyword.GetNameRange());
    return Mistake{{{{line.file, line.offset, 0}, "Rates agreed in the meeting of May\n"}}};
}

/// Lines of the texts of a deck that begin with `start`.
std::vector<TextRange> LinesThatBegin(const SampleDeck& deck, std::string_view start)
{
    std::vector<TextRange> lines;
    for (std::uint32_t file = 0; file < deck.GetDeck().GetFiles().GetSize(); ++file) {
        const std::string_view text = deck.GetText(file).substr(0, deck.GetDeck().GetFiles().Get(file).end);
        for (std::size_t at = 0; at < text.size();) {
            const TextRange line = deck.LinesOf({file, at, 1});
            if (text.substr(at).starts_with(start))
                lines.push_back(line);
            at = line.offset + line.length;
        }
    }
    return lines;
}

/// Replaces the start of a line.
MakeMistake OnLine(const std::string& start, const std::string& replacement, const std::string& places)
{
    return [=](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<TextRange> lines = LinesThatBegin(deck, start);
        if (lines.empty())
            return std::nullopt;
        const TextRange line = random.Choose(lines);
        Mistake mistake{{{{line.file, line.offset, start.size()}, replacement}}};
        for (const TextRange& other : LinesThatBegin(deck, places.empty() ? "no such line" : places))
            mistake.places.push_back(other);
        return mistake;
    };
}

/// Replaces a part of the line with the name of an included file: the last one that is `part`.
MakeMistake OnInclusion(const std::string& part, const std::string& replacement)
{
    return [=](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        std::vector<TextEdit> edits;
        for (std::uint32_t file = 1; file < deck.GetDeck().GetFiles().GetSize(); ++file) {
            const TextRange range = *deck.GetDeck().GetFiles().Get(file).inclusion;
            const std::size_t at = deck.GetText(range).rfind(part);
            if (at != std::string_view::npos)
                edits.push_back({{range.file, range.offset + at, part.size()}, replacement});
        }
        if (edits.empty())
            return std::nullopt;
        return Mistake{{random.Choose(edits)}};
    };
}

} // namespace

void AddKindsOfText(std::vector<Kind>& kinds)
{
    const std::vector<Kind> added{
        {"misspelt keyword with data",
            OnKeyword("@RUNSPEC @GRID @EDIT @PROPS @REGIONS @SOLUTION @SCHEDULE", MisspellWithData)},
        {"misspelt keyword without data",
            OnKeyword("@RUNSPEC @GRID @EDIT @PROPS @REGIONS @SOLUTION @SCHEDULE", MisspellWithoutData)},
        {"misspelt output vector", OnKeyword("@SUMMARY", MisspellWithData)},
        {"misspelt section", OnKeyword("", MisspellSection)},
        {"keyword in lower case", OnKeyword("", LowerName)},
        {"indented keyword", OnKeyword("", IndentName), true},
        {"missing section keyword", OnKeyword("", RemoveSection)},
        {"repeated section", OnKeyword("", RepeatSection)},
        {"keyword in a wrong section",
            OnKeyword("@RUNSPEC @GRID @EDIT @PROPS @REGIONS @SOLUTION @SCHEDULE", MoveToAnotherSection)},
        {"two keywords on a line", OnKeyword("@RUNSPEC @GRID @SUMMARY", JoinNames)},
        {"missing slash of a record of a list", OnKeyword("", RemoveSlashOf<Form::Records, false>)},
        {"missing slash of a list of records", OnKeyword("", RemoveSlashOf<Form::Records, true>)},
        {"missing slash of a record", OnKeyword("", RemoveSlashOf<Form::Record, true>)},
        {"missing slash of an array or list", OnKeyword("", RemoveSlashOf<Form::Values, true>)},
        {"missing slash of a table", OnKeyword("", RemoveSlashOf<Form::Tables, false>)},
        {"missing slash of the last table", OnKeyword("", RemoveSlashOf<Form::Tables, true>)},
        {"slash within an array", OnKeyword("", CutArray)},
        {"text between keywords", OnKeyword("", InsertText)},
        {"comment with one hyphen", OnLine("-- ", "- ", "")},
        {"SKIP without ENDSKIP", OnLine("ENDSKIP", "", "SKIP")},
        {"ENDSKIP without SKIP", OnLine("SKIP\n", "\n", "ENDSKIP")},
        {"misspelt name of an included file", OnInclusion(".inc", "s.inc")},
        {"included file in capitals", OnInclusion(".inc", ".INC")},
        {"quote not closed after a file name", OnInclusion("'", "")},
        {"misspelt path alias", OnInclusion("$", "$X")},
        {"missing ENDACTIO", OnLine("ENDACTIO", "", "ACTIONX")},
        {"missing ENDBOX", OnLine("ENDBOX", "", "BOX"), true},
        {"missing ENDFIN", OnLine("ENDFIN", "", "CARFIN")},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust
