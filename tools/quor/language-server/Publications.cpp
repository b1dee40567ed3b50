#include "tools/quor/language-server/Publications.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

void Publications::Publish(const std::string& root, std::map<std::string, Json> byUri)
{
    std::set<std::string> changed;
    const std::map<std::string, Json> before = std::exchange(published_[root], std::move(byUri));
    const std::map<std::string, Json>& now = published_[root];
    for (const auto& [uri, diagnostics] : now) {
        const auto earlier = before.find(uri);
        if (earlier == before.end() || earlier->second != diagnostics)
            changed.insert(uri);
    }
    for (const auto& [uri, diagnostics] : before) {
        if (now.count(uri) == 0)
            changed.insert(uri);
    }
    for (const std::string& uri : changed)
        send_("textDocument/publishDiagnostics", {{"uri", uri}, {"diagnostics", AllOf(uri)}});
}

Json Publications::AllOf(const std::string& uri) const
{
    Json all = Json::array();
    for (const auto& [root, byUri] : published_) {
        const auto own = byUri.find(uri);
        if (own == byUri.end())
            continue;
        for (const Json& diagnostic : own->second) {
            if (std::find(all.begin(), all.end(), diagnostic) == all.end())
                all.push_back(diagnostic);
        }
    }
    return all;
}

} // namespace Veld::Quor::Tools::LanguageServer
