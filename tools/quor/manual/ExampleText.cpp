#include "tools/quor/manual/ExampleText.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/WriteKeyword.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Constraint = IKeywordDataMD::ColumnConstraintType;

/// Which of several values of one item is wanted, and how they follow one another.
struct Place {
    int row = 0;
    int rows = 1;
    Constraint::Enum order = Constraint::None;

    /// Steps up from the first value; down for a column that decreases.
    int Step() const
    {
        const bool falls = order == Constraint::Decreasing || order == Constraint::StrictlyDecreasing;
        return falls ? rows - 1 - row : row;
    }
};

int SampleOf(const IKeywordIntegerMD& md, const Place& place)
{
    const auto min = md.GetMin();
    const auto max = md.GetMax();
    const auto standard = md.GetDefault(SimulatorType::Any);
    int value = standard ? *standard : min ? std::max(*min, 1) : 1;
    if (place.order != Constraint::None)
        value += place.Step();
    return max ? std::min(value, *max) : value;
}

/// Of a column that is in order, values from the least on; else the default, or what is well within limits.
double SampleOf(const IKeywordRealMD& md, const Place& place)
{
    constexpr double far = 1e6; // limits beyond it are no limits
    const double least = md.GetMin() ? std::max(*md.GetMin(), -far) : 0;
    const double greatest = md.GetMax() ? std::min(*md.GetMax(), far) : far;
    const double width = greatest - least;
    if (place.order != Constraint::None)
        return least + place.Step() * (width <= 10 ? width / 4 : 100);
    if (const auto standard = md.GetDefault(SimulatorType::Any))
        return *standard;
    return width <= 10 ? least + width / 4 : std::clamp(1.0, least, greatest);
}

std::string SampleOf(const IKeywordStringMD& md)
{
    const std::string name = md.GetName().empty() ? "NAME" : md.GetName();
    return name.substr(0, static_cast<std::size_t>(std::max(md.LimitLengthTo(), 1)));
}

std::string SampleOf(const IKeywordChoiceMD& md)
{
    if (const auto standard = md.GetDefault(SimulatorType::Any);
        standard && *standard >= 0 && *standard < md.NumChoices())
        return md.GetChoice(*standard);
    return md.NumChoices() > 0 ? md.GetChoice(0) : "";
}

void FillList(IKeywordListData& list, const IKeywordListMD& md, Constraint::Enum order);

void FillRecord(IKeywordRecordData& record, const IKeywordRecordMD& md, int row, int rows)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        const Place place{row, rows, md.GetColumnConstraint(i)};
        VisitMD(*md.GetItemMD(i),
            Overloaded{[&](const IKeywordIntegerMD& item) { Set(record, i, SampleOf(item, place)); },
                [&](const IKeywordRealMD& item) { Set(record, i, SampleOf(item, place)); },
                [&](const IKeywordStringMD& item) { Set(record, i, SampleOf(item)); },
                [&](const IKeywordBooleanMD&) { Set(record, i, true); },
                [&](const IKeywordLineMD& item) { Set(record, i, item.GetName()); },
                [&](const IKeywordChoiceMD& item) {
                    if (const std::string word = SampleOf(item); !word.empty())
                        SetChoice(record, i, word);
                },
                [&](const IKeywordListMD& item) { FillList(ListIn(record, i), item, place.order); },
                [&](const IKeywordRecordMD& item) { FillRecord(RecordIn(record, i), item, 0, 1); },
                [](const auto&) {}});
    }
}

/// Whether the rows of a table are in order: one alone shows no table.
bool IsTableRow(const IKeywordRecordMD& record)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        if (record.GetColumnConstraint(i) != Constraint::None)
            return true;
    }
    return false;
}

