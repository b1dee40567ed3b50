#include "quor/metadata/KeywordChoiceMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/service/MatchPolicy.h"
#include "quor/foundation/service/MessageCapper.h"
#include "quor/foundation/service/Strings.h"
#include "quor/metadata/internal/DefaultReader.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <limits>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

namespace {

constexpr int none = -1;

std::string ToUpper(std::string text)
{
    Service::StringToUpper(text);
    return text;
}

bool StartsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
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
    return Index(text, message, true);
}

int KeywordChoiceMDImpl::GetIndex(const std::string& text, std::string& message) const
{
    return Index(text, message, true);
}

void KeywordChoiceMDImpl::AddChoice(ChoiceMD&& choice)
{
    choices_.push_back(std::move(choice));
}

void KeywordChoiceMDImpl::AddChoice(
    const std::string& text, const ValidityMDImpl& validity, const UnsupportedByMDImpl& unsupportedBy)
{
    std::string ignored;
    if (Index(text, ignored, false) == none)
        choices_.push_back({ToUpper(text), validity, unsupportedBy, AliasesMDImpl()});
}

int KeywordChoiceMDImpl::Index(const std::string& text, std::string& message, bool abbreviate) const
{
    if (Service::AllBlanks(text)) {
        const auto at = std::find_if(choices_.begin(), choices_.end(),
            [](const ChoiceMD& choice) { return Service::AllBlanks(choice.text); });
        return at == choices_.end() ? none : static_cast<int>(at - choices_.begin());
    }
    const std::string upper = ToUpper(text);
    int index = abbreviate ? FindAbbreviated(upper) : FindText(upper);
    if (index == none && abbreviate && Service::UseLaxMatch())
        index = FindLax(upper);
    if (index == none)
        message = "Must be one of " + GetChoicesAsString();
    return index;
}

int KeywordChoiceMDImpl::FindText(const std::string& upper) const
{
    for (int index = 0; index < NumChoices(); ++index) {
        if (GetChoice(index) == upper)
            return index;
    }
    return none;
}

/// The shortest word or alias that starts with the text wins, and among equals the first.
int KeywordChoiceMDImpl::FindAbbreviated(const std::string& upper) const
{
    int best = none;
    std::size_t bestLength = std::numeric_limits<std::size_t>::max();
    const AliasesMDImpl::Alias* alias = nullptr; // the last one that was the best so far
    const auto isBetter = [&](const std::string& candidate) {
        return candidate.size() < bestLength && StartsWith(candidate, upper);
    };
    for (int index = 0; index < NumChoices(); ++index) {
        const ChoiceMD& choice = At(index);
        if (isBetter(choice.text)) {
            // Wanted: `alias` stays, so an earlier, longer, hidden alias of another choice is still warned
            // of.
            best = index;
            bestLength = choice.text.size();
        }
        for (const AliasesMDImpl::Alias& candidate : choice.aliases.GetAliasList()) {
            if (!isBetter(candidate.first))
                continue;
            best = index;
            bestLength = candidate.first.size();
            if (candidate.first != choice.text)
                alias = &candidate;
        }
    }
    if (best == none)
        return none;
    if (alias && alias->second) {
        const std::string& word = GetChoice(best);
        Service::MessageCapper::instance()->logW(alias->first + " is a deprecated synonym for " + word
            + " and may be removed in a future release; please use " + word + ".");
    } else if (GetChoice(best).size() != upper.size()) {
        // Wanted: lengths decide, so an alias as long as the word passes in silence.
        WarnOfMatch(upper, best);
    }
    return best;
}

