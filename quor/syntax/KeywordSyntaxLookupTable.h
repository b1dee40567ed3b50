#pragma once

#include "quor/foundation/Export.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Names to syntaxes: a character tree with compressed edges, made for names of at most eight characters. A
/// stored name may end in `*`, and then stands for every name that starts with what precedes it. Names are
/// compared byte by byte.
///
/// An object is one level of the tree; the root is the table. It only grows. Looking up from several threads
/// is safe while nobody adds.
class VELD_QUOR_EXPORT KeywordSyntaxLookupTable {
public:
    /// What one name stands for, in the order of adding.
    using Syntaxes = std::vector<std::shared_ptr<const IKeywordSyntax>>;

    KeywordSyntaxLookupTable();
    ~KeywordSyntaxLookupTable();
    KeywordSyntaxLookupTable(const KeywordSyntaxLookupTable&) = delete;
    KeywordSyntaxLookupTable& operator=(const KeywordSyntaxLookupTable&) = delete;

    /// Appends `syntax` to what is stored under `name`. Reports a name that is too long through
    /// `Service::AssertFailure`, as far as the part that is new to the tree shows, and stores it all the
    /// same.
    void AddSyntax(const std::string& name, std::shared_ptr<const IKeywordSyntax> syntax);

    /// The syntaxes under `name`, in the order of adding; empty if there are none. An exact name beats a
    /// wildcard, and of wildcards the longest wins. With `wildcards` false a wildcard still matches where it
    /// shares no prefix with another stored name, and for the name that is just its prefix.
    Syntaxes Lookup(const std::string& name, bool wildcards) const;

    /// The same without the copy: null if there are none. Lasts until the next `AddSyntax`.
    const Syntaxes* FindSyntaxes(std::string_view name, bool wildcards) const;

private:
    friend class KeywordSyntaxEnumerator;

    struct Row {
        std::unique_ptr<KeywordSyntaxLookupTable> children; // null: nothing continues from here
        std::string tail; // the edge after the character that is the key
        std::unique_ptr<Syntaxes> syntaxes; // null: an inner row
    };
    struct BySignedValue {
        bool operator()(char a, char b) const
        {
            return static_cast<signed char>(a) < static_cast<signed char>(b);
        }
    };

    Row* FindRow(char key) const;
    const Row* Find(std::string_view name, bool wildcards) const;
    const Row* FindAsterisk() const;

    Row& FindOrAddRow(std::string_view name);
    Row& AddRow(std::string_view name);
    static void Split(Row& row, std::size_t position);

    static const std::string s_wildcardAsterix;

    std::map<char, std::unique_ptr<Row>, BySignedValue> rows_;
    std::unique_ptr<KeywordSyntaxLookupTable> next_; // while it is destroyed: what is to be next
};

} // namespace Veld::Quor::Core::Keywords
