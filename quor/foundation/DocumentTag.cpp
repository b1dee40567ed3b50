#include "quor/foundation/internal/DocumentTag.h"

#include "quor/foundation/service/xml/Tags.h"

#include <cstddef>
#include <iterator>

namespace Veld::Quor::Core::Service::XML::Internal {

const XMLCh* TextOf(Tag tag)
{
    // In the order of the enumeration.
    static const XMLCh* const texts[] = {Tags::Alias(), Tags::Aliases(), Tags::Assignment(), Tags::Boolean(),
        Tags::Calculated(), Tags::CanContainComma(), Tags::CaseSensitive(), Tags::Category(), Tags::Cell(),
        Tags::Choice(), Tags::ClassicOnly(), Tags::ColumnConstraint(), Tags::Components(),
        Tags::CopyLayerAboveByDefault(), Tags::CustomReadTermination(), Tags::Data(), Tags::Default(),
        Tags::Description(), Tags::Documentation(), Tags::DualPorosityMatrixOnly(), Tags::EndKeyword(),
        Tags::Explicit(), Tags::FillEmptyElementsWithPreviousValue(), Tags::Format(), Tags::GridEditsOnly(),
        Tags::ID(), Tags::Identifier(), Tags::Ignored(), Tags::Integer(), Tags::IsGeneric(), Tags::IsHidden(),
        Tags::IsHiddenAlias(), Tags::Item(), Tags::ItemsDefaultable(), Tags::Keyword(), Tags::LengthLimit(),
        Tags::Line(), Tags::List(), Tags::Map(), Tags::Max(), Tags::MaxSize(), Tags::Min(), Tags::MinSize(),
        Tags::Name(), Tags::NoDefault(), Tags::Option(), Tags::Optional(), Tags::Override(),
        Tags::Precedent(), Tags::Precedents(), Tags::Property(), Tags::Quantity(), Tags::Raw(), Tags::Real(),
        Tags::Record(), Tags::Scope(), Tags::Section(), Tags::Simulator(), Tags::Size(),
        Tags::SkippableOnRead(), Tags::SkippableOnWrite(), Tags::Specified(), Tags::String(),
        Tags::StringTermination(), Tags::SummaryMnemonic(), Tags::SupportLevel(), Tags::Termination(),
        Tags::True(), Tags::Type(), Tags::UnsupportedBy(), Tags::Val(), Tags::ValidOptions(),
        Tags::ValidSections(), Tags::ValidSimulators(), Tags::Validity(), Tags::Value(), Tags::Values(),
        Tags::Wildcard(), Tags::WriteStartingOnNewLine(), Tags::WriteTerminationOnNewLine()};
    static_assert(std::size(texts) == static_cast<std::size_t>(Tag::Count));
    return texts[static_cast<std::size_t>(tag)];
}

} // namespace Veld::Quor::Core::Service::XML::Internal
