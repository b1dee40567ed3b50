#include "tests/fuzz/DeckMutator.h"

#include "quor/foundation/SectionType.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/syntax/KeywordSyntaxEnumerator.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Tests {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = IKeywordDataMD::TerminationType;

constexpr std::string_view blanks = " \t";

/// What readers of decks treat in a way of its own.
const char* const texts[] = {"/", "/ remark", "-- comment", " -- comment", "INCLUDE\n 'a.inc' /",
    "INCLUDE a.inc", "ENDINC", "SKIP", "SKIPCAR", "SKIPDUN", "ENDSKIP", "END", "\x1E", "\r", "1*", "3*",
    "2*1.5", "*", "3*'A'", "''", "'it''s'", "\"it's\"", "'a", "$ONE", "'$ONE'", "$NONE", "-0.0", "1e-310",
    "1D5", "+3", "2147483647", "0.1", "-- quor: off", "-- quor: begin-off", "-- quor: end-off",
    "\xEF\xBB\xBF", "--", ",", "A=1", "A=$ONE", "=", "NO", "Y", "\t"};

std::vector<std::string> SplitIntoLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.emplace_back(text);
    return lines;
}

std::string Join(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += (&line == &lines.front() ? "" : "\n") + line;
    return text;
}

} // namespace

DeckMutator::DeckMutator(Tools::Deck::Vocabulary& vocabulary)
{
    KeywordSyntaxEnumerator enumerator = vocabulary.GetTable().KeywordsEnumerator();
    while (enumerator.NextWithHidden())
        syntaxes_.push_back(enumerator.Current()->second);
}

std::string DeckMutator::Mutate(std::string_view text, unsigned seed)
{
    random_.seed(seed);
    Lines lines = SplitIntoLines(text);
    do
        Change(lines);
    while (Toss());
    return Join(lines);
}

std::string DeckMutator::Cross(std::string_view text, std::string_view other, unsigned seed)
{
    random_.seed(seed);
    Lines lines = SplitIntoLines(text);
    Insert(lines, Join(PickRun(SplitIntoLines(other))));
    return Join(lines);
}

std::size_t DeckMutator::Pick(std::size_t count)
{
    return random_() % count;
}

void DeckMutator::Change(Lines& lines)
{
    switch (Pick(10)) {
    case 0:
        CopyRun(lines);
        break;
    case 1:
        MoveRun(lines);
        break;
    case 2:
        RemoveRun(lines);
        break;
    case 3:
    case 4:
        ReplaceWord(lines);
        break;
    case 5:
        JoinOrSplit(lines);
        break;
    case 6:
        Insert(lines, texts[Pick(std::size(texts))]);
        break;
    default:
        InsertKeyword(lines);
    }
}

// Lines

DeckMutator::Lines DeckMutator::PickRun(const Lines& lines)
{
    const auto first = lines.begin() + static_cast<std::ptrdiff_t>(Pick(lines.size()));
    const auto most = std::min<std::ptrdiff_t>(lines.end() - first, 12);
    return {first, first + 1 + static_cast<std::ptrdiff_t>(Pick(static_cast<std::size_t>(most)))};
}

void DeckMutator::CopyRun(Lines& lines)
{
    Insert(lines, Join(PickRun(lines)));
}

void DeckMutator::MoveRun(Lines& lines)
{
    const auto middle = lines.begin() + static_cast<std::ptrdiff_t>(Pick(lines.size()));
    const auto most = static_cast<std::size_t>(std::min<std::ptrdiff_t>(lines.end() - middle, 12));
    std::rotate(
        lines.begin() + static_cast<std::ptrdiff_t>(Pick(lines.size())) % (middle - lines.begin() + 1),
        middle, middle + static_cast<std::ptrdiff_t>(Pick(most + 1)));
}

void DeckMutator::RemoveRun(Lines& lines)
{
    const std::size_t first = Pick(lines.size());
    const std::size_t count = std::min(1 + Pick(Toss(4) ? lines.size() : 3), lines.size() - first);
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(first);
    lines.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    if (lines.empty())
        lines.emplace_back();
}

void DeckMutator::Insert(Lines& lines, const std::string& text)
{
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(Pick(lines.size() + 1)), text);
}

void DeckMutator::JoinOrSplit(Lines& lines)
{
    const std::size_t index = Pick(lines.size());
    std::string& line = lines[index];
    if (const std::size_t blank = line.find(' ', Pick(line.size() + 1));
        blank != std::string::npos && Toss()) {
        line[blank] = '\n';
    } else if (index + 1 < lines.size()) {
        line += ' ' + lines[index + 1];
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(index) + 1);
    }
}

// Words

