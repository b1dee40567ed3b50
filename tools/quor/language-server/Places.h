#pragma once

#include "tools/quor/language-server/DeckState.h"
#include "tools/quor/language-server/Documents.h"
#include "tools/quor/language-server/Protocol.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

/// A deck as it was last read, beside the documents as they are now: tells where its bytes are by now.
class Places {
public:
    Places(const Documents& documents, StatePointer state)
        : documents_(documents)
        , state_(std::move(state))
    {
    }

    const DeckState& GetState() const { return *state_; }
    const StatePointer& GetPointer() const { return state_; }

    /// From the text of the file that was read to that of its document now.
    const Shift& ShiftOf(std::uint32_t file) const;
    /// Where the bytes are now; empty if they were changed.
    std::optional<Span> SpanOf(const Core::Decks::TextRange& range) const;
    /// The same for what may have been changed within.
    std::optional<Span> SpanAround(const Core::Decks::TextRange& range) const;
    std::string UriOf(std::uint32_t file) const;
    /// A `Location` of the protocol; null if the bytes were changed.
    Json LocationOf(const Core::Decks::TextRange& range) const;
    /// `{"documentChanges": [...]}` of edits in the files of the deck; throws `RequestError` if one of them
    /// is in a text that was changed since.
    Json EditOf(const std::vector<Core::Decks::TextEdit>& edits) const;

private:
    struct CachedShift {
        TextVersion version; ///< of the document
        Shift shift;
    };

    Span SpanNow(std::uint32_t file, const ByteRange& range) const;
    const Document* FindDocument(std::uint32_t file) const { return documents_.FindKey(state_->KeyOf(file)); }
    std::optional<TextVersion> VersionRead(std::uint32_t file, const Document& document) const;

    const Documents& documents_;
    StatePointer state_;
    mutable std::map<std::uint32_t, CachedShift> shifts_;
    mutable std::map<std::uint32_t, TextVersion> read_; // what was found out
    mutable std::map<std::uint32_t, TextLines> lines_; // of files that no document has, and were asked for
};

/// What a request about a document sees.
struct View {
    const Document* document;
    const Places* places; ///< null before its deck was read
    std::uint32_t file = 0; ///< of the deck; the document
    Shift shift = {}; ///< of it
    std::size_t mark =
        0; ///< bytes of a byte order mark, which are in the document and not in the deck's text

    const DeckState& GetState() const { return places->GetState(); }
    const Core::Decks::Deck& GetDeck() const { return GetState().GetDeck(); }
    std::string_view GetText() const { return document->GetText(); }
    std::size_t OffsetOf(const Position& position) const
    {
        return document->GetLines().OffsetOf(GetText(), position);
    }
    Span SpanOf(const ByteRange& range) const
    {
        return document->GetLines().SpanOf(GetText(), range.offset, range.length);
    }

    /// The byte in the text that was read; empty if it isn't known.
    std::optional<std::size_t> ToThen(std::size_t offset) const;
    /// Bytes of the document's file as it was read, in the document now; empty if they were changed.
    std::optional<ByteRange> ToNow(const Core::Decks::TextRange& range) const;
    /// The same for what may have been changed within.
    std::optional<ByteRange> ToNowAround(const Core::Decks::TextRange& range) const;
};

} // namespace Veld::Quor::Tools::LanguageServer
