#pragma once

namespace Veld::Quor::Tools {
class LoadedLanguage;
struct Settings;
} // namespace Veld::Quor::Tools

namespace Veld::Quor::Tools::LanguageServer {

/// Serves one editor with the Language Server Protocol over standard input and output, until it says "exit"
/// or is gone. `given`: what the command line says; the language is loaded again if the settings file of the
/// editor's folder names documents beside those, and when they change. False if the editor went without
/// having said "shutdown".
bool Serve(LoadedLanguage& language, const Settings& given);

} // namespace Veld::Quor::Tools::LanguageServer
