#include "quor/data/internal/AccessCheck.h"

#include "quor/data/Access.h"
#include "quor/foundation/service/Strings.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

namespace {

/// "'ORAT', 'WRAT' or 'GRAT'"
std::string Listed(const std::vector<std::string>& names)
{
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? "" : i + 1 == names.size() ? " or " : ", ";
        text += Quoted(names[i]);
    }
    return text;
}

std::vector<std::string> WordsOf(const IKeywordChoiceMD& md)
{
    std::vector<std::string> words;
    for (int i = 0; i < md.NumChoices(); ++i)
        words.push_back(md.GetChoice(i));
    return words;
}

/// Whether one character was left out, added or replaced, or two neighbours were exchanged; or only case
/// differs.
bool IsNearName(std::string_view text, std::string_view name)
{
    std::string a(text);
    std::string b(name);
    Service::StringToUpper(a);
    Service::StringToUpper(b);
    const auto [endA, endB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const std::string tailA(endA, a.end());
    const std::string tailB(endB, b.end());
    const auto [rA, rB] = std::mismatch(tailA.rbegin(), tailA.rend(), tailB.rbegin(), tailB.rend());
    const std::string oddA(rA, tailA.rend()); // what is left without common start and end, reversed
    const std::string oddB(rB, tailB.rend());
    if (oddA.size() <= 1 && oddB.size() <= 1)
        return true;
    return oddA.size() == 2 && oddB.size() == 2 && oddA[0] == oddB[1] && oddA[1] == oddB[0];
}

} // namespace

DataAccessError::DataAccessError(const std::string& message)
    : Exception(message)
{
}

DataAccessError::~DataAccessError() = default;

IKeywordDataMD::MDType::Enum AccessSubject::Type() const
{
    return KeywordUtils::GetMDType(md);
}

std::string AccessSubject::Text() const
{
    if (md && !md->GetName().empty())
        return "item " + Quoted(md->GetName());
    return index < 0 ? noun : "item at index " + std::to_string(index);
}

void AccessSubject::Fail(const std::string& what) const
{
    FailAccess(syntax, Text() + ' ' + what);
}

void AccessSubject::FailType(const std::string& expected) const
{
    Fail("is " + IKeywordDataMD::MDType::ToString(Type()) + ", not " + expected);
}

const IKeywordChoiceMD& AccessSubject::Choice() const
{
    CheckType(IKeywordDataMD::MDType::Choice);
    return CastMD<const IKeywordChoiceMD>(*md);
}

void FailAccess(const IKeywordSyntax* syntax, const std::string& what)
{
    throw DataAccessError(syntax ? syntax->GetName() + ": " + what : what);
}

int IndexOfWord(const AccessSubject& subject, std::string_view word)
{
    const IKeywordChoiceMD& md = subject.Choice();
    const std::string text(word);
    for (int i = 0; i < md.NumChoices(); ++i) {
        if (Service::NoCaseStringEqual(md.GetChoice(i), text))
            return i;
    }
    subject.Fail("has no choice " + Quoted(word) + "; expected " + Listed(WordsOf(md)));
}

const std::string& WordOfIndex(const AccessSubject& subject, int index)
{
    const IKeywordChoiceMD& md = subject.Choice();
    if (index < 0 || index >= md.NumChoices())
        subject.Fail("holds " + std::to_string(index) + ", which is not the index of a choice; expected 0 to "
            + std::to_string(md.NumChoices() - 1));
    return md.GetChoice(index);
}

std::string Quoted(std::string_view text)
{
    return '\'' + std::string(text) + '\'';
}

std::string Counted(long long count, const char* noun)
{
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string SuggestionOf(std::string_view name, const std::vector<std::string>& known)
{
    for (const std::string& each : known) {
        if (IsNearName(name, each))
            return "; did you mean " + Quoted(each) + '?';
    }
    return known.empty() ? "" : "; expected " + Listed(known);
}

} // namespace Veld::Quor::Core::Keywords
