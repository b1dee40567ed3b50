#include "quor/data/Access.h"

#include "quor/data/internal/AccessCheck.h"
#include "quor/data/internal/UnknownElements.h"

#include <type_traits>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using Service::Optional;

namespace {

/// An item of a record and a value of a map are stored as an `Optional`, an element of a list is not: one
/// that is unknown becomes an `Optional` without a value.
template <class T>
Optional<T> AtStop(const ConstDataIterator::ValueType& stop)
{
    if (stop.isOptional)
        return *static_cast<const Optional<T>*>(stop.value);
    const auto& element = *static_cast<const ListElement<T>*>(stop.value);
    if constexpr (std::is_same_v<T, bool>) {
        if (element == unknownElement<char>)
            return {};
    }
    return static_cast<T>(element);
}

} // namespace

template <class T>
Optional<T> Get(const ConstDataIterator::ValueType& stop)
{
    const AccessSubject subject{nullptr, stop.md, "the value"};
    if (!(std::is_same_v<T, int> && subject.Type() == MDType::Assignment))
        CheckHolds<T>(subject);
    return AtStop<T>(stop);
}

template VELD_QUOR_EXPORT Optional<bool> Get<bool>(const ConstDataIterator::ValueType&);
template VELD_QUOR_EXPORT Optional<int> Get<int>(const ConstDataIterator::ValueType&);
template VELD_QUOR_EXPORT Optional<double> Get<double>(const ConstDataIterator::ValueType&);
template VELD_QUOR_EXPORT Optional<std::string> Get<std::string>(const ConstDataIterator::ValueType&);

Optional<std::string> GetChoice(const ConstDataIterator::ValueType& stop)
{
    const AccessSubject subject{nullptr, stop.md, "the value"};
    subject.CheckType(MDType::Choice);
    const Optional<int> index = AtStop<int>(stop);
    return index ? WordOfIndex(subject, *index) : Optional<std::string>();
}

} // namespace Veld::Quor::Core::Keywords