void FillList(IKeywordListData& list, const IKeywordListMD& md, Constraint::Enum order)
{
    if (!md.GetItemMD())
        return;
    constexpr int rows = 3;
    VisitMD(*md.GetItemMD(),
        Overloaded{[&](const IKeywordRecordMD& item) {
                       const int count = IsTableRow(item) ? rows : 1;
                       for (int row = 0; row < count; ++row)
                           FillRecord(AddRecord(list), item, row, count);
                   },
            [&](const IKeywordListMD& item) { FillList(AddList(list), item, order); },
            [&](const IKeywordIntegerMD& item) {
                for (int row = 0; row < rows; ++row)
                    AddValue(list, SampleOf(item, {row, rows, order}));
            },
            [&](const IKeywordRealMD& item) {
                for (int row = 0; row < rows; ++row)
                    AddValue(list, SampleOf(item, {row, rows, order}));
            },
            [&](const IKeywordStringMD& item) { AddValue(list, SampleOf(item)); },
            [&](const IKeywordBooleanMD&) { AddValue(list, true); },
            [&](const IKeywordLineMD&) { AddValue(list, "A line of text"); },
            [&](const IKeywordChoiceMD& item) {
                if (const std::string word = SampleOf(item); !word.empty())
                    AddChoice(list, word);
            },
            [](const auto&) {}});
}

std::vector<std::string> WordsOfLine(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

/// The record that is all data, or of which they are a list; null if it has rows of its own.
const IKeywordRecordMD* FindFlatRecord(const IKeywordDataMD& md)
{
    const IKeywordDataMD* node = &md;
    if (node->GetType() == MDType::List)
        node = static_cast<const IKeywordListMD&>(md).GetItemMD();
    if (!node || node->GetType() != MDType::Record)
        return nullptr;
    const auto& record = static_cast<const IKeywordRecordMD&>(*node);
    for (int i = 0; i < record.GetSize(); ++i) {
        if (!KeywordUtils::IsItemMDType(record.GetItemMD(i)))
            return nullptr;
    }
    return &record;
}

/// The lines with the names of the items above their values, where each line has them all.
std::string WithNames(const std::string& text, const IKeywordRecordMD& record)
{
    std::vector<std::vector<std::string>> rows = {{}};
    for (int i = 0; i < record.GetSize(); ++i)
        rows[0].push_back(record.GetItemMD(i)->GetName());
    std::istringstream lines(text);
    std::string name;
    std::getline(lines, name);
    std::string end;
    for (std::string line; std::getline(lines, line);) {
        std::vector<std::string> words = WordsOfLine(line);
        if (words.size() == rows[0].size() + 1)
            rows.push_back(std::move(words));
        else if (words == std::vector<std::string>{"/"} && end.empty())
            end = "/\n";
        else
            return text;
    }
    std::string result = name + '\n';
    for (std::size_t row = 0; row < rows.size(); ++row) {
        std::string line = row == 0 ? "--" : "  ";
        for (std::size_t i = 0; i < rows[row].size(); ++i) {
            std::size_t width = 0;
            for (const auto& other : rows)
                width = std::max(width, i < other.size() ? other[i].size() : 0);
            line += fmt::format(" {:{}}", rows[row][i], width);
        }
        result += TrimEnd(line) + '\n';
    }
    return rows.size() > 1 ? result + end : text;
}

} // namespace

std::string KeywordExample(const IKeywordSyntax& syntax)
{
    std::string name = syntax.GetName() + '\n';
    if (!syntax.GetDataMD())
        return name;
    try {
        const auto data = KeywordDataFactory::Instance().Construct(syntax);
        VisitMD(*syntax.GetDataMD(),
            Overloaded{[&](const IKeywordRecordMD& md) { FillRecord(AsRecord(*data), md, 0, 1); },
                [&](const IKeywordListMD& md) { FillList(AsList(*data), md, Constraint::None); },
                [&](const IKeywordMapMD& md) {
                    if (md.GetSize() > 0)
                        AsMap(*data).SetValue(0, 1);
                },
                [](const auto&) {}});
        std::string text = Core::Decks::WriteKeyword(*data);
        const IKeywordRecordMD* const record = FindFlatRecord(*syntax.GetDataMD());
        return record ? WithNames(text, *record) : text;
    } catch (const Core::Service::Exception&) { // data that no deck can hold
        return name;
    }
}

} // namespace Veld::Quor::Tools
