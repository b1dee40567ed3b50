#include "tools/quor/tree/ModeWords.h"

#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

template <class Combine>
ModeTable Combined(const ModeTable& a, const ModeTable& b, Combine combine)
{
    ModeTable table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table.at(i) = static_cast<std::uint8_t>(combine(a.at(i), b.at(i)));
    return table;
}

ModeTable And(const ModeTable& a, const ModeTable& b)
{
    return Combined(a, b, [](unsigned x, unsigned y) { return x & y; });
}

ModeTable Without(const ModeTable& a, const ModeTable& b)
{
    return Combined(a, b, [](unsigned x, unsigned y) { return x & ~y; });
}

/// Whether `part` has the mode wherever `all` has it, and that is somewhere.
bool HasWholeMode(const ModeTable& part, const ModeTable& all, unsigned bit)
{
    bool isSomewhere = false;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if ((all.at(i) & bit) == 0)
            continue;
        if ((part.at(i) & bit) == 0)
            return false;
        isSomewhere = true;
    }
    return isSomewhere;
}

/// `part` of `all` in few words: modes that it has for all simulators, then simulators that it has in all
/// modes, then what is left, as "Sedge (Thermal)".
Words WordsFor(const ModeTable& part, const ModeTable& all)
{
    Words words;
    unsigned told = 0;
    for (const auto& mode : SimulatorModeType::EnumInfos()) {
        if (HasWholeMode(part, all, 1U << mode.value)) {
            words.push_back(mode.text);
            told |= 1U << mode.value;
        }
    }
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        const unsigned modes = part[simulator.value];
        if ((modes & ~told) == 0)
            continue;
        Words inModes;
        for (const auto& mode : SimulatorModeType::EnumInfos()) {
            if (modes != all[simulator.value] && (modes & ~told & 1U << mode.value) != 0)
                inModes.push_back(mode.text);
        }
        words.push_back(
            inModes.empty() ? simulator.text : fmt::format("{} ({})", simulator.text, Join(inModes)));
    }
    return words;
}

/// Of a keyword that is valid nowhere nothing could be said otherwise.
ModeTable AllIfNone(const ModeTable& keyword)
{
    return IsNone(keyword) ? AllModes() : keyword;
}

/// Empty if nobody passes it over.
std::string UnsupportedText(const ModeTable& table, const ModeTable& ofKeyword)
{
    const ModeTable keyword = AllIfNone(ofKeyword);
    const ModeTable unsupported = And(table, keyword);
    if (IsNone(unsupported))
        return "";
    return unsupported == keyword ? "no simulator acts on it"
                                  : "unsupported by " + Join(WordsFor(unsupported, keyword));
}

} // namespace

std::string ValidText(const ModeTable& table, const ModeTable& ofKeyword)
{
    const ModeTable keyword = AllIfNone(ofKeyword);
    const ModeTable valid = And(table, keyword);
    if (valid == keyword)
        return "";
    if (IsNone(valid))
        return "valid nowhere";
    const Words only = WordsFor(valid, keyword);
    const Words never = WordsFor(Without(keyword, valid), keyword);
    return never.size() < only.size() ? "not for " + Join(never) : "only for " + Join(only);
}

std::string RestrictionsText(const ModeTable& valid, const ModeTable& unsupported, const ModeTable& keyword)
{
    Words texts;
    for (std::string text : {ValidText(valid, keyword), UnsupportedText(unsupported, keyword)}) {
        if (!text.empty())
            texts.push_back(std::move(text));
    }
    return Join(texts, "; ");
}

} // namespace Veld::Quor::Tools
