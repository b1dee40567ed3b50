#include "quor/foundation/service/xml/internal/XMLParser.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include <dlfcn.h>
#include <link.h>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// The parser and what it loads go wrong in many ways without memory: they aren't loaded then.
void CheckMemory()
{
    constexpr std::size_t enough = std::size_t(4) << 20;
    ::operator delete(::operator new(enough));
}

XMLParser& Open()
{
    CheckMemory();
    // Never closed: documents of the parser may live until the very exit.
    void* const library = ::dlopen(VELD_QUOR_XML_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw std::runtime_error(std::string("the XML parser can't be loaded: ") + ::dlerror());
    using Start = void* (*)();
    const auto start = reinterpret_cast<Start>(::dlsym(library, "veld_quor_xml_parser"));
    if (!start)
        throw std::runtime_error(std::string("the XML parser can't be loaded: ") + ::dlerror());
    return *static_cast<XMLParser*>(start());
}

} // namespace

XMLParser& XMLParser::Instance()
{
    static XMLParser& parser = Open();
    return parser;
}

bool XMLParser::IsInProcess()
{
    const auto isParser = [](dl_phdr_info* library, std::size_t, void*) {
        return std::strstr(library->dlpi_name, "libxerces-c") ? 1 : 0;
    };
    return ::dl_iterate_phdr(isParser, nullptr) != 0;
}

} // namespace Veld::Quor::Core::Service::XML::Internal
