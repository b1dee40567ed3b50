#include "tools/quor/language-server/Projects.h"

#include "tools/quor/check/ProjectDecks.h"
#include "tools/quor/settings/SettingSources.h"
#include "tools/quor/settings/SettingsFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

using Core::Keywords::KeywordSyntaxTable;

namespace {

Settings::Words RulesOf(const Settings& settings)
{
    return settings.rules.value_or(Settings::Words());
}

std::vector<std::filesystem::file_time_type> TimesOf(const std::vector<std::string>& files)
{
    std::vector<std::filesystem::file_time_type> times;
    for (const std::string& file : files) {
        std::error_code ignored; // whoever reads the file says what is wrong with it
        times.push_back(std::filesystem::last_write_time(file, ignored));
    }
    return times;
}

} // namespace

std::vector<std::string> Project::GetFiles() const
{
    std::vector<std::string> files = RulesOf(settings);
    for (const Settings::Words& documents :
        {settings.syntax.value_or(Settings::Words()), KeywordSyntaxTable::GetOwnDocuments()})
        files.insert(files.end(), documents.begin(), documents.end());
    if (settings.baseline)
        files.push_back(*settings.baseline);
    if (!file.empty())
        files.push_back(file);
    return files;
}

Projects::Projects(KeywordSyntaxTable& table)
    : table_(table)
{
}

Project Projects::Find(const std::string& deck, const Settings& given)
{
    Project project{FindSettingsFile(deck)};
    try {
        Settings ofFile = project.file.empty() ? Settings() : ReadSettingsFile(project.file);
        project.settings = Merge(given, ofFile);
        project.language = LanguageWith(project.settings);
        CheckCodes(project.settings, project.language->language);
        if (project.settings.baseline)
            project.baseline = std::make_shared<const Baseline>(Baseline::Read(*project.settings.baseline));
        if (!project.file.empty() && DocumentsOf(project.settings) != KeywordSyntaxTable::GetOwnDocuments())
            project.error = fmt::format(
                "{}: the documents of keywords that it names are not loaded; correct the one with an "
                "error, or if none has one, restart the server in the folder of this file",
                project.file);
        read_[project.file] = std::move(ofFile);
    } catch (const std::exception& error) { // of the file, or of rules that it names
        const auto last = read_.find(project.file);
        project.error = fmt::format("{}; {}", error.what(),
            last == read_.end() ? "the settings file is not used" : "the settings before this error apply");
        project.settings = Merge(given, last == read_.end() ? Settings() : last->second);
        project.language = LastLanguageWith(project.settings);
    }
    return project;
}

std::shared_ptr<const ProjectLanguage> Projects::LanguageWith(const Settings& settings)
{
    const Settings::Words files = RulesOf(settings);
    auto times = TimesOf(files);
    KnownLanguage& known = languages_[files];
    if (!known.language || known.times != times)
        known = {std::move(times), std::make_shared<const ProjectLanguage>(table_, files)};
    return known.language;
}

std::shared_ptr<const ProjectLanguage> Projects::LastLanguageWith(const Settings& settings)
{
    const auto known = languages_.find(RulesOf(settings));
    return known != languages_.end() && known->second.language ? known->second.language : LanguageWith({});
}

std::vector<std::string> Projects::DecksFor(const std::string& file)
{
    try {
        const std::string project = FindSettingsFile(file);
        const Settings settings = project.empty() ? Settings() : ReadSettingsFile(project);
        return DecksOf(settings.decks.value_or(Settings::Words()));
    } catch (const std::exception&) { // what is wrong with the file is reported with the deck that is found
        return {};
    }
}

std::vector<std::string> DocumentsFor(const std::string& folder, const Settings& given)
{
    const std::string file = FindSettingsFile(folder + '/');
    return DocumentsOf(file.empty() ? given : Merge(given, ReadSettingsFile(file)));
}

} // namespace Veld::Quor::Tools::LanguageServer
