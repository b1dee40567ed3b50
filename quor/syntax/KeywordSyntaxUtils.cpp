#include "quor/syntax/KeywordSyntaxUtils.h"

#include "quor/syntax/internal/KeywordSyntax.h"
#include "quor/syntax/internal/TableKeyword.h"

#include <cassert>

namespace Veld::Quor::Core::Keywords {

namespace {

constinit TableKeyword skip("SKIP");
constinit TableKeyword skipcar("SKIPCAR");
constinit TableKeyword skipdun("SKIPDUN");
constinit TableKeyword endskip("ENDSKIP");

const IKeywordSyntax& Get(TableKeyword& keyword)
{
    const IKeywordSyntax* const syntax = keyword.Find();
    assert(syntax && "KeywordSyntaxUtils: the document lacks a skip keyword");
    return *syntax;
}

} // namespace

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIP()
{
    return Get(skip);
}

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIPCAR()
{
    return Get(skipcar);
}

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIPDUN()
{
    return Get(skipdun);
}

const IKeywordSyntax& KeywordSyntaxUtils::GetENDSKIP()
{
    return Get(endskip);
}

bool KeywordSyntaxUtils::IsSKIP(const IKeywordSyntax& syntax)
{
    return &syntax == skip.Find();
}

bool KeywordSyntaxUtils::IsSKIPCAR(const IKeywordSyntax& syntax)
{
    return &syntax == skipcar.Find();
}

bool KeywordSyntaxUtils::IsSKIPDUN(const IKeywordSyntax& syntax)
{
    return &syntax == skipdun.Find();
}

bool KeywordSyntaxUtils::IsENDSKIP(const IKeywordSyntax& syntax)
{
    return &syntax == endskip.Find();
}

bool KeywordSyntaxUtils::IsValid(const IKeywordSyntax& syntax, const std::string& spelling,
    SectionType::Enum section, SimulatorType::Enum simulator, SimulatorModeType::Enum mode)
{
    if (const auto* const own = dynamic_cast<const KeywordSyntax*>(&syntax))
        return own->ValidityOf(spelling).IsValid(section, simulator, mode);
    return syntax.IsValid(section, simulator, spelling);
}

} // namespace Veld::Quor::Core::Keywords
