#include "quor/foundation/service/xml/XMLDocument.h"

#include "quor/foundation/internal/XercesErrors.h"
#include "quor/foundation/service/Log.h"
#include "quor/foundation/service/xml/Initialise.h"
#include "quor/foundation/service/xml/XMLElement.h"
#include "quor/foundation/service/xml/internal/DocumentParser.h"
#include "quor/foundation/service/xml/internal/Wide.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Core::Service::XML {

namespace {

/// A file descriptor that closes itself.
class File {
public:
    explicit File(const char* path) // without waiting for the other end of a pipe
        : descriptor_(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~File()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int Descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

void LogError(const std::string& text)
{
    Log::SendLogMessage(text.c_str(), MessageSeverity::Error);
}

std::nullopt_t Unreadable(const char* path, const std::string& why)
{
    LogError(std::string(path) + ": " + why);
    return std::nullopt;
}

/// All bytes of a regular file. Read, not mapped: a mapped file that another process cuts short kills this
/// one.
std::optional<std::string> ReadFile(const char* path)
{
    const File file(path);
    struct stat status { };
    if (file.Descriptor() < 0 || ::fstat(file.Descriptor(), &status) != 0)
        return Unreadable(path, std::strerror(errno));
    if (!S_ISREG(status.st_mode))
        return Unreadable(path, "not a regular file");
    if (static_cast<std::size_t>(status.st_size) > XMLDocument::MaxBytes)
        return Unreadable(path, "larger than " + std::to_string(XMLDocument::MaxBytes) + " bytes");
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < text.size()) {
        const ssize_t count = ::read(file.Descriptor(), text.data() + size, text.size() - size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Unreadable(path, std::strerror(errno));
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
    }
    text.resize(size);
    return text;
}

std::string Describe(const char* name, const XMLDocument::Failure& failure)
{
    std::string text = name;
    if (failure.isLocated)
        text += ':' + std::to_string(failure.line) + ':' + std::to_string(failure.column);
    return text + ": " + failure.reason;
}

} // namespace

void XMLDocument::Release::operator()(xercesc::DOMDocument* document) const
{
    document->release();
}

XMLDocument::XMLDocument() = default;

XMLDocument::XMLDocument(const char* rootName)
{
    Initialise::Init();
    Internal::WithStandardErrors([&] {
        auto* const implementation = xercesc::DOMImplementation::getImplementation();
        document_.reset(implementation->createDocument(nullptr, Internal::Wide(rootName), nullptr));
    });
}

XMLDocument::~XMLDocument() = default;

xercesc::DOMDocument* XMLDocument::read(const char* path)
{
    document_.reset();
    const std::optional<std::string> text = ReadFile(path);
    return text ? readMemory(text->data(), text->size(), path) : nullptr;
}

xercesc::DOMDocument* XMLDocument::readMemory(const void* text, std::size_t size, const char* name)
{
    Failure failure;
    if (!readMemory(text, size, name, failure))
        LogError(Describe(name, failure));
    return document_.get();
}

xercesc::DOMDocument* XMLDocument::readMemory(
    const void* text, std::size_t size, const char* name, Failure& failure)
{
    Initialise::Init();
    document_.reset();
    try {
        Internal::DocumentParser parser;
        document_.reset(parser.Parse(text, size, name));
    } catch (const xercesc::OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const xercesc::SAXParseException& error) {
        failure = {XToC(error.getMessage()), true, static_cast<std::size_t>(error.getLineNumber()),
            static_cast<std::size_t>(error.getColumnNumber())};
    } catch (const xercesc::SAXException& error) {
        failure.reason = XToC(error.getMessage());
    } catch (const xercesc::XMLException& error) {
        failure.reason = XToC(error.getMessage());
    } catch (const xercesc::DOMException& error) {
        failure.reason = XToC(error.getMessage());
    }
    return document_.get();
}

XMLElement XMLDocument::getRoot()
{
    return XMLElement(*document_->getDocumentElement());
}

} // namespace Veld::Quor::Core::Service::XML
