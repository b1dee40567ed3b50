#include "quor/metadata/internal/ItemFactory.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/metadata/KeywordBooleanMDImpl.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/KeywordLineMDImpl.h"
#include "quor/metadata/KeywordListMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"
#include "quor/metadata/KeywordRecordMDImpl.h"
#include "quor/metadata/KeywordStringMDImpl.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

template <class Impl>
std::unique_ptr<IKeywordDataMDInternal> Make(const TreeElement& element,
    const std::vector<SimulatorType::Enum>& simulators, const std::string& name, unsigned int number)
{
    auto md = std::make_unique<Impl>();
    md->SetName(name);
    md->SetItemNumber(number);
    md->ReadXML(element, simulators);
    return md;
}

} // namespace

ItemMaker FindItemMaker(const TreeElement& element)
{
    static const struct {
        Tag tag;
        ItemMaker maker;
    } types[] = {
        {Tag::Real, Make<KeywordRealMDImpl>},
        {Tag::Integer, Make<KeywordIntegerMDImpl>},
        {Tag::String, Make<KeywordStringMDImpl>},
        {Tag::Choice, Make<KeywordChoiceMDImpl>},
        {Tag::List, Make<KeywordListMDImpl>},
        {Tag::Record, Make<KeywordRecordMDImpl>},
        {Tag::Boolean, Make<KeywordBooleanMDImpl>},
        {Tag::Line, Make<KeywordLineMDImpl>},
    };
    for (const auto& type : types) {
        if (element.Is(type.tag))
            return type.maker;
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Keywords