void DeckMutator::ReplaceWord(Lines& lines)
{
    const std::string word = PickWord(lines);
    std::string& line = lines[Pick(lines.size())];
    const std::size_t begin = line.find_first_not_of(blanks, Pick(line.size() + 1));
    if (begin == std::string::npos) {
        line += ' ' + word;
        return;
    }
    const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
    line.replace(begin, end - begin, Toss(4) ? "" : word);
}

std::string DeckMutator::PickWord(const Lines& lines)
{
    if (Toss(3))
        return texts[Pick(std::size(texts))];
    if (Toss(4))
        return syntaxes_[Pick(syntaxes_.size())]->GetName();
    const std::string& line = lines[Pick(lines.size())];
    const std::size_t begin = line.find_first_not_of(blanks, Pick(line.size() + 1));
    return begin == std::string::npos ? "/" : line.substr(begin, line.find_first_of(blanks, begin) - begin);
}

// Keywords

/// Mostly where its section begins.
void DeckMutator::InsertKeyword(Lines& lines)
{
    const IKeywordSyntax& syntax = *syntaxes_[Pick(syntaxes_.size())];
    std::string text = syntax.GetName();
    if (const IKeywordDataMD* const md = syntax.GetDataMD())
        text += (Toss(4) ? "" : "\n") + MakeData(plans_.Get(*md));
    const auto sections = syntax.GetValidSections();
    if (sections.empty() || Toss(8)) {
        Insert(lines, text);
        return;
    }
    const std::string& section = SectionType::ToString(sections[Pick(sections.size())]);
    const auto begin = std::find(lines.begin(), lines.end(), section);
    if (begin == lines.end())
        lines.push_back(section + '\n' + text);
    else
        lines.insert(begin + 1, text);
}

std::string DeckMutator::MakeData(const Plan& plan)
{
    switch (plan.type) {
    case MDType::Record:
        return MakeItems(plan);
    case MDType::List:
        return MakeElements(plan);
    case MDType::Map: {
        const auto& map = static_cast<const IKeywordMapMD&>(*plan.md);
        std::string text;
        for (int i = 0; i < map.GetSize(); ++i)
            text += Toss() ? "" : ' ' + map.GetItemMD(i)->GetKeys().front() + (Toss() ? "" : " = 2");
        return text + " /\n";
    }
    case MDType::Raw:
        return "\n raw text\n" + static_cast<const IKeywordRawMD&>(*plan.md).GetTerminationString() + '\n';
    case MDType::Line:
        return "\n a line\n";
    case MDType::Assignment:
    case MDType::Boolean:
    case MDType::Choice:
    case MDType::Integer:
    case MDType::None:
    case MDType::Real:
    case MDType::String:
        break;
    }
    return ' '
        + (Toss(6) ? std::to_string(1 + Pick(3)) + '*' + (Toss() ? MakeValue(plan) : "") : MakeValue(plan));
}

std::string DeckMutator::MakeItems(const Plan& record)
{
    std::string text;
    for (const Plan& item : record.items) {
        if (record.termination == Termination::SLASH && Toss(12))
            break;
        text += MakeData(item);
        text += Toss(30) ? " -- within\n" : Toss(30) ? "\n-- within\n" : "";
    }
    if (record.termination == Termination::NONE)
        return text;
    return text + (record.termination == Termination::SLASH ? Toss(8) ? " / behind\n" : " /\n" : "\n");
}

std::string DeckMutator::MakeElements(const Plan& list)
{
    std::string text;
    for (std::size_t i = Pick(5); i > 0 && !list.items.empty(); --i)
        text += MakeData(list.items.front());
    return text + (list.termination == Termination::NONE ? "\n" : Toss(8) ? "\n-- last\n/\n" : " /\n");
}

std::string DeckMutator::MakeValue(const Plan& item)
{
    static const char* const integers[] = {"1", "2", "3", "0", "-1", "12", "$ONE"};
    static const char* const reals[] = {"0.25", "1", "1.5E-7", "100", "-3", "1e22", "1D2", "0", "$ONE"};
    static const char* const names[] = {
        "P1", "'A B'", "\"it's\"", "x-y", "'*'", "''", "1", "'P1'", "OPEN", "$ONE"};
    switch (item.type) {
    case MDType::Choice: {
        const auto& choice = static_cast<const IKeywordChoiceMD&>(*item.md);
        const int count = choice.NumChoices();
        return count == 0
            ? "X"
            : '\'' + choice.GetChoice(static_cast<int>(Pick(static_cast<std::size_t>(count)))) + '\'';
    }
    case MDType::Integer:
        return integers[Pick(std::size(integers))];
    case MDType::Real:
        return reals[Pick(std::size(reals))];
    case MDType::Boolean:
        return Toss() ? "YES" : "NO";
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
    case MDType::String:
        break;
    }
    return names[Pick(std::size(names))];
}

} // namespace Veld::Quor::Tests
