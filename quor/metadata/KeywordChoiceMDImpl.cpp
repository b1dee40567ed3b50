#include "quor/metadata/KeywordChoiceMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/service/MessageCapper.h"
#include "quor/foundation/service/Strings.h"
#include "quor/metadata/internal/ChoiceMatching.h"
#include "quor/metadata/internal/DefaultReader.h"

#include <array>
#include <cassert>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

std::string ToUpper(std::string text)
{
    Service::StringToUpper(text);
    return text;
}

} // namespace

const KeywordChoiceMDImpl::ChoiceMD& KeywordChoiceMDImpl::At(int index) const
{
    assert(index >= 0 && index < NumChoices() && "KeywordChoiceMDImpl: index out of range");
    return choices_[static_cast<std::size_t>(index)];
}

int KeywordChoiceMDImpl::GetIndex(const std::string& text) const
{
    std::string message;
    return GetIndex(text, message);
}

int KeywordChoiceMDImpl::GetIndex(const std::string& text, std::string& message) const
{
    const ChoiceMatch match = Match(text);
    if (match.needsWarning)
        Service::MessageCapper::instance()->logW(Internal::WarningOf(choices_, match, text));
    if (match.kind == ChoiceMatch::Kind::None && !Service::AllBlanks(text))
        message = "Must be one of " + GetChoicesAsString();
    return match.index;
}

ChoiceMatch KeywordChoiceMDImpl::Match(std::string_view text) const
{
    return Internal::MatchChoice(choices_, text);
}

void KeywordChoiceMDImpl::AddChoice(ChoiceMD&& choice)
{
    choices_.push_back(std::move(choice));
}

void KeywordChoiceMDImpl::AddChoice(
    const std::string& text, const ValidityMDImpl& validity, const UnsupportedByMDImpl& unsupportedBy)
{
    if (Internal::FindWord(choices_, text) < 0)
        choices_.push_back({ToUpper(text), validity, unsupportedBy, AliasesMDImpl()});
}

/// "A, B or C"
std::string KeywordChoiceMDImpl::GetChoicesAsString() const
{
    std::string all;
    for (int index = 0; index < NumChoices(); ++index) {
        if (index > 0)
            all += index + 1 < NumChoices() ? ", " : " or ";
        all += GetChoice(index);
    }
    return all;
}

/// The elements whose value names a choice, by the key whose default they give. They wait until all choices
/// are read.
class KeywordChoiceMDImpl::PendingDefaults {
public:
    void Set(SimulatorType::Enum key, const TreeElement& element)
    {
        elements_[static_cast<std::size_t>(key)] = element;
    }

    /// Calls `use` with key and element, in the order of the keys.
    template <class Use>
    void ForEach(Use use) const
    {
        for (std::size_t key = 0; key < elements_.size(); ++key) {
            if (elements_[key])
                use(SimulatorType::Enum(key), elements_[key]);
        }
    }

private:
    std::array<TreeElement, SimulatorType::Any + 1> elements_{};
};

void KeywordChoiceMDImpl::ReadXML(
    const TreeElement& element, const std::vector<SimulatorType::Enum>& simulators)
{
    SetSimulators(simulators);
    PendingDefaults pending;
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Description)) {
            SetDescription(child.GetText());
        } else if (child.Is(Tag::Values)) {
            ReadValues(child);
        } else if (child.Is(Tag::Default)) {
            // Wanted: unlike the other scalars, a choice takes any text for a type here, and looks again at
            // the end.
            const bool calculated = ReadDefaultType(child) == DefaultType::Calculated;
            if (calculated)
                CheckDefaultValue(child, DefaultType::Calculated);
            ForKeywordAndEach(simulators, [&](SimulatorType::Enum key) {
                if (calculated)
                    defaults_.Set(key, {});
                else
                    pending.Set(key, child);
            });
            ForEachOverride(
                child, [&](SimulatorType::Enum simulator, DefaultType::Enum type, const TreeElement& from) {
                    // Wanted: under a calculated override a specified default of the keyword stays pending,
                    // and in the end overwrites it. And "no default" takes back what is pending, but not a
                    // calculated one.
                    if (type == DefaultType::Calculated)
                        defaults_.Set(simulator, {});
                    else
                        pending.Set(simulator, type == DefaultType::Specified ? from : TreeElement());
                    defaults_.SetOverride(simulator, type);
                });
        }
    }
    pending.ForEach([this](SimulatorType::Enum key, const TreeElement& from) {
        if (ReadDefaultType(from) != DefaultType::Specified)
            return;
        CheckDefaultValue(from, DefaultType::Specified);
        defaults_.Set(key, GetIndex(DefaultValueOf(from)));
    });
}

void KeywordChoiceMDImpl::ReadValues(const TreeElement& element)
{
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Value))
            ReadValue(child);
    }
}

void KeywordChoiceMDImpl::ReadValue(const TreeElement& element)
{
    ChoiceMD choice;
    choice.text = ToUpper(element.Get(Tag::String));
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Validity))
            choice.validity.ReadXML(child);
        else if (child.Is(Tag::UnsupportedBy))
            choice.unsupportedBy.ReadXML(child);
        else if (child.Is(Tag::Aliases))
            choice.aliases.ReadXML(child);
    }
    AddChoice(std::move(choice));
}

} // namespace Veld::Quor::Core::Keywords
