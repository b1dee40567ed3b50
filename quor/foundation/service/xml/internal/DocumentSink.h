#pragma once

#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

/// What is told of the elements of a document, in their order, while it is parsed. Texts are UTF-16 and last
/// as long as the call.
class DocumentSink {
public:
    /// Begins an element; its attributes follow. `isOdd`: an odd number of nodes of any kind is before it in
    /// its parent.
    virtual void Open(std::u16string_view name, bool isOdd) = 0;
    virtual void AddAttribute(std::u16string_view name, std::u16string_view value) = 0;
    /// A part of the text of the element that was begun last and is still open.
    virtual void AddText(std::u16string_view text) = 0;
    /// Ends that element.
    virtual void Close() = 0;

protected:
    ~DocumentSink() = default;
};

} // namespace Veld::Quor::Core::Service::XML::Internal
