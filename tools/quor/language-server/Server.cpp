#include "tools/quor/language-server/Server.h"

#include "tools/quor/language-server/Framing.h"
#include "tools/quor/language-server/Inbox.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/Session.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <thread>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

void SendMessage(const Json& message)
{
    Print(Frame(message.dump(-1, ' ', false, Json::error_handler_t::replace)));
    std::fflush(stdout);
}

void SendNotification(const std::string& method, Json params)
{
    SendMessage({{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}});
}

void SendError(const Json& id, ErrorCode code, const std::string& message)
{
    SendMessage({{"jsonrpc", "2.0"}, {"id", id},
        {"error", {{"code", static_cast<int>(code)}, {"message", message}}}});
}

/// Until the client is gone.
void ReadMessages(Inbox& inbox)
{
    while (const auto content = ReadMessage(stdin)) {
        try {
            inbox.Push(Json::parse(*content));
        } catch (const Json::exception&) {
            inbox.Push(BadMessage());
        }
    }
    inbox.Push(EndOfMessages());
}

/// Takes events one after another, and answers requests from what is known by then.
class Server {
public:
    explicit Server(Core::Keywords::KeywordSyntaxTable& table)
        : session_(table, SendNotification, [this](ReadResult result) { inbox_.Push(std::move(result)); })
        , input_([this] { ReadMessages(inbox_); })
    {
    }
    ~Server() { input_.detach(); } // it may wait for input that never comes
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool Run();

private:
    void Handle(const Json& message);
    void HandleRequest(const Json& message, const std::string& method);
    void Answer(const Json& message, const Method& method);
    void AnswerWaiting();
    void StartUp(const Json& message);
    bool MustWait(const Json& message, const Method& method) const;

    Inbox& inbox_ = *new Inbox(); // never freed: the thread of the input may use it to the end
    Session session_;
    std::thread input_;
    bool isInitialized_ = false;
    bool isShutDown_ = false;
    bool isOver_ = false;
    std::vector<Json> waiting_; // requests, until a deck has been read
};

bool Server::Run()
{
    while (!isOver_) {
        Event event = inbox_.Pop();
        if (const Json* const message = std::get_if<Json>(&event)) {
            Handle(*message);
        } else if (auto* const result = std::get_if<ReadResult>(&event)) {
            session_.Take(std::move(*result));
        } else if (std::holds_alternative<BadMessage>(event)) {
            SendError(nullptr, ErrorCode::ParseError, "the message is no JSON");
        } else {
            isOver_ = true;
        }
        AnswerWaiting();
        if (inbox_.IsEmpty()) // else more changes may come at once
            session_.SubmitReads();
    }
    return isShutDown_;
}

void Server::Handle(const Json& message)
{
    const Json& method = MemberOf(message, "method");
    if (method.is_string())
        HandleRequest(message, method.get<std::string>());
    else if (MemberOf(message, "result").is_null() && MemberOf(message, "error").is_null())
        SendError(MemberOf(message, "id"), ErrorCode::InvalidRequest, "the message has no method");
}

void Server::HandleRequest(const Json& message, const std::string& name)
{
    const Json& id = MemberOf(message, "id");
    const bool isRequest = !id.is_null();
    if (name == "exit") {
        isOver_ = true;
    } else if (name == "initialize") {
        StartUp(message);
    } else if (!isInitialized_ || isShutDown_) {
        if (isRequest)
            SendError(id, isShutDown_ ? ErrorCode::InvalidRequest : ErrorCode::NotInitialized,
                fmt::format("'{}' before 'initialize' or after 'shutdown'", name));
    } else if (name == "shutdown") {
        isShutDown_ = true;
        SendMessage({{"jsonrpc", "2.0"}, {"id", id}, {"result", nullptr}});
    } else if (const Method* const method = FindMethod(name)) {
        if (MustWait(message, *method))
            waiting_.push_back(message);
        else
            Answer(message, *method);
    } else if (isRequest) {
        SendError(id, ErrorCode::MethodNotFound, fmt::format("unknown method '{}'", name));
    }
}

void Server::StartUp(const Json& message)
{
    const Json& id = MemberOf(message, "id");
    if (isInitialized_) {
        SendError(id, ErrorCode::InvalidRequest, "'initialize' came twice");
        return;
    }
    isInitialized_ = true;
    try {
        session_.SetClient(MemberOf(message, "params"));
        SendMessage({{"jsonrpc", "2.0"}, {"id", id}, {"result", Capabilities()}});
    } catch (const std::exception& error) {
        SendError(id, ErrorCode::InvalidParams, error.what());
    }
}

/// A notification that fails has no answer; the log has it.
void Server::Answer(const Json& message, const Method& method)
{
    const Json& id = MemberOf(message, "id");
    const auto fail = [&](ErrorCode code, const char* text) {
        if (id.is_null())
            SendNotification(
                "window/logMessage", {{"type", 2}, {"message", fmt::format("{}: {}", method.name, text)}});
        else
            SendError(id, code, text);
    };
    try {
        if (!id.is_null() && inbox_.IsCancelled(id))
            throw RequestError(ErrorCode::RequestCancelled, "the request was cancelled");
        Json result = method.answer(session_, MemberOf(message, "params"));
        if (!id.is_null())
            SendMessage({{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}});
    } catch (const RequestError& error) {
        fail(error.GetCode(), error.what());
    } catch (const Json::exception&) {
        fail(ErrorCode::InvalidParams, "the parameters are not those of the protocol");
    } catch (const std::exception& error) {
        fail(ErrorCode::InternalError, error.what());
    }
    if (method.name == std::string_view("$/cancelRequest"))
        inbox_.Forget(MemberAt(message, {"params", "id"}));
}

bool Server::MustWait(const Json& message, const Method& method) const
{
    const Json& uri = MemberAt(message, {"params", "textDocument", "uri"});
    return method.needsFresh && uri.is_string() && session_.MayBecomeFresh(uri.get<std::string>());
}

/// Those whose decks have been read, and those that were cancelled.
void Server::AnswerWaiting()
{
    for (const Json& message : std::exchange(waiting_, {})) {
        const Method& method = *FindMethod(message.at("method").get<std::string>());
        if (MustWait(message, method) && !inbox_.IsCancelled(MemberOf(message, "id")))
            waiting_.push_back(message);
        else
            Answer(message, method);
    }
}

} // namespace

bool Serve(Core::Keywords::KeywordSyntaxTable& table)
{
    return Server(table).Run();
}

} // namespace Veld::Quor::Tools::LanguageServer
