#pragma once

#include "quor/data/Access.h"

#include "quor/metadata/IKeywordDataMD.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordChoiceMD;
class IKeywordSyntax;

/// What an access asks for, as its failures name it.
struct AccessSubject {
    const IKeywordSyntax* syntax; // null: not known, the text then starts without a keyword
    const IKeywordDataMD* md; // null: an item without metadata
    const char* noun; // for a node without a name
    int index = -1; // of an item of a record, which is named by it if it has no name

    IKeywordDataMD::MDType::Enum Type() const;
    /// "item 'ORAT'"
    std::string Text() const;
    /// Throws `DataAccessError`: the keyword, the subject, then `what`.
    [[noreturn]] void Fail(const std::string& what) const;
    [[noreturn]] void FailType(const std::string& expected) const;
    void CheckType(IKeywordDataMD::MDType::Enum type) const
    {
        if (Type() != type)
            FailType(IKeywordDataMD::MDType::ToString(type));
    }
    /// The metadata of a Choice.
    const IKeywordChoiceMD& Choice() const;
};

/// Throws `DataAccessError`.
[[noreturn]] void FailAccess(const IKeywordSyntax* syntax, const std::string& what);

/// The metadata type of `T`.
template <class T>
constexpr IKeywordDataMD::MDType::Enum typeOf = std::is_same_v<T, bool> ? IKeywordDataMD::MDType::Boolean
    : std::is_same_v<T, int>                                            ? IKeywordDataMD::MDType::Integer
    : std::is_same_v<T, double>                                         ? IKeywordDataMD::MDType::Real
                                                                        : IKeywordDataMD::MDType::String;

/// Whether values of that metadata type are `T`: those of a Line are texts too.
template <class T>
bool HoldsA(IKeywordDataMD::MDType::Enum type)
{
    return type == typeOf<T> || (std::is_same_v<T, std::string> && type == IKeywordDataMD::MDType::Line);
}

template <class T>
void CheckHolds(const AccessSubject& subject)
{
    if (!HoldsA<T>(subject.Type()))
        subject.FailType(IKeywordDataMD::MDType::ToString(typeOf<T>));
}

/// What a list stores of a `T`: a boolean is a byte.
template <class T>
using ListElement = std::conditional_t<std::is_same_v<T, bool>, char, T>;

/// The index of a word of a Choice.
int IndexOfWord(const AccessSubject& subject, std::string_view word);
/// The word of an index that is stored for a Choice.
const std::string& WordOfIndex(const AccessSubject& subject, int index);

std::string Quoted(std::string_view text);
/// "1 item", "2 items"
std::string Counted(long long count, const char* noun);
/// What follows the failure for an unknown name: "; did you mean 'ORAT'?", else "; expected 'ORAT' or
/// 'WRAT'"; empty if no name is known.
std::string SuggestionOf(std::string_view name, const std::vector<std::string>& known);

/// Throws `DataAccessError` for a null pointer.
inline const char* GivenText(const char* text)
{
    if (!text)
        throw DataAccessError("a text is a null pointer");
    return text;
}

} // namespace Veld::Quor::Core::Keywords
