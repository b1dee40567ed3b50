#pragma once

#include <xercesc/framework/XMLRecognizer.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>

#include <memory>
#include <new>
#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

/// By its number: a look-up by name holds a lock for ever where memory has run out.
inline std::unique_ptr<xercesc::XMLTranscoder> MakeTranscoder()
{
    constexpr XMLSize_t blockSize = 2048;
    auto code = xercesc::XMLTransService::Ok;
    std::unique_ptr<xercesc::XMLTranscoder> made(
        xercesc::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(
            xercesc::XMLRecognizer::UTF_8, code, blockSize));
    if (!made)
        throw std::bad_alloc();
    return made;
}

/// The UTF-16 form of a UTF-8 text, for as long as the object lives.
class Wide {
public:
    explicit Wide(std::string_view text)
        : text_(reinterpret_cast<const XMLByte*>(text.data()), text.size(), MakeTranscoder().get())
    {
    }
    operator const XMLCh*() const { return text_.str(); }

private:
    xercesc::TranscodeFromStr text_;
};

} // namespace Veld::Quor::Core::Service::XML::Internal
