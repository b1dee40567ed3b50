#include "tools/quor/language-server/NameIndex.h"

#include "quor/deck/ValueAddress.h"
#include "quor/deck/WrittenWords.h"
#include "tools/quor/language-server/Scalars.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <set>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using Core::Keywords::IKeywordSyntax;

namespace {

std::string KeyOfName(std::size_t kind, std::string_view text)
{
    return fmt::format("{} {}", kind, ToUpper(std::string(text)));
}

/// Of several kinds that an item is of, as "well" and "well with segments", the first is what its names are
/// called.
void KeepFirstKinds(std::vector<NamedItem>& items)
{
    const std::vector<NamedItem> all = items;
    std::erase_if(items, [&all](const NamedItem& item) {
        return std::any_of(all.begin(), all.end(),
            [&item](const NamedItem& other) { return other.item == item.item && other.kind < item.kind; });
    });
}

/// The item that a scalar is, or is an element of.
bool IsItemOf(const NamedItem& item, const ScalarPlace& place)
{
    return item.item == (place.record ? *place.name : std::string());
}

} // namespace

NameRules::NameRules(const Decks::DeckLanguage& language)
    : language_(language)
    , kinds_(language.GetNameKinds())
{
}

const std::vector<NamedItem>& NameRules::Get(const IKeywordSyntax& syntax)
{
    const std::lock_guard lock(mutex_);
    const auto [entry, isNew] = items_.try_emplace(&syntax);
    if (!isNew)
        return entry->second;
    for (const Decks::KeywordRule& rule : language_.GetRules(syntax)) {
        const bool isDefinition = rule.kind == "defines";
        const auto kind = std::find(kinds_.begin(), kinds_.end(), rule.what);
        if ((isDefinition || rule.kind == "refers-to") && kind != kinds_.end())
            entry->second.push_back(
                {static_cast<std::size_t>(kind - kinds_.begin()), rule.item, isDefinition});
    }
    KeepFirstKinds(entry->second);
    return entry->second;
}

NameIndex::NameIndex(const Decks::Deck& deck, NameRules& rules)
    : byFile_(deck.GetFiles().GetSize())
{
    for (const Decks::DeckKeyword keyword : deck) {
        const std::vector<NamedItem>& items = rules.Get(keyword.GetSyntax());
        const auto* const ranges = items.empty() ? nullptr : FindValueRanges(deck, keyword);
        if (!ranges)
            continue;
        ForEachScalar(*keyword.FindData(), false, [&](const ScalarPlace& place) {
            for (const NamedItem& item : items) {
                if (IsItemOf(item, place))
                    Add(deck.GetFiles(), item,
                        {0, static_cast<std::uint32_t>(keyword.GetIndex()), item.isDefinition,
                            (*ranges)[place.slot]});
            }
        });
    }
    for (auto& uses : byFile_)
        std::stable_sort(uses.begin(), uses.end(), [this](std::uint32_t a, std::uint32_t b) {
            return uses_[a].range.offset < uses_[b].range.offset;
        });
}

void NameIndex::Add(const Decks::DeckFiles& files, const NamedItem& item, const NameUse& use)
{
    if (use.range.length == 0)
        return;
    const std::string_view text = files.GetText(use.range);
    const auto words = Decks::FindWords(text);
    if (words.empty() || words.front().isDefault)
        return;
    const auto number = static_cast<std::uint32_t>(uses_.size());
    NameUse& added = uses_.emplace_back(use);
    added.name = NumberOf(item.kind, words.front().text);
    DeckName& name = names_[added.name];
    name.uses.push_back(number);
    name.isDefined = name.isDefined || use.isDefinition;
    byFile_[use.range.file].push_back(number);
}

std::uint32_t NameIndex::NumberOf(std::size_t kind, std::string_view text)
{
    const auto [entry, isNew] =
        numbers_.try_emplace(KeyOfName(kind, text), static_cast<std::uint32_t>(names_.size()));
    if (isNew)
        names_.push_back({kind, std::string(text)});
    return entry->second;
}

std::vector<std::uint32_t> NameIndex::FindAt(std::uint32_t file, std::size_t offset) const
{
    const auto& uses = byFile_.at(file);
    const auto begins = [this](std::uint32_t use) { return uses_[use].range.offset; };
    auto use = std::upper_bound(uses.begin(), uses.end(), offset,
        [&](std::size_t at, std::uint32_t other) { return at < begins(other); });
    std::vector<std::uint32_t> found;
    if (use == uses.begin())
        return found;
    const std::size_t begin = begins(*--use);
    if (begin + uses_[*use].range.length < offset)
        return found;
    for (;; --use) {
        if (begins(*use) != begin)
            return found;
        found.push_back(*use);
        if (use == uses.begin())
            return found;
    }
}

std::optional<std::uint32_t> NameIndex::FindNumber(std::size_t kind, const std::string& text) const
{
    const auto number = numbers_.find(KeyOfName(kind, text));
    return number == numbers_.end() ? std::nullopt : std::optional(number->second);
}

std::vector<std::uint32_t> NameIndex::FindSame(std::uint32_t use) const
{
    std::set<std::uint32_t> same = {uses_[use].name};
    const std::string text = ToUpper(names_[uses_[use].name].text);
    std::vector<std::uint32_t> open(same.begin(), same.end());
    while (!open.empty()) {
        const DeckName& name = names_[open.back()];
        open.pop_back();
        for (const std::uint32_t one : name.uses) {
            for (const std::uint32_t other : FindAt(uses_[one].range.file, uses_[one].range.offset)) {
                if (uses_[other].range.length == uses_[one].range.length
                    && same.insert(uses_[other].name).second)
                    open.push_back(uses_[other].name);
            }
        }
    }
    for (std::uint32_t i = 0; text.starts_with('*') && i < names_.size(); ++i) {
        if (ToUpper(names_[i].text) == text)
            same.insert(i);
    }
    return {same.begin(), same.end()};
}

} // namespace Veld::Quor::Tools::LanguageServer
