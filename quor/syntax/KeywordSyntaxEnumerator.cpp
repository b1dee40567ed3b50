#include "quor/syntax/KeywordSyntaxEnumerator.h"

#include <cstddef>
#include <utility>

namespace Veld::Quor::Core::Keywords {

struct KeywordSyntaxEnumerator::KeywordLocation {
    using Rows = decltype(KeywordSyntaxLookupTable::rows_);

    const Rows* rows;
    Rows::const_iterator row;
    std::size_t syntaxIndex; // the next one to deliver
    std::string prefix; // of all names of the level

    KeywordLocation(const KeywordSyntaxLookupTable& table, std::string prefixOfLevel)
        : rows(&table.rows_)
        , row(rows->begin())
        , syntaxIndex(0)
        , prefix(std::move(prefixOfLevel))
    {
    }

    std::string GetName() const
    {
        std::string name = prefix;
        if (row->first != '\0') // the key of the empty name
            name += row->first;
        return name += row->second->tail;
    }
};

KeywordSyntaxEnumerator::KeywordSyntaxEnumerator(KeywordSyntaxLookupTable& table)
    : table_(&table)
    , current_(&currentName_, nullptr)
{
}

KeywordSyntaxEnumerator::KeywordSyntaxEnumerator(const KeywordSyntaxEnumerator& other)
    : table_(other.table_)
    , currentName_(other.currentName_)
    , current_(&currentName_, other.current_.second)
    , locations_(other.locations_)
    , location_(other.location_)
{
}

KeywordSyntaxEnumerator::KeywordSyntaxEnumerator(KeywordSyntaxEnumerator&& other) noexcept
    : table_(other.table_)
    , currentName_(std::move(other.currentName_))
    , current_(&currentName_, other.current_.second)
    , locations_(std::move(other.locations_))
    , location_(other.location_)
{
}

KeywordSyntaxEnumerator& KeywordSyntaxEnumerator::operator=(const KeywordSyntaxEnumerator& other)
{
    return *this = KeywordSyntaxEnumerator(other);
}

KeywordSyntaxEnumerator& KeywordSyntaxEnumerator::operator=(KeywordSyntaxEnumerator&& other) noexcept
{
    table_ = other.table_;
    currentName_ = std::move(other.currentName_);
    current_.second = other.current_.second;
    locations_ = std::move(other.locations_);
    location_ = other.location_;
    return *this;
}

KeywordSyntaxEnumerator::~KeywordSyntaxEnumerator() = default;

void KeywordSyntaxEnumerator::Reset()
{
    locations_.clear();
}

bool KeywordSyntaxEnumerator::NextX(bool includeHidden)
{
    if (locations_.empty()) {
        if (table_->rows_.empty())
            return false;
        AddLocation(*table_, std::string());
        location_ = 0;
    }
    return GetNext(includeHidden);
}

void KeywordSyntaxEnumerator::AddLocation(const KeywordSyntaxLookupTable& table, std::string prefix)
{
    locations_.emplace_back(table, std::move(prefix));
}

/// All rows of a level come first, in ascending order; then the levels below, the last row's first.
bool KeywordSyntaxEnumerator::GetNext(bool includeHidden)
{
    while (!GetCurrentSyntax(includeHidden)) {
        if (GetNextRow())
            continue;
        locations_.erase(locations_.begin() + static_cast<std::ptrdiff_t>(location_));
        if (locations_.empty())
            return false;
        location_ = locations_.size() - 1;
    }
    return true;
}

bool KeywordSyntaxEnumerator::GetNextRow()
{
    const auto& row = *locations_[location_].row->second;
    if (row.children)
        AddLocation(*row.children, locations_[location_].GetName());
    KeywordLocation& location = locations_[location_]; // adding may have moved it
    location.syntaxIndex = 0;
    return ++location.row != location.rows->end();
}

bool KeywordSyntaxEnumerator::GetCurrentSyntax(bool includeHidden)
{
    KeywordLocation& location = locations_[location_];
    const auto* const syntaxes = location.row->second->syntaxes.get();
    if (!syntaxes || location.syntaxIndex == syntaxes->size())
        return false;
    currentName_ = location.GetName();
    while (location.syntaxIndex < syntaxes->size()) {
        const IKeywordSyntax* const syntax = (*syntaxes)[location.syntaxIndex++].get();
        if (includeHidden || !syntax->IsHidden(currentName_)) {
            current_.second =
                const_cast<IKeywordSyntax*>(syntax); // NOLINT: hosts take it so; it has no setter
            return true;
        }
    }
    return false;
}

} // namespace Veld::Quor::Core::Keywords
