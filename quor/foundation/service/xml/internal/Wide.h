#pragma once

#include <xercesc/util/TransService.hpp>

#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

/// The UTF-16 form of a UTF-8 text, for as long as the object lives.
class Wide {
public:
    explicit Wide(std::string_view text)
        : text_(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "UTF-8")
    {
    }
    operator const XMLCh*() const { return text_.str(); }

private:
    xercesc::TranscodeFromStr text_;
};

} // namespace Veld::Quor::Core::Service::XML::Internal