/// The words that agree with the text furthest from its start, and of these the shortest; aliases take no
/// part. A text whose first character starts no word has no match.
int KeywordChoiceMDImpl::FindLax(const std::string& upper) const
{
    std::vector<int> candidates(choices_.size());
    for (int index = 0; index < NumChoices(); ++index)
        candidates[static_cast<std::size_t>(index)] = index;
    for (std::size_t position = 0; position < upper.size(); ++position) {
        std::vector<int> next;
        for (const int index : candidates) {
            const std::string& word = GetChoice(index);
            if (word.size() > position && word[position] == upper[position])
                next.push_back(index);
        }
        if (next.empty() && position > 0)
            break;
        candidates = std::move(next);
        if (candidates.size() <= 1)
            break;
    }
    const auto shortest = std::min_element(candidates.begin(), candidates.end(),
        [this](int a, int b) { return GetChoice(a).size() < GetChoice(b).size(); });
    if (shortest == candidates.end())
        return none;
    WarnOfMatch(upper, *shortest);
    return *shortest;
}

void KeywordChoiceMDImpl::WarnOfMatch(const std::string& upper, int index) const
{
    const std::string& word = GetChoice(index);
    Service::MessageCapper::instance()->logW(
        upper + " has matched option " + word + "; please use " + word + " to avoid ambiguity.");
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
    void Set(SimulatorType::Enum key, const DOMElement* element)
    {
        elements_[static_cast<std::size_t>(key)] = element;
    }

    /// Calls `use` with key and element, in the order of the keys.
    template <class Use>
    void ForEach(Use use) const
    {
        for (std::size_t key = 0; key < elements_.size(); ++key) {
            if (elements_[key])
                use(SimulatorType::Enum(key), *elements_[key]);
        }
    }

private:
    std::array<const DOMElement*, SimulatorType::Any + 1> elements_{};
};

void KeywordChoiceMDImpl::ReadXML(
    const DOMElement* element, const std::vector<SimulatorType::Enum>& simulators)
{
    SetSimulators(simulators);
    PendingDefaults pending;
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Description())) {
            SetDescription(GetElementText(&child));
        } else if (Is(child, Tags::Values())) {
            ReadValues(child);
        } else if (Is(child, Tags::Default())) {
            // Wanted: unlike the other scalars, a choice takes any text for a type here, and looks again at
            // the end.
            const bool calculated = ReadDefaultType(child) == DefaultType::Calculated;
            if (calculated)
                CheckDefaultValue(child, DefaultType::Calculated);
            ForKeywordAndEach(simulators, [&](SimulatorType::Enum key) {
                if (calculated)
                    defaults_.Set(key, {});
                else
                    pending.Set(key, &child);
            });
            ForEachOverride(
                child, [&](SimulatorType::Enum simulator, DefaultType::Enum type, const DOMElement& from) {
                    // Wanted: under a calculated override a specified default of the keyword stays pending,
                    // and in the end overwrites it. And "no default" takes back what is pending, but not a
                    // calculated one.
                    if (type == DefaultType::Calculated)
                        defaults_.Set(simulator, {});
                    else
                        pending.Set(simulator, type == DefaultType::Specified ? &from : nullptr);
                    defaults_.SetOverride(simulator, type);
                });
        }
    }
    pending.ForEach([this](SimulatorType::Enum key, const DOMElement& from) {
        if (ReadDefaultType(from) != DefaultType::Specified)
            return;
        CheckDefaultValue(from, DefaultType::Specified);
        defaults_.Set(key, GetIndex(DefaultValueOf(from)));
    });
}

void KeywordChoiceMDImpl::ReadValues(const DOMElement& element)
{
    for (const DOMElement& child : ChildElements(element)) {
        if (Is(child, Tags::Value()))
            ReadValue(child);
    }
}

void KeywordChoiceMDImpl::ReadValue(const DOMElement& element)
{
    ChoiceMD choice;
    choice.text = ToUpper(GetAttributeValue(&element, Tags::String()));
    for (const DOMElement& child : ChildElements(element)) {
        if (Is(child, Tags::Validity()))
            choice.validity.ReadXML(&child);
        else if (Is(child, Tags::UnsupportedBy()))
            choice.unsupportedBy.ReadXML(&child);
        else if (Is(child, Tags::Aliases()))
            choice.aliases.ReadXML(&child);
    }
    AddChoice(std::move(choice));
}

} // namespace Veld::Quor::Core::Keywords
