#include "quor/foundation/internal/TreeBuilder.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/internal/DocumentFile.h"
#include "quor/foundation/service/xml/internal/DocumentSink.h"
#include "quor/foundation/service/xml/internal/XMLParser.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

void AppendUTF8(std::u16string_view text, std::string& to)
{
    if (std::any_of(text.begin(), text.end(), [](char16_t c) { return c >= 0x80; })) {
        to += XToC(std::u16string(text).c_str());
        return;
    }
    std::transform(
        text.begin(), text.end(), std::back_inserter(to), [](char16_t c) { return static_cast<char>(c); });
}

/// Adds what is parsed to a tree. The text of an element is that of all below it, and known at its end.
class TreeSink final : public DocumentSink {
public:
    explicit TreeSink(TreeBuilder& builder)
        : builder_(builder)
    {
    }

    void Open(std::u16string_view name, bool isOdd) override
    {
        const bool hasText = TreeBuilder::HasText(builder_.Open(name, isOdd));
        if (hasText)
            ++textsOpen_;
        open_.push_back({hasText, text_.size()});
    }
    void AddAttribute(std::u16string_view name, std::u16string_view value) override
    {
        narrow_.clear();
        AppendUTF8(value, narrow_);
        builder_.AddAttribute(name, narrow_);
    }
    void AddText(std::u16string_view text) override
    {
        if (textsOpen_ > 0)
            text_ += text;
    }
    void Close() override
    {
        if (open_.back().hasText) {
            narrow_.clear();
            AppendUTF8(std::u16string_view(text_).substr(open_.back().textBegin), narrow_);
            builder_.SetText(narrow_);
            if (--textsOpen_ == 0)
                text_.clear();
        }
        open_.pop_back();
        builder_.Close();
    }

private:
    struct Level {
        bool hasText;
        std::size_t textBegin; // in `text_`
    };

    TreeBuilder& builder_;
    std::vector<Level> open_;
    std::size_t textsOpen_ = 0; // open elements that have a text
    std::u16string text_; // of these
    std::string narrow_;
};

} // namespace

bool AddFile(const char* path, TreeBuilder& builder)
{
    const std::optional<std::string> text = ReadFile(path);
    if (!text)
        return false;
    const TreeBuilder::Position before = builder.GetPosition();
    TreeSink sink(builder);
    XMLDocument::Failure failure;
    if (XMLParser::Instance().Parse(*text, path, sink, failure))
        return true;
    builder.ReturnTo(before);
    LogFailure(path, failure);
    return false;
}

} // namespace Veld::Quor::Core::Service::XML::Internal
