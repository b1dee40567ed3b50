#include "quor/foundation/service/xml/DomText.h"

#include "quor/foundation/service/xml/internal/XMLParser.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include <memory>
#include <new>
#include <string>
#include <string_view>

#include <pthread.h>

namespace Veld::Quor::Core::Service::XML {

namespace {

/// Narrows ASCII, which is nearly every text of a document, in one pass; anything else goes through the
/// transcoder.
std::string ToUTF8(const XMLCh* text)
{
    if (!text)
        return {};
    const std::u16string_view wide = text;
    std::string narrow(wide.size(), '\0');
    XMLCh bits = 0;
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        bits |= wide[i];
        narrow[i] = static_cast<char>(wide[i]);
    }
    return bits < 0x80 ? narrow : Internal::XMLParser::Instance().ToUTF8(text);
}

/// As the parser compares them: none is equal to an empty one.
bool IsEqual(const XMLCh* a, const XMLCh* b)
{
    const auto viewOf = [](const XMLCh* text) {
        return text ? std::u16string_view(text) : std::u16string_view();
    };
    return viewOf(a) == viewOf(b);
}

/// A text for each thread. `thread_local` would end the process where memory has run out.
class TextOfThread {
public:
    TextOfThread()
    {
        if (::pthread_key_create(&key_, [](void* text) { delete static_cast<std::string*>(text); }) != 0)
            throw std::bad_alloc();
    }
    ~TextOfThread() { ::pthread_key_delete(key_); } // threads that live on keep their text
    TextOfThread(const TextOfThread&) = delete;
    TextOfThread& operator=(const TextOfThread&) = delete;

    std::string& Get() const
    {
        if (void* const text = ::pthread_getspecific(key_))
            return *static_cast<std::string*>(text);
        auto text = std::make_unique<std::string>();
        if (::pthread_setspecific(key_, text.get()) != 0)
            throw std::bad_alloc();
        return *text.release();
    }

private:
    pthread_key_t key_ = 0;
};

} // namespace

const char* XToC(const XMLCh* text)
{
    static const TextOfThread texts;
    std::string& last = texts.Get();
    last = ToUTF8(text);
    return last.c_str(); // NOLINT(clang-analyzer-cplusplus.InnerPointer): it is not a local
}

std::string GetAttributeValue(const xercesc::DOMElement* element, const XMLCh* attribute)
{
    return ToUTF8(element->getAttribute(attribute));
}

bool GetAttributeValueEqual(const xercesc::DOMElement* element, const XMLCh* attribute, const XMLCh* value)
{
    const xercesc::DOMAttr* node = element->getAttributeNode(attribute);
    return node && IsEqual(node->getValue(), value);
}

bool AttributeExists(const xercesc::DOMElement* element, const XMLCh* attribute)
{
    return element->getAttributeNode(attribute) != nullptr;
}

bool HasChildTagName(const xercesc::DOMElement* element, const XMLCh* tag)
{
    const xercesc::DOMNode* child = element->getFirstChild();
    while (child
        && !(child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE && IsEqual(child->getNodeName(), tag)))
        child = child->getNextSibling();
    return child != nullptr;
}

std::string GetElementText(const xercesc::DOMElement* element)
{
    // Nearly always there is one text node; the general way copies its text twice.
    const xercesc::DOMNode* const first = element->getFirstChild();
    const bool isOneText =
        first && first->getNodeType() == xercesc::DOMNode::TEXT_NODE && !first->getNextSibling();
    return ToUTF8(isOneText ? first->getNodeValue() : element->getTextContent());
}

} // namespace Veld::Quor::Core::Service::XML
