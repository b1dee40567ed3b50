#include "tools/quor/language-server/Server.h"

#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/language-server/Framing.h"
#include "tools/quor/language-server/Inbox.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/Projects.h"
#include "tools/quor/language-server/Session.h"
#include "tools/quor/settings/SettingsFile.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
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

/// Of the server's own; what the client answers is read over.
void SendRequest(const std::string& method, Json params)
{
    static int last = 0;
    SendMessage({{"jsonrpc", "2.0"}, {"id", fmt::format("quor-{}", ++last)}, {"method", method},
        {"params", std::move(params)}});
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

std::vector<std::pair<std::string, FileStamp>> Stamped(const std::vector<std::string>& files)
{
    std::vector<std::pair<std::string, FileStamp>> stamped;
    for (const std::string& file : files)
        stamped.emplace_back(file, StampOf(file));
    return stamped;
}

/// Takes events one after another, and answers requests from what is known by then.
class Server {
public:
    Server(LoadedLanguage& language, const Settings& given)
        : language_(language)
        , given_(given)
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
    std::vector<std::string> FindDocuments() const;
    void UpdateLanguage();
    std::string LoadLanguage(const std::vector<std::string>& documents);
    bool MustWait(const Json& message, const Method& method) const;

    Inbox& inbox_ = *new Inbox(); // never freed: the thread of the input may use it to the end
    LoadedLanguage& language_;
    const Settings& given_;
    std::string folder_; // the first of the client, or else the current one
    std::vector<std::pair<std::string, FileStamp>> documents_; // own ones, as they were looked at last
    std::optional<Session> session_; // empty before "initialize"
    std::thread input_;
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
            session_->Take(std::move(*result));
        } else if (std::holds_alternative<BadMessage>(event)) {
            SendError(nullptr, ErrorCode::ParseError, "the message is no JSON");
        } else {
            isOver_ = true;
        }
        AnswerWaiting();
        if (session_ && session_->HasReads() && inbox_.IsEmpty()) { // else more changes may come at once
            UpdateLanguage();
            session_->SubmitReads();
        }
    }
    return isShutDown_;
}

void Server::Handle(const Json& message)
{
    const Json& method = MemberOf(message, "method");
    if (method.is_string())
        HandleRequest(message, method.get<std::string>());
    else if (!message.contains("result") && !message.contains("error")) // else an answer of the client
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
    } else if (!session_ || isShutDown_) {
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
    if (session_) {
        SendError(id, ErrorCode::InvalidRequest, "'initialize' came twice");
        return;
    }
    const Json& params = MemberOf(message, "params");
    std::error_code ignored;
    const std::vector<std::string> folders = FoldersIn(params);
    folder_ = folders.empty() ? std::filesystem::current_path(ignored).string() : KeyOfPath(folders.front());
    documents_ = Stamped(language_.GetDocuments());
    session_.emplace(language_, given_, SendNotification, SendRequest,
        [this](ReadResult result) { inbox_.Push(std::move(result)); });
    try {
        session_->SetClient(params);
        SendMessage({{"jsonrpc", "2.0"}, {"id", id}, {"result", Capabilities()}});
    } catch (const std::exception& error) {
        SendError(id, ErrorCode::InvalidParams, error.what());
    }
    UpdateLanguage();
}

/// Those that the settings file of the folder names beside those of the command line.
std::vector<std::string> Server::FindDocuments() const
{
    try {
        return DocumentsFor(folder_, given_);
    } catch (const SettingsError&) { // reported with the first deck
        return language_.GetDocuments();
    }
}

/// Loads the language again if its own documents are others now, or have changed.
void Server::UpdateLanguage()
{
    const std::vector<std::string> documents = FindDocuments();
    auto stamped = Stamped(documents);
    if (stamped == documents_)
        return;
    documents_ = std::move(stamped);
    if (const std::string failure = LoadLanguage(documents); !failure.empty())
        session_->Notify("window/showMessage", {{"type", 1}, {"message", failure}});
}

/// Why they are not used; empty if they are.
std::string Server::LoadLanguage(const std::vector<std::string>& documents)
{
    if (const std::string error = LoadedLanguage::ErrorIn(documents); !error.empty())
        return fmt::format("can't load the language: {}; the documents before this error apply", error);
    session_->StopReader();
    inbox_.DropResults();
    std::string failure;
    try {
        language_.Load(documents);
    } catch (const std::exception& error) {
        failure = fmt::format("{}; no own document of keywords is used", error.what());
        language_.Load({});
    }
    session_->StartReader();
    return failure;
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
        Json result = method.answer(*session_, MemberOf(message, "params"));
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
    return method.needsFresh && uri.is_string() && session_->MayBecomeFresh(uri.get<std::string>());
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

bool Serve(LoadedLanguage& language, const Settings& given)
{
    return Server(language, given).Run();
}

} // namespace Veld::Quor::Tools::LanguageServer
