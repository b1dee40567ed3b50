#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

using Json = nlohmann::json;

/// In a text as editors count: lines from 0, columns in units of UTF-16, from 0.
struct Position {
    std::size_t line = 0;
    std::size_t character = 0;
};

/// From a position up to another one, which is not part of it.
struct Span {
    Position begin;
    Position end;
};

/// The numbers by which the protocol says what is wrong with a request.
enum class ErrorCode {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    InternalError = -32603,
    NotInitialized = -32002,
    RequestFailed = -32803,
    RequestCancelled = -32800,
};

/// A request can't be answered. The text is for the user.
class RequestError : public std::runtime_error {
public:
    RequestError(ErrorCode code, const std::string& message)
        : std::runtime_error(message)
        , code_(code)
    {
    }

    ErrorCode GetCode() const { return code_; }

private:
    ErrorCode code_;
};

/// Of objects of the protocol. Numbers below 0 count as 0; what is no position throws `Json::exception`.
Position PositionIn(const Json& json);
Span SpanIn(const Json& json);
Json ToJson(const Position& position);
Json ToJson(const Span& span);

/// `params.textDocument.uri`
std::string UriIn(const Json& params);

/// The path of a "file" URI; empty for any other URI.
std::string PathOfUri(const std::string& uri);
std::string UriOfPath(const std::string& path);

/// The paths of the folders that a client has open.
std::vector<std::string> FoldersIn(const Json& initializeParams);

/// The member, or null if there is none; `json` may be anything.
const Json& MemberOf(const Json& json, const char* name);
/// A text at a path of members, as {"capabilities", "hover"}; null if some part is missing.
const Json& MemberAt(const Json& json, std::initializer_list<const char*> path);

} // namespace Veld::Quor::Tools::LanguageServer
