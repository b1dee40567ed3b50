#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Veld::Quor::Core::Service::XML {

class XMLElement;

/// Holds one DOM document and owns it: the document is valid until the holder is destroyed, or another one is
/// read. One thread at a time; different objects are independent.
///
/// Documents are untrusted input. Refused are: a document type declaration, and with it every entity
/// but XML's own five; elements nested more than `MaxDepth` deep; elements with more than `MaxAttributes`
/// attributes; documents of more than `MaxBytes`; and bytes after the root element that the parser would
/// drop in silence. Nothing but the named file is ever opened. White space, comments and CDATA sections stay
/// as separate nodes; namespaces are not processed: a tag's name is its text, colon included. All
/// encodings of Xerces-C++ are read.
class VELD_QUOR_EXPORT XMLDocument {
public:
    /// What a document may have at most.
    /// @{
    static constexpr unsigned MaxDepth = 256;
    static constexpr std::size_t MaxAttributes = 1'000;
    static constexpr std::size_t MaxBytes = std::size_t{1} << 30;
    /// @}

    XMLDocument();
    /// A new document with a root element of that name. Throws a `std::exception` if it is no name.
    explicit XMLDocument(const char* rootName);
    ~XMLDocument();
    XMLDocument(const XMLDocument&) = delete;
    XMLDocument& operator=(const XMLDocument&) = delete;

    /// Reads the file, always a file of this machine whatever the path looks like, and returns its document.
    /// Null for one that is missing, no regular file, malformed or refused; `Log` gets the reason at `Error`,
    /// with file, line and column.
    xercesc::DOMDocument* read(const char* path);

    /// The same for a text in memory; `name` stands for the file in messages. The text may go when this
    /// returns.
    xercesc::DOMDocument* readMemory(const void* text, std::size_t size, const char* name);

    /// Why a document was not read.
    struct Failure {
        std::string reason; ///< what the parser reports
        bool isLocated = false; ///< whether the line and the column, from 1, are known
        std::size_t line = 0; ///< 0 if not known
        std::size_t column = 0; ///< 0 if not known
    };
    /// The same for who wants the reason as a value: `failure` has it if null is returned, and nothing is
    /// logged.
    xercesc::DOMDocument* readMemory(const void* text, std::size_t size, const char* name, Failure& failure);

    /// The document held; null if there is none.
    xercesc::DOMDocument* GetDocument() const { return document_.get(); }

    /// The text of a document in UTF-8, with all its nodes. Throws a `Service::Exception` if it can't be
    /// written.
    static std::string GetText(const xercesc::DOMDocument& document);

    /// The root element of a document that is being written, which must be there. Lasts as long as the
    /// document.
    XMLElement getRoot();

private:
    struct Release {
        void operator()(xercesc::DOMDocument* document) const;
    };
    std::unique_ptr<xercesc::DOMDocument, Release> document_;
};

} // namespace Veld::Quor::Core::Service::XML
