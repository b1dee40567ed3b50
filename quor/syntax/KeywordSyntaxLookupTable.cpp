#include "quor/syntax/KeywordSyntaxLookupTable.h"

#include "quor/foundation/service/AssertFailure.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Keywords {

namespace {

constexpr char asterisk = '*';

char KeyOf(std::string_view name)
{
    return name.empty() ? '\0' : name.front();
}

std::string_view RestOf(std::string_view name)
{
    return name.empty() ? name : name.substr(1);
}

/// Number of characters that the two have in common at their start.
std::size_t CommonLength(std::string_view a, std::string_view b)
{
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

void CheckLength(std::string_view rest)
{
    constexpr std::size_t longest = 8;
    const std::size_t length = rest.size() + 1;
    if (length <= longest)
        return;
    // Wanted: only what is new to the tree is measured and reported, without its first character.
    const std::string message =
        "Keyword '" + std::string(rest) + "' has invalid length = " + std::to_string(length);
    Service::AssertFailure(message.c_str(), nullptr);
}

} // namespace

const std::string KeywordSyntaxLookupTable::s_wildcardAsterix = "*";

KeywordSyntaxLookupTable::KeywordSyntaxLookupTable() = default;

KeywordSyntaxLookupTable::~KeywordSyntaxLookupTable()
{
    // Level by level: a document may have names that each continue the one before, thousands deep. A chain
    // of levels needs no memory.
    std::unique_ptr<KeywordSyntaxLookupTable> pending;
    const auto detachChildren = [&pending](KeywordSyntaxLookupTable& level) {
        for (auto& entry : level.rows_) {
            if (!entry.second->children)
                continue;
            entry.second->children->next_ = std::move(pending);
            pending = std::move(entry.second->children);
        }
    };
    detachChildren(*this);
    while (pending) {
        const auto level = std::move(pending);
        pending = std::move(level->next_);
        detachChildren(*level);
    }
}

void KeywordSyntaxLookupTable::AddSyntax(
    const std::string& name, std::shared_ptr<const IKeywordSyntax> syntax)
{
    Row& row = FindOrAddRow(name);
    if (!row.syntaxes)
        row.syntaxes = std::make_unique<Syntaxes>();
    row.syntaxes->push_back(std::move(syntax));
}

KeywordSyntaxLookupTable::Syntaxes KeywordSyntaxLookupTable::Lookup(
    const std::string& name, bool wildcards) const
{
    const Syntaxes* const syntaxes = FindSyntaxes(name, wildcards);
    return syntaxes ? *syntaxes : Syntaxes();
}

const KeywordSyntaxLookupTable::Syntaxes* KeywordSyntaxLookupTable::FindSyntaxes(
    std::string_view name, bool wildcards) const
{
    const Row* const row = Find(name, wildcards);
    return row ? row->syntaxes.get() : nullptr;
}

KeywordSyntaxLookupTable::Row* KeywordSyntaxLookupTable::FindRow(char key) const
{
    const auto at = rows_.find(key);
    return at == rows_.end() ? nullptr : at->second.get();
}

/// There are two sorts of wildcard, and hosts rely on the difference. A `*` within a tail always matches. A
/// `*` that became a separate row, since another name split the edge, matches only if `wildcards` is set,
/// or if the name ends at the row above it.
const KeywordSyntaxLookupTable::Row* KeywordSyntaxLookupTable::Find(
    std::string_view name, bool wildcards) const
{
    const KeywordSyntaxLookupTable* level = this;
    const Row* longestWildcard = nullptr; // that catches the name if no exact row does
    for (;;) {
        const Row* const row = level->FindRow(KeyOf(name));
        if (!row) {
            const Row* const here = wildcards ? level->FindRow(asterisk) : nullptr;
            return here ? here : longestWildcard;
        }
        const std::string_view rest = RestOf(name);
        const std::string_view tail = row->tail;
        // A `*` of the tail matches whatever is opposite, a `*` of the name too.
        const std::size_t common = CommonLength(tail.substr(0, tail.find(asterisk)), rest);
        const bool tailLeft = common < tail.size();
        if (tailLeft && tail[common] != asterisk)
            return longestWildcard;
        if (tailLeft && common == rest.size())
            return row;
        if (tailLeft || common == rest.size()) {
            if (row->syntaxes)
                return row;
            const Row* const below = row->children ? row->children->FindAsterisk() : nullptr;
            return below ? below : longestWildcard;
        }
        if (!row->children)
            return longestWildcard;
        level = row->children.get();
        name = rest.substr(common);
        if (wildcards) {
            if (const Row* const wildcard = level->FindAsterisk())
                longestWildcard = wildcard;
        }
    }
}

/// What the name "*" finds at this level.
const KeywordSyntaxLookupTable::Row* KeywordSyntaxLookupTable::FindAsterisk() const
{
    const Row* row = FindRow(asterisk);
    while (row && row->tail.empty() && !row->syntaxes)
        row = row->children ? row->children->FindRow(asterisk) : nullptr;
    const bool matches = row && (row->tail.empty() || row->tail.front() == asterisk);
    return matches ? row : nullptr;
}

KeywordSyntaxLookupTable::Row& KeywordSyntaxLookupTable::FindOrAddRow(std::string_view name)
{
    KeywordSyntaxLookupTable* level = this;
    for (;;) {
        Row* const row = level->FindRow(KeyOf(name));
        if (!row)
            return level->AddRow(name);
        const std::string_view rest = RestOf(name);
        const std::size_t common = CommonLength(row->tail, rest); // in adding, `*` is like any character
        if (common < row->tail.size())
            Split(*row, common);
        if (common == rest.size())
            return *row;
        if (!row->children)
            row->children = std::make_unique<KeywordSyntaxLookupTable>();
        level = row->children.get();
        name = rest.substr(common);
    }
}

KeywordSyntaxLookupTable::Row& KeywordSyntaxLookupTable::AddRow(std::string_view name)
{
    const std::string_view rest = RestOf(name);
    CheckLength(rest);
    auto row = std::make_unique<Row>();
    row->tail = rest;
    return *rows_.emplace(KeyOf(name), std::move(row)).first->second;
}

void KeywordSyntaxLookupTable::Split(Row& row, std::size_t position)
{
    auto children = std::make_unique<KeywordSyntaxLookupTable>();
    Row& lower = children->AddRow(std::string_view(row.tail).substr(position));
    lower.syntaxes = std::move(row.syntaxes);
    lower.children = std::move(row.children);
    row.children = std::move(children);
    row.tail.resize(position);
}

} // namespace Veld::Quor::Core::Keywords
