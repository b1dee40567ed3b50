#include "quor/syntax/KeywordSyntaxUtils.h"

#include "quor/syntax/KeywordSyntaxTable.h"
#include "quor/syntax/internal/KeywordSyntax.h"

#include <cassert>

namespace Veld::Quor::Core::Keywords {

namespace {

const IKeywordSyntax* Find(const char* name)
{
    return KeywordSyntaxTable::Instance(false, true).Lookup(name, true);
}

const IKeywordSyntax* FindSKIP()
{
    static const IKeywordSyntax* const syntax = Find("SKIP");
    return syntax;
}

const IKeywordSyntax* FindSKIPCAR()
{
    static const IKeywordSyntax* const syntax = Find("SKIPCAR");
    return syntax;
}

const IKeywordSyntax* FindSKIPDUN()
{
    static const IKeywordSyntax* const syntax = Find("SKIPDUN");
    return syntax;
}

const IKeywordSyntax* FindENDSKIP()
{
    static const IKeywordSyntax* const syntax = Find("ENDSKIP");
    return syntax;
}

const IKeywordSyntax& Get(const IKeywordSyntax* syntax)
{
    assert(syntax && "KeywordSyntaxUtils: the document lacks a skip keyword");
    return *syntax;
}

} // namespace

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIP()
{
    return Get(FindSKIP());
}

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIPCAR()
{
    return Get(FindSKIPCAR());
}

const IKeywordSyntax& KeywordSyntaxUtils::GetSKIPDUN()
{
    return Get(FindSKIPDUN());
}

const IKeywordSyntax& KeywordSyntaxUtils::GetENDSKIP()
{
    return Get(FindENDSKIP());
}

bool KeywordSyntaxUtils::IsSKIP(const IKeywordSyntax& syntax)
{
    return &syntax == FindSKIP();
}

bool KeywordSyntaxUtils::IsSKIPCAR(const IKeywordSyntax& syntax)
{
    return &syntax == FindSKIPCAR();
}

bool KeywordSyntaxUtils::IsSKIPDUN(const IKeywordSyntax& syntax)
{
    return &syntax == FindSKIPDUN();
}

bool KeywordSyntaxUtils::IsENDSKIP(const IKeywordSyntax& syntax)
{
    return &syntax == FindENDSKIP();
}

bool KeywordSyntaxUtils::IsValid(const IKeywordSyntax& syntax, const std::string& spelling,
    SectionType::Enum section, SimulatorType::Enum simulator, SimulatorModeType::Enum mode)
{
    if (const auto* const own = dynamic_cast<const KeywordSyntax*>(&syntax))
        return own->ValidityOf(spelling).IsValid(section, simulator, mode);
    return syntax.IsValid(section, simulator, spelling);
}

} // namespace Veld::Quor::Core::Keywords
