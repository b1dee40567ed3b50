#include "tools/quor/language-server/Protocol.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

std::size_t CountIn(const Json& json, const char* name)
{
    const double number = json.at(name).get<double>(); // whatever kind of number a client sends
    constexpr double most = 4e9;
    return static_cast<std::size_t>(std::clamp(number, 0.0, most));
}

constexpr std::string_view fileScheme = "file://";

bool IsPlainInUri(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
        || std::string_view("-._~/").find(c) != std::string_view::npos;
}

} // namespace

Position PositionIn(const Json& json)
{
    return {CountIn(json, "line"), CountIn(json, "character")};
}

Span SpanIn(const Json& json)
{
    return {PositionIn(json.at("start")), PositionIn(json.at("end"))};
}

Json ToJson(const Position& position)
{
    return {{"line", position.line}, {"character", position.character}};
}

Json ToJson(const Span& span)
{
    return {{"start", ToJson(span.begin)}, {"end", ToJson(span.end)}};
}

std::string UriIn(const Json& params)
{
    return params.at("textDocument").at("uri").get<std::string>();
}

std::string PathOfUri(const std::string& uri)
{
    if (!uri.starts_with(fileScheme))
        return {};
    std::string path;
    for (std::size_t i = std::min(uri.find('/', fileScheme.size()), uri.size()); i < uri.size(); ++i) {
        unsigned char byte = 0;
        const char* const digits = uri.data() + i + 1;
        if (uri[i] == '%' && i + 2 < uri.size()
            && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            path += static_cast<char>(byte);
            i += 2;
        } else {
            path += uri[i];
        }
    }
    return path;
}

std::string UriOfPath(const std::string& path)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri(fileScheme);
    for (const char c : path) {
        if (IsPlainInUri(c)) {
            uri += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri += {'%', digits[byte / 16U], digits[byte % 16U]};
    }
    return uri;
}

std::vector<std::string> FoldersIn(const Json& params)
{
    std::vector<std::string> folders;
    for (const Json& folder : MemberOf(params, "workspaceFolders")) {
        if (const Json& uri = MemberOf(folder, "uri"); uri.is_string())
            folders.push_back(PathOfUri(uri));
    }
    if (const Json& uri = MemberOf(params, "rootUri"); folders.empty() && uri.is_string())
        folders.push_back(PathOfUri(uri));
    return folders;
}

const Json& MemberOf(const Json& json, const char* name)
{
    static const Json none;
    const auto member = json.is_object() ? json.find(name) : json.end();
    return member == json.end() ? none : *member;
}

const Json& MemberAt(const Json& json, std::initializer_list<const char*> path)
{
    const Json* member = &json;
    for (const char* const name : path)
        member = &MemberOf(*member, name);
    return *member;
}

} // namespace Veld::Quor::Tools::LanguageServer
