// A host as it would be: finds a keyword of the built-in document, and survives a load that fails.

#include "quor/Keywords.h"

#include <cstdlib>
#include <iostream>

using namespace Veld::Quor::Core;

int main()
{
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    ::unsetenv("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    const Keywords::IKeywordSyntax* const syntax =
        Keywords::KeywordSyntaxTable::Instance().Lookup("GRID", true);
    if (!syntax || syntax->GetDeckRole() != Keywords::KeywordDeckRole::Section)
        return 1;
    Keywords::KeywordSyntaxTable::Instance(true, false);
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", "/nonexistent.xml", 1);
    try {
        Keywords::KeywordSyntaxTable::Instance();
        return 2;
    } catch (const Service::Exception& error) {
        std::cerr << error.what() << '\n';
    }
    const Service::Time time(2024, 2, 29, 0, 0, 0, 0);
    return time.IsDef() && Service::Optional<int>(7).HasValue() ? 0 : 3;
}
