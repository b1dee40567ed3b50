#pragma once

namespace Veld::Quor::Core::Keywords {
class KeywordSyntaxTable;
}

namespace Veld::Quor::Tools::LanguageServer {

/// Serves one editor with the Language Server Protocol over standard input and output, until it says "exit"
/// or is gone. False if it went without having said "shutdown".
bool Serve(Core::Keywords::KeywordSyntaxTable& table);

} // namespace Veld::Quor::Tools::LanguageServer
