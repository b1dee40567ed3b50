#include "tools/quor/manual/Manual.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;

namespace {

/// Whether files of others may be in the folder. One that has a manual is written again.
bool HasOthers(const std::string& folder)
{
    std::error_code error; // a folder that can't be read is reported when it is written
    const fs::path path = folder.empty() ? "." : folder; // as it is written
    if (!fs::exists(path, error) || fs::is_empty(path, error))
        return false;
    return !HeadOf((path / "search-data.js").string()).starts_with("manualRows = ");
}

int WriteManualOrReport(LoadedLanguage& language, const std::string& folder)
{
    if (HasOthers(folder)) {
        PrintError(
            fmt::format("'{}' is not empty and has no manual; expected a new or empty folder", folder));
        return Failure;
    }
    const Manual manual = MakeManual(language);
    if (!WriteManual(manual, folder))
        return Failure;
    constexpr double megabyte = 1e6;
    double bytes = 0;
    for (const ManualFile& file : manual.files)
        bytes += static_cast<double>(file.text.size());
    PrintAside(fmt::format("{} ({}, {:.1f} MB)\n", MakePrintable((fs::path(folder) / "index.html").string()),
        Plural(manual.files.size(), "file"), bytes / megabyte));
    return Success;
}

} // namespace

Command MakeManualCommand(CLI::App& application)
{
    const auto folder = std::make_shared<std::string>();
    const auto sources = std::make_shared<SettingSources>();
    CLI::App& command = *application.add_subcommand("manual",
        "Writes the reference of the language as pages for a browser: a page for each keyword, and pages\n"
        "by section, subject, simulator, measurement and finding code, with a search.");
    command
        .add_option("FOLDER", *folder,
            "New or empty folder, or one with an earlier manual, which the new one replaces")
        ->required();
    AddSyntaxOptions(command, *sources);
    command.footer(
        "The pages need no network and no server: open index.html. Keywords of own documents are in\n"
        "them, those of the environment variables too.\n\n"
        "Examples:\n"
        "  quor manual manual\n"
        "  xdg-open manual/index.html");
    return {&command, [folder](LoadedLanguage& language) { return WriteManualOrReport(language, *folder); },
        [sources] { return DocumentsOf(SettingsOf("", *sources)); }};
}

} // namespace Veld::Quor::Tools
