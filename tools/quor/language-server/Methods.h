#pragma once

#include "tools/quor/language-server/Protocol.h"
#include "tools/quor/language-server/Session.h"

#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// A request or notification of the protocol.
struct Method {
    const char* name;
    Json (*answer)(Session&, const Json& params); ///< throws `RequestError`, `Json::exception`
    bool needsFresh = false; ///< waits until the deck of the document is read as it is now
};

/// Null for one that the server doesn't know.
const Method* FindMethod(const std::string& name);

/// What the server can do, as `initialize` answers it.
Json Capabilities();

// Each in the file of its name, or of what it goes with.
/// @{
Json CodeActions(Session& session, const Json& params);
Json CodeLenses(Session& session, const Json& params);
Json Completion(Session& session, const Json& params);
Json Definition(Session& session, const Json& params);
Json DocumentLinks(Session& session, const Json& params);
Json DocumentSymbols(Session& session, const Json& params);
Json FoldingRanges(Session& session, const Json& params);
Json Formatting(Session& session, const Json& params);
Json Highlights(Session& session, const Json& params);
Json Hover(Session& session, const Json& params);
Json InlayHints(Session& session, const Json& params);
Json OnTypeFormatting(Session& session, const Json& params);
Json PrepareRename(Session& session, const Json& params);
Json RangeFormatting(Session& session, const Json& params);
Json References(Session& session, const Json& params);
Json Rename(Session& session, const Json& params);
Json ResolveCodeLens(Session& session, const Json& params);
Json ResolveCompletion(Session& session, const Json& params);
Json SemanticTokens(Session& session, const Json& params);
Json SemanticTokensInRange(Session& session, const Json& params);
Json SignatureHelp(Session& session, const Json& params);
Json WorkspaceSymbols(Session& session, const Json& params);
/// @}
/// What the numbers of semantic tokens mean.
Json SemanticTokenLegend();

} // namespace Veld::Quor::Tools::LanguageServer
