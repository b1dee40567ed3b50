#pragma once

#include "quor/deck/internal/rules/KeyTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The names of records of which nothing is to be said: the first name of a record, and the key of all else
/// that the rules of names look at.
///
/// Most records are as the one before them of that name. Names come in the same order again, so that their
/// last keys are next to each other, which they aren't in a table of all keys.
class SettledNames {
public:
    /// The last keys by number of the name; 0: there is none.
    class Last {
    public:
        explicit Last(std::size_t rules)
            : rules_(rules)
        {
        }

        /// For names whose numbers are below `names`, of which `count` are asked for: none where there would
        /// be many more names than records.
        void Reserve(std::size_t names, std::size_t count)
        {
            asked_ += count;
            if (names > keys_.size() && names <= 16 * asked_)
                keys_.resize(std::max(names, 2 * keys_.size()));
        }
        std::uint64_t* Find(std::uint32_t name) { return name < keys_.size() ? &keys_[name] : nullptr; }
        /// The key of a record among those of all rules.
        std::uint64_t KeyOfAll(std::uint32_t name, std::uint64_t key) const
        {
            KeyOfParts ofAll = KeyOfParts::From(key);
            ofAll.Add(name);
            ofAll.Add(rules_);
            return ofAll.Get();
        }

    private:
        std::size_t rules_; // their number
        std::vector<std::uint64_t> keys_;
        std::size_t asked_ = 0;
    };

    /// Of one record's rules, by their number. Lasts until those of another are asked for.
    Last& GetLast(std::size_t rules)
    {
        while (rules >= last_.size())
            last_.emplace_back(last_.size());
        return last_[rules];
    }

    /// `name`: the number of the record's first name.
    /// @{
    bool Has(Last& last, std::uint32_t name, std::uint64_t key)
    {
        std::uint64_t* const found = last.Find(name);
        return (found && *found == key) || HasOther(last, name, key);
    }
    /// Of one that it hasn't.
    void Add(Last& last, std::uint32_t name, std::uint64_t key)
    {
        if (last.Find(name))
            Replace(last, name, key);
        else
            others_.Add(last.KeyOfAll(name, key), {});
    }
    /// @}

private:
    bool HasOther(Last& last, std::uint32_t name, std::uint64_t key)
    {
        const bool has = others_.Has(last.KeyOfAll(name, key));
        if (has && last.Find(name))
            Replace(last, name, key);
        return has;
    }
    void Replace(Last& last, std::uint32_t name, std::uint64_t key)
    {
        std::uint64_t& now = *last.Find(name);
        if (now != 0)
            others_.Add(last.KeyOfAll(name, now), {});
        now = key;
    }

    std::vector<Last> last_; // by number of the rules
    KeyTable<Nothing> others_;
};

} // namespace Veld::Quor::Core::Decks
