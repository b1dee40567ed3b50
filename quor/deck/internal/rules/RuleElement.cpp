#include "quor/deck/internal/rules/RuleElement.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/text/NumberText.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

std::string HintOf(const std::vector<std::string>& near)
{
    return near.empty() ? "" : fmt::format("did you mean '{}'?", near.front());
}

} // namespace

RuleElement::RuleElement(const RuleNode& node, const RuleOrigin& origin)
    : node_(node)
    , origin_(origin)
    , isAsked_(node.attributes.size())
{
    asked_.reserve(16); // more than most rules have
}

void RuleElement::Fail(const std::string& reason, const std::string& attribute, const std::string& hint) const
{
    RuleFailure failure = {{}, attribute, {}, reason, hint};
    AddPlace(failure);
    throw failure;
}

/// From the root down.
void RuleElement::AddPlace(RuleFailure& failure) const
{
    if (!around_)
        return;
    around_->AddPlace(failure);
    failure.path.push_back(number_);
    failure.place +=
        fmt::format("{}element {}, <{}>", failure.place.empty() ? "" : ", ", number_ + 1, node_.tag);
}

std::string RuleElement::Find(const char* attribute)
{
    asked_.push_back(attribute);
    for (std::size_t i = 0; i < node_.attributes.size(); ++i) {
        const auto& [name, value] = node_.attributes[i];
        if (name == attribute) {
            isAsked_[i] = true;
            return value;
        }
    }
    return {};
}

std::string RuleElement::Get(const char* attribute)
{
    std::string value = Find(attribute);
    if (value.empty()) {
        for (std::size_t i = 0; i < node_.attributes.size(); ++i) {
            const std::string& other = node_.attributes[i].first;
            if (const auto near = FindNearest({attribute}, other); !isAsked_[i] && !near.empty())
                Refuse(other, near);
        }
        Fail(fmt::format("missing attribute '{}'", attribute));
    }
    return value;
}

std::vector<std::string> RuleElement::FindWords(const char* attribute)
{
    constexpr std::string_view white = " \t\n\v\f\r";
    const std::string text = Find(attribute);
    std::vector<std::string> words;
    for (std::size_t end = 0;;) {
        const std::size_t begin = text.find_first_not_of(white, end);
        if (begin == std::string::npos)
            return words;
        end = text.find_first_of(white, begin);
        words.push_back(text.substr(begin, end - begin));
    }
}

std::vector<std::string> RuleElement::GetWords(const char* attribute)
{
    Get(attribute);
    return FindWords(attribute);
}

std::vector<std::string> RuleElement::FindKeywords(const char* attribute)
{
    std::vector<std::string> keywords;
    for (const std::string& word : FindWords(attribute)) {
        if (word.find_first_of("*?") == std::string::npos) {
            if (origin_.isChecked)
                Check("keyword", word, origin_.words.GetKeywords(), attribute);
            keywords.push_back(word);
            continue;
        }
        const auto matching = origin_.words.FindKeywords(word);
        if (matching.empty() && origin_.isChecked)
            Fail(fmt::format("no keyword matches '{}'", word), attribute);
        keywords.insert(keywords.end(), matching.begin(), matching.end());
    }
    return keywords;
}

std::vector<std::string> RuleElement::GetKeywords(const char* attribute)
{
    Get(attribute);
    return FindKeywords(attribute);
}

std::string RuleElement::FindItem(const char* attribute)
{
    std::string item = Find(attribute);
    if (!item.empty())
        CheckItem(item, attribute);
    return item;
}

std::string RuleElement::GetItem(const char* attribute)
{
    Get(attribute);
    return FindItem(attribute);
}

std::vector<std::string> RuleElement::FindItems(const char* attribute)
{
    std::vector<std::string> items = FindWords(attribute);
    for (const std::string& item : items)
        CheckItem(item, attribute);
    return items;
}

std::vector<std::string> RuleElement::GetItems(const char* attribute)
{
    Get(attribute);
    return FindItems(attribute);
}

bool RuleElement::IsFlagged(const char* attribute)
{
    const std::string value = Find(attribute);
    if (!value.empty() && value != "true" && value != "false")
        Fail(fmt::format("attribute '{}' is '{}'; expected 'true' or 'false'", attribute, value), attribute);
    return value == "true";
}

double RuleElement::GetNumber(const char* attribute)
{
    const std::string text = Get(attribute);
    const auto number = ToReal(text);
    if (!number)
        Fail(fmt::format("attribute '{}' is '{}'; expected a number", attribute, text), attribute);
    return *number;
}

void RuleElement::Check(const char* what, const std::string& word, const std::set<std::string>& known,
    const char* attribute) const
{
    if (known.count(word) == 0)
        Fail(fmt::format("unknown {} '{}'", what, word), attribute,
            HintOf(FindNearest({known.begin(), known.end()}, word)));
}

void RuleElement::CheckItem(const std::string& item, const char* attribute) const
{
    if (origin_.isChecked)
        Check("item", item, origin_.words.GetItems(), attribute);
}

void RuleElement::CheckChoice(const std::vector<std::string>& keywords, const std::string& item,
    const std::string& word, const char* attribute) const
{
    if (!origin_.isChecked || word.empty() || keywords.empty()
        || word.find_first_of("*?") != std::string::npos)
        return;
    std::set<std::string> words;
    for (const std::string& keyword : keywords) {
        if (!origin_.words.AddChoices(keyword, item, words))
            return;
    }
    if (words.count(word) == 0)
        Fail(words.empty() ? fmt::format("no keyword of the rule has item '{}'", item)
                           : fmt::format("{} has no choice '{}'", item, word),
            attribute, HintOf(FindNearest({words.begin(), words.end()}, word)));
}

void RuleElement::CheckAllAsked() const
{
    for (std::size_t i = 0; i < node_.attributes.size(); ++i) {
        const std::string& name = node_.attributes[i].first;
        if (!isAsked_[i])
            Refuse(name, FindNearest({asked_.begin(), asked_.end()}, name));
    }
}

void RuleElement::ForEachChild(const std::function<void(RuleElement)>& use) const
{
    std::size_t number = 0;
    for (const RuleNode& child : node_.children) {
        RuleElement element(child, origin_);
        element.around_ = this;
        element.number_ = number++;
        use(std::move(element));
    }
}

void RuleElement::Refuse(const std::string& attribute, const std::vector<std::string>& near) const
{
    Fail(fmt::format("unknown attribute '{}'", attribute), attribute, HintOf(near));
}

} // namespace Veld::Quor::Core::Decks
