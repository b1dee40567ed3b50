#include "tools/quor/language-server/Methods.h"

#include "tools/quor/Version.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

Json DidOpen(Session& session, const Json& params)
{
    const Json& document = params.at("textDocument");
    session.Open(document.at("uri").get<std::string>(), document.at("text").get<std::string>());
    return {};
}

Json DidChange(Session& session, const Json& params)
{
    session.Change(UriIn(params), params.at("contentChanges"));
    return {};
}

Json DidClose(Session& session, const Json& params)
{
    session.Close(UriIn(params));
    return {};
}

Json Initialized(Session& session, const Json&)
{
    session.StartWatching();
    return {};
}

Json DidChangeFiles(Session& session, const Json& params)
{
    session.ChangeFiles(params.at("changes"));
    return {};
}

Json DidChangeSettings(Session& session, const Json& params)
{
    const Json& settings = MemberOf(params, "settings");
    session.SetSettings(settings.contains("quor") ? settings.at("quor") : settings);
    return {};
}

Json DidChangeFolders(Session& session, const Json& params)
{
    session.ChangeFolders(params.at("event"));
    return {};
}

Json Nothing(Session&, const Json&)
{
    return {};
}

constexpr Method methods[] = {
    {"$/cancelRequest", Nothing}, // the inbox does it
    {"$/setTrace", Nothing},
    {"codeLens/resolve", ResolveCodeLens},
    {"completionItem/resolve", ResolveCompletion},
    {"initialized", Initialized},
    {"textDocument/codeAction", CodeActions, true},
    {"textDocument/codeLens", CodeLenses},
    {"textDocument/completion", Completion},
    {"textDocument/definition", Definition},
    {"textDocument/didChange", DidChange},
    {"textDocument/didClose", DidClose},
    {"textDocument/didOpen", DidOpen},
    {"textDocument/didSave", Nothing},
    {"textDocument/documentHighlight", Highlights},
    {"textDocument/documentLink", DocumentLinks},
    {"textDocument/documentSymbol", DocumentSymbols},
    {"textDocument/foldingRange", FoldingRanges},
    {"textDocument/formatting", Formatting, true},
    {"textDocument/hover", Hover},
    {"textDocument/inlayHint", InlayHints},
    {"textDocument/onTypeFormatting", OnTypeFormatting, true},
    {"textDocument/prepareRename", PrepareRename, true},
    {"textDocument/rangeFormatting", RangeFormatting, true},
    {"textDocument/references", References},
    {"textDocument/rename", Rename, true},
    {"textDocument/semanticTokens/full", SemanticTokens},
    {"textDocument/semanticTokens/range", SemanticTokensInRange},
    {"textDocument/signatureHelp", SignatureHelp},
    {"workspace/didChangeConfiguration", DidChangeSettings},
    {"workspace/didChangeWatchedFiles", DidChangeFiles},
    {"workspace/didChangeWorkspaceFolders", DidChangeFolders},
    {"workspace/symbol", WorkspaceSymbols},
};

} // namespace

const Method* FindMethod(const std::string& name)
{
    const auto* const method = std::find_if(
        std::begin(methods), std::end(methods), [&name](const Method& row) { return name == row.name; });
    return method == std::end(methods) ? nullptr : method;
}

Json Capabilities()
{
    Json can = {
        {"positionEncoding", "utf-16"},
        {"textDocumentSync", {{"openClose", true}, {"change", 2}}},
        {"codeActionProvider", {{"codeActionKinds", {"quickfix", "source.fixAll.quor"}}}},
        {"codeLensProvider", {{"resolveProvider", true}}},
        {"completionProvider", {{"triggerCharacters", {"'", "/"}}, {"resolveProvider", true}}},
        {"documentLinkProvider", Json::object()},
        {"documentOnTypeFormattingProvider", {{"firstTriggerCharacter", "/"}}},
        {"renameProvider", {{"prepareProvider", true}}},
        {"semanticTokensProvider", {{"legend", SemanticTokenLegend()}, {"full", true}, {"range", true}}},
        {"signatureHelpProvider", {{"triggerCharacters", {" ", "'"}}}},
        {"workspace", {{"workspaceFolders", {{"supported", true}, {"changeNotifications", true}}}}},
    };
    for (const char* const plain :
        {"definitionProvider", "documentFormattingProvider", "documentHighlightProvider",
            "documentRangeFormattingProvider", "documentSymbolProvider", "foldingRangeProvider",
            "hoverProvider", "inlayHintProvider", "referencesProvider", "workspaceSymbolProvider"})
        can[plain] = true;
    return {{"capabilities", std::move(can)}, {"serverInfo", {{"name", "quor"}, {"version", GetVersion()}}}};
}

} // namespace Veld::Quor::Tools::LanguageServer
