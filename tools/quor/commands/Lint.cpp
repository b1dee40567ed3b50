#include "quor/lint/Lint.h"
#include "quor/foundation/service/Directory.h"
#include "quor/lint/Codes.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/LanguageOrigin.h"
#include "tools/quor/findings/FindingFormat.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <unistd.h>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace Lint = Core::Lint;
namespace fs = std::filesystem;
using Lint::Document;
using Lint::LintReport;

namespace {

struct LintCommandOptions {
    std::vector<std::string> paths;
    bool isBuiltin = false;
    FindingFormat format = FindingFormat::Text;
    std::size_t maxFindings = 200;
};

/// The file itself, or the documents of a folder by name.
std::vector<std::string> ListFiles(const std::string& path)
{
    std::error_code error;
    if (!fs::is_directory(path, error))
        return {path};
    std::vector<std::string> files =
        Core::Service::Directory(path).Find("\\.xml$", true, false, true, true, false);
    if (files.empty())
        throw Lint::DocumentError(::access(path.c_str(), R_OK | X_OK) == 0
                ? "the folder has no .xml file"
                : std::generic_category().message(errno));
    for (std::string& file : files)
        file = (fs::path(path) / file).string();
    return files;
}

/// Reports an error and returns false if something of the path can't be read.
bool ReadPath(const std::string& path, std::vector<Document>& documents, std::set<FileStamp>& known)
{
    static constexpr FileStamp ofNone = {};
    std::string file = path;
    try {
        for (const std::string& name : ListFiles(path)) {
            file = name;
            const FileStamp stamp = StampOf(name);
            if (known.insert(stamp).second || stamp == ofNone) // each once
                documents.push_back(Document::ReadFile(name));
        }
        return true;
    } catch (const Lint::DocumentError& error) {
        PrintError(fmt::format("can't read '{}': {}", file, error.what()));
    }
    return false;
}

void PrintText(const LintReport& report, const std::vector<std::string>& replaced)
{
    const std::size_t keywords =
        std::accumulate(report.keywords.begin(), report.keywords.end(), std::size_t{0});
    Print(FindingsText(report.findings));
    Print(fmt::format("{} in {}: {}\n", Plural(keywords, "keyword"),
        Plural(report.keywords.size(), "document"), CountsText(report.findings)));
    if (!replaced.empty())
        Print(fmt::format(
            "added to the language, they take precedence over the built-in {}\n", SomeOf(replaced)));
}

void PrintJson(const std::vector<Document>& documents, const LintReport& report,
    const std::vector<std::string>& replaced)
{
    auto files = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < documents.size(); ++i)
        files.push_back({{"file", documents[i].GetName()}, {"keywords", report.keywords[i]}});
    auto findings = nlohmann::ordered_json::array();
    for (const Decks::Finding& finding : report.findings.GetKept())
        findings.push_back(FindingJson(finding));
    Print(ToText(WithVersion({{"documents", files}, {"clean", report.findings.IsClean()},
        {"counts", CountsJson({report.findings})}, {"findings", findings}, {"replaces", replaced}})));
}

int RunLint(const LintCommandOptions& options)
{
    if (options.paths.empty() != options.isBuiltin) {
        PrintError(options.isBuiltin ? "'--builtin' cannot be combined with files"
                                     : "no input; expected files, folders or '--builtin'");
        PrintAside("see 'quor lint --help'\n");
        return Failure;
    }
    std::vector<Document> documents;
    bool isRead = true;
    if (options.isBuiltin)
        documents = Document::ReadBuiltin();
    std::set<FileStamp> known;
    for (const std::string& path : options.paths)
        isRead = ReadPath(path, documents, known) && isRead;
    if (documents.empty() && !isRead)
        return Failure;
    const LintReport report = LintDocuments(documents, options.maxFindings);
    const auto replaced = options.isBuiltin ? std::vector<std::string>() : ReplacedBy(documents);
    switch (options.format) {
    case FindingFormat::Text:
        PrintText(report, replaced);
        break;
    case FindingFormat::Json:
        PrintJson(documents, report, replaced);
        break;
    default:
        Print(FindingsText(options.format, report.findings, Lint::Codes()));
    }
    if (!isRead)
        return Failure;
    return report.findings.IsClean() ? Success : HasFindings;
}

} // namespace

Command MakeLintCommand(CLI::App& application)
{
    const auto options = std::make_shared<LintCommandOptions>();
    CLI::App& command = *application.add_subcommand("lint",
        "Checks syntax documents: reports what the loader would reject, ignore or misread, and how to fix\n"
        "it. All files together are one language. Keywords that they refer to and don't define are searched\n"
        "for in the built-in language.");
    command.add_option("FILE", options->paths, "Documents, or folders whose *.xml files are documents")
        ->type_name("PATH");
    command.add_flag("--builtin", options->isBuiltin,
        "Check the built-in documents; locations refer to the whole document");
    AddFindingFormatOption(command, options->format,
        {FindingFormat::Text, FindingFormat::Json, FindingFormat::Sarif, FindingFormat::Gcc,
            FindingFormat::GitHub});
    AddCountOption(command, "--max-findings",
        "Maximum number of findings printed; the others are only counted", options->maxFindings,
        Into(options->maxFindings));
    command.footer(
        "With an error the load fails; with a warning it continues silently.\n"
        "A document with short forms, such as <use>, is not checked: check the built-in documents with\n"
        "--builtin, or the expanded document that the build writes.\n\n"
        "Examples:\n"
        "  quor lint mine.xml documents/\n"
        "  quor lint extra.xml --format gcc");
    Command made{&command, {}};
    made.runAlone = [options] { return RunLint(*options); };
    return made;
}

} // namespace Veld::Quor::Tools
