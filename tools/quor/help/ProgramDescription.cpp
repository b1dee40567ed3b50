#include "tools/quor/help/ProgramDescription.h"

#include "tools/quor/findings/FindingCodes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>
#include <utility>

namespace Veld::Quor::Tools {

namespace {

/// Of a value that is described as "NAME:{text,json}".
std::vector<std::string> ChoicesOf(const std::string& type)
{
    const std::size_t begin = type.find('{');
    const std::size_t end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos || end < begin)
        return {};
    std::vector<std::string> choices;
    std::istringstream words(type.substr(begin + 1, end - begin - 1));
    words.exceptions(std::ios::badbit); // else memory that runs out ends it early
    for (std::string word; std::getline(words, word, ',');)
        choices.push_back(word);
    return choices;
}

OptionDescription Describe(const CLI::Option& option)
{
    OptionDescription description;
    for (const std::string& name : option.get_snames())
        description.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        description.names.push_back("--" + name);
    const std::string type = option.get_type_size_max() == 0 ? "" : option.get_type_name();
    description.value = option.get_positional() ? option.get_name(true) : type.substr(0, type.find(':'));
    description.choices = description.value == "CODE" ? FindingCodeNames() : ChoicesOf(type);
    if (description.value == "KEYWORD")
        description.lister = "quor list 2>/dev/null | cut -d ' ' -f 1 | sort -u";
    description.help = option.get_description();
    description.isRequired = option.get_required();
    description.isRepeated = option.get_items_expected_max() > 1;
    return description;
}

/// Blank lines end paragraphs.
std::vector<std::string> ParagraphsOf(const std::string& text)
{
    std::vector<std::string> paragraphs;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find("\n\n", begin), text.size());
        paragraphs.push_back(text.substr(begin, end - begin));
        begin = end + 2;
    }
    return paragraphs;
}

} // namespace

CommandDescription Describe(const CLI::App& application)
{
    CommandDescription description;
    description.name = application.get_name();
    description.text = application.get_description();
    for (const CLI::Option* option : application.get_options())
        description.options.push_back(Describe(*option));
    std::stable_partition(description.options.begin(), description.options.end(),
        [](const OptionDescription& option) { return !option.names.empty(); });
    description.notes = ParagraphsOf(application.get_footer());
    for (const CLI::App* command : application.get_subcommands([](const CLI::App*) { return true; }))
        description.commands.push_back(Describe(*command));
    return description;
}

std::string FirstSentence(const std::string& text)
{
    std::string sentence = text.substr(0, std::min(text.find(". "), text.find(".\n")));
    std::replace(sentence.begin(), sentence.end(), '\n', ' ');
    if (sentence.ends_with('.'))
        sentence.pop_back();
    return sentence;
}

} // namespace Veld::Quor::Tools
