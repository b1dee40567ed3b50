#pragma once

#include "quor/deck/DeckSource.h"
#include "tools/quor/language-server/Protocol.h"
#include "tools/quor/language-server/Shift.h"
#include "tools/quor/language-server/TextLines.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// The state of a text at some time: which opening of the document, and how many edits after it.
struct TextVersion {
    std::size_t opening = 0;
    std::size_t edits = 0;

    friend bool operator==(const TextVersion&, const TextVersion&) = default;
};

/// A text that is open in the editor.
class Document {
public:
    Document(std::string uri, std::string text, std::size_t opening);

    const std::string& GetUri() const { return uri_; }
    /// The path of the file, without links; what tells files apart.
    const std::string& GetKey() const { return key_; }
    const std::string& GetText() const { return text_; }
    const TextLines& GetLines() const { return lines_; }
    TextVersion GetVersion() const { return {opening_, edits_.size()}; }
    /// The text for readers of decks, copied when first asked for after a change.
    std::shared_ptr<const Core::Decks::SourceText> GetSource() const;

    /// One change of the protocol: of a span, or of the whole text.
    void Change(const Json& change);

    /// From an earlier version of this opening to the text now.
    Shift ShiftFrom(const TextVersion& version) const;

private:
    void Replace(std::size_t offset, std::size_t length, const std::string& text);
    void ReplaceAll(const std::string& text);

    std::string uri_;
    std::string key_;
    std::string text_;
    TextLines lines_;
    std::size_t opening_;
    std::vector<ByteEdit> edits_;
    mutable std::shared_ptr<const Core::Decks::SourceText> source_; // null: not made since the last change
};

/// The path without links and dots, as far as it exists; an empty path stays empty.
std::string KeyOfPath(const std::string& path);

/// The texts that are open in the editor.
class Documents {
public:
    /// An earlier one of the same URI is gone then.
    Document& Open(const std::string& uri, std::string text);
    void Close(const std::string& uri);

    /// Null if it isn't open.
    Document* Find(const std::string& uri);
    /// Throws `RequestError`.
    Document& Get(const std::string& uri);
    /// By the path of its file; null if it isn't open.
    const Document* FindKey(const std::string& key) const;

    /// By URI.
    const std::map<std::string, Document>& GetAll() const { return all_; }

private:
    std::map<std::string, Document> all_;
    std::map<std::string, std::string> uriByKey_;
    std::size_t openings_ = 0;
};

} // namespace Veld::Quor::Tools::LanguageServer
