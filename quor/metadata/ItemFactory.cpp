#include "quor/metadata/internal/ItemFactory.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/xml/Tags.h"
#include "quor/metadata/KeywordBooleanMDImpl.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/KeywordLineMDImpl.h"
#include "quor/metadata/KeywordListMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"
#include "quor/metadata/KeywordRecordMDImpl.h"
#include "quor/metadata/KeywordStringMDImpl.h"

namespace Veld::Quor::Core::Keywords {

using Service::XML::Tags;

namespace {

template <class Impl>
std::unique_ptr<IKeywordDataMDInternal> Make(const xercesc::DOMElement& element,
    const std::vector<SimulatorType::Enum>& simulators, const std::string& name, unsigned int number)
{
    auto md = std::make_unique<Impl>();
    md->SetName(name);
    md->SetItemNumber(number);
    md->ReadXML(&element, simulators);
    return md;
}

} // namespace

ItemMaker FindItemMaker(const xercesc::DOMElement& element)
{
    static const struct {
        const XMLCh* tag;
        ItemMaker maker;
    } types[] = {
        {Tags::Real(), Make<KeywordRealMDImpl>},
        {Tags::Integer(), Make<KeywordIntegerMDImpl>},
        {Tags::String(), Make<KeywordStringMDImpl>},
        {Tags::Choice(), Make<KeywordChoiceMDImpl>},
        {Tags::List(), Make<KeywordListMDImpl>},
        {Tags::Record(), Make<KeywordRecordMDImpl>},
        {Tags::Boolean(), Make<KeywordBooleanMDImpl>},
        {Tags::Line(), Make<KeywordLineMDImpl>},
    };
    for (const auto& type : types) {
        if (Service::XML::Internal::Is(element, type.tag))
            return type.maker;
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Keywords
