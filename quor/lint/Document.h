#pragma once

#include "quor/deck/Finding.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// Bytes of a document's text.
struct Span {
    std::size_t offset = 0; ///< of the first byte in the text of the document
    std::size_t length = 0; ///< in bytes
};

/// An attribute and where it is.
struct Attribute {
    std::string name; ///< UTF-8, as the value
    std::string value; ///< with entities replaced
    Span nameSpan; ///< where the name is
    Span valueSpan; ///< without quotes
};

/// An element with all that is below it; its own value. Texts are UTF-8.
struct VELD_QUOR_EXPORT Element {
    std::string tag; ///< its name, prefix included
    Span span; ///< from the bracket to the end of the tag's name
    std::size_t position = 0; ///< among all nodes of its parent, text and comments included, from 0
    std::string text; ///< its own, without that of its children
    std::vector<Attribute> attributes; ///< in no fixed order
    std::vector<Element> children; ///< in document order

    /// The attribute of that name, which is the element's; null if there is none.
    const Attribute* Find(std::string_view attribute) const;
    /// The value as the loader sees it: empty if there is no such attribute.
    const std::string& Get(std::string_view attribute) const;
    /// As the loader sees it: only the text "true" is true.
    bool IsFlagged(std::string_view attribute) const { return Get(attribute) == "true"; }
};

/// Only blanks, or nothing.
VELD_QUOR_EXPORT bool IsBlank(std::string_view text);

/// Calls `use` with each element below `root` that has the tag, at any depth, in document order; the root
/// itself is not among them.
template <class Use>
void ForEachBelow(const Element& root, std::string_view tag, const Use& use)
{
    for (const Element& child : root.children) {
        if (child.tag == tag)
            use(child);
        ForEachBelow(child, tag, use);
    }
}

/// Calls `use` with each alias of a keyword or an assignment.
template <class Use>
void ForEachAlias(const Element& owner, const Use& use)
{
    for (const Element& aliases : owner.children) {
        if (aliases.tag != "aliases")
            continue;
        for (const Element& alias : aliases.children) {
            if (alias.tag == "alias")
                use(alias);
        }
    }
}

/// The document cannot be read.
class VELD_QUOR_EXPORT DocumentError : public Service::Exception {
public:
    /// Copies the message.
    explicit DocumentError(const std::string& message);
    DocumentError(const DocumentError&) = default;
    DocumentError& operator=(const DocumentError&) = default;
    ~DocumentError() override;
};

/// A syntax document as the loader reads it, with the location of each part.
class VELD_QUOR_EXPORT Document {
public:
    /// The reason why the loader rejects a text.
    struct Refusal {
        std::string reason; ///< one sentence, without a full stop
        Core::Decks::Location location; ///< the start of the document if the parser knows no other
    };

    /// Reads a file; `path` becomes the name. Throws `DocumentError` if there is no such file, or it can't be
    /// read. XML that the loader rejects is no error here: see `GetRefusal`.
    static Document ReadFile(const std::string& path);
    /// The same for a text in memory. If the locations cannot be found in the text itself, because of its
    /// encoding, they refer to the text rewritten in UTF-8; throws `DocumentError` if that fails.
    static Document ReadText(std::string text, const std::string& name);
    /// The built-in documents, trusted ones first, as the loader reads them. Their locations
    /// refer to the text that they are written as.
    static std::vector<Document> ReadBuiltin();

    /// What the locations call the file.
    const std::string& GetName() const { return name_; }
    /// Null if the text was rejected.
    const Element* GetRoot() const { return root_.get(); }
    /// Has a value if and only if there is no root.
    const std::optional<Refusal>& GetRefusal() const { return refusal_; }

    /// Line and column, both from 1, the column in bytes. `offset` is not checked.
    Core::Decks::Location LocationOf(std::size_t offset) const;
    /// A line, without its end, by its number from 1; empty if there is none. Lasts as long as the document.
    std::string_view GetLine(std::size_t number) const;

private:
    Document(std::string name, std::string text);

    std::string name_;
    std::string text_;
    std::vector<std::size_t> lines_; // where each begins
    std::unique_ptr<Element> root_;
    std::optional<Refusal> refusal_;
};

} // namespace Veld::Quor::Core::Lint
