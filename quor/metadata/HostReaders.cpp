// The exported readers for a host's DOM. The readers proper see trees, which the loader makes too.

#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/metadata/AliasesMDImpl.h"
#include "quor/metadata/CustomReadTermination.h"
#include "quor/metadata/KeywordAssignmentMDImpl.h"
#include "quor/metadata/KeywordBooleanMDImpl.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"
#include "quor/metadata/KeywordLineMDImpl.h"
#include "quor/metadata/KeywordListMDImpl.h"
#include "quor/metadata/KeywordMapMDImpl.h"
#include "quor/metadata/KeywordRawMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"
#include "quor/metadata/KeywordRecordMDImpl.h"
#include "quor/metadata/KeywordStringMDImpl.h"
#include "quor/metadata/UnsupportedByMDImpl.h"
#include "quor/metadata/ValidityMDImpl.h"

namespace Veld::Quor::Core::Keywords {

using Service::XML::Internal::RootOf;
using Service::XML::Internal::TreeOf;
using xercesc::DOMElement;

using Simulators = std::vector<SimulatorType::Enum>;

void AliasesMDImpl::ReadXML(const DOMElement* element)
{
    ReadXML(RootOf(TreeOf(*element)));
}

CustomReadStringTermination::CustomReadStringTermination(const DOMElement* element)
    : text_(Service::XML::GetElementText(element)) // of any element, whatever its tag
{
}

CustomReadTermination::CustomReadTermination(const DOMElement* element)
    : CustomReadTermination(RootOf(TreeOf(*element)))
{
}

void KeywordAssignmentMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordBooleanMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordChoiceMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordIntegerMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordIntegerMDImpl::InternalReadXML(const DOMElement* element, const Simulators& simulators)
{
    InternalReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordLineMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordListMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordMapMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordRawMDImpl::ReadXML(const DOMElement* element)
{
    ReadXML(RootOf(TreeOf(*element)));
}

void KeywordRealMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordRecordMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void KeywordRecordMDImpl::AddItem(const DOMElement* itemElement, unsigned int itemNumber,
    bool& skippableOnRead, bool& skippableOnWrite, const Simulators& simulators)
{
    AddItem(RootOf(TreeOf(*itemElement)), itemNumber, skippableOnRead, skippableOnWrite, simulators);
}

void KeywordStringMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    ReadXML(RootOf(TreeOf(*element)), simulators);
}

void UnsupportedByMDImpl::ReadXML(const DOMElement* element)
{
    ReadXML(RootOf(TreeOf(*element)));
}

void ValidityMDImpl::ReadXML(const DOMElement* element)
{
    ReadXML(RootOf(TreeOf(*element)));
}

} // namespace Veld::Quor::Core::Keywords
