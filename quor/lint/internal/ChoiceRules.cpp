// The words of a choice, and the choice that a default names.

#include "quor/lint/internal/Rules.h"

#include "quor/foundation/service/Strings.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace Veld::Quor::Core::Lint {

namespace {

std::string Fold(std::string text)
{
    if (IsBlank(text))
        return {}; // any blank text matches a blank choice
    Core::Service::StringToUpper(text);
    return text;
}

template <class Use>
void ForEachValue(const Element& choice, const Use& use)
{
    for (const Element& values : choice.children) {
        if (values.tag != "values")
            continue;
        for (const Element& value : values.children) {
            if (value.tag == "value")
                use(value);
        }
    }
}

/// Calls `use` with each alias that the loader sees.
template <class Use>
void ForEachSeenAlias(const Element& value, const Use& use)
{
    ForEachAlias(value, [&](const Element& alias) {
        if (alias.position % 2 == 1)
            use(alias);
    });
}

void CheckWord(
    std::set<std::string>& words, const std::string& word, const Span& span, const Reporter& reporter)
{
    if (!words.insert(word).second)
        reporter.Report(Code::UnreachableWord, span,
            fmt::format("unreachable choice or alias {}; an earlier one has the same text", Quoted(word)),
            "remove it");
}

} // namespace

void CheckChoice(const Element& choice, const Reporter& reporter)
{
    std::set<std::string> words;
    ForEachValue(choice, [&](const Element& value) {
        if (const Attribute* const text = value.Find("string"))
            CheckWord(words, Fold(text->value), text->valueSpan, reporter);
        ForEachSeenAlias(value, [&](const Element& alias) {
            if (!alias.Get("name").empty())
                CheckWord(words, alias.Get("name"), alias.Find("name")->valueSpan, reporter);
        });
    });
}

void CheckValue(const Element& value, const Context& context, const Reporter& reporter)
{
    if (!value.Find("string"))
        reporter.Report(Code::MissingAttribute, value.span,
            "<value> without attribute 'string' is read as a blank choice", "write string=\"...\"");
    CheckItemValidity(value, context, reporter.In("choice", value.Get("string")));
}

ChoiceWords ReadChoiceWords(const Element& choice)
{
    ChoiceWords words;
    ForEachValue(choice, [&](const Element& value) {
        words.texts.insert(Fold(value.Get("string")));
        ForEachSeenAlias(value, [&](const Element& alias) { words.aliases.insert(alias.Get("name")); });
    });
    return words;
}

void CheckDefaultChoice(const ChoiceWords& words, const Attribute& value, const Reporter& reporter)
{
    const std::string text = Fold(value.value);
    const auto isPrefix = [&](const std::set<std::string>& of) {
        const auto at = of.lower_bound(text);
        return !text.empty() && at != of.end() && at->starts_with(text);
    };
    if (words.texts.contains(text))
        return;
    if (words.aliases.contains(text))
        reporter.Report(Code::DefaultNotInFull, value.valueSpan,
            fmt::format("default {} is an alias of a choice", Quoted(value.value)),
            "write the choice in full");
    else if (isPrefix(words.texts) || isPrefix(words.aliases))
        reporter.Report(Code::DefaultNotInFull, value.valueSpan,
            fmt::format("default {} is an abbreviation of a choice", Quoted(value.value)),
            "write the choice in full");
    else
        reporter.Report(Code::DefaultNoChoice, value.valueSpan,
            fmt::format("default {} matches no choice; the item has no default", Quoted(value.value)),
            reporter.IsFull() ? "" : HintOfNearest(text, {words.texts.begin(), words.texts.end()}));
}

} // namespace Veld::Quor::Core::Lint
