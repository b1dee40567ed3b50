#include "tools/quor/language-server/Explanations.h"

#include "quor/deck/FindingCodes.h"
#include "tools/quor/language-server/Protocol.h"

#include <fmt/format.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace Veld::Quor::Tools::LanguageServer {

namespace fs = std::filesystem;

namespace {

/// Nothing without an example.
std::string ExampleBlock(const char* label, const char* text)
{
    const std::string_view example = text;
    return example.empty()
        ? ""
        : fmt::format("\n{}:\n\n```\n{}{}```\n", label, example, example.ends_with('\n') ? "" : "\n");
}

} // namespace

Explanations::~Explanations()
{
    std::error_code ignored;
    if (!folder_.empty())
        fs::remove_all(folder_, ignored);
}

std::string Explanations::UriOf(const std::string& code)
{
    if (folder_.empty() && !isUnwritable_) {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "quor-codes-XXXXXX").string();
        isUnwritable_ = error || !::mkdtemp(name.data());
        folder_ = isUnwritable_ ? "" : name;
    }
    if (isUnwritable_)
        return {};
    const auto [uri, isNew] = uris_.try_emplace(code);
    if (isNew) {
        const std::string path = fmt::format("{}/{}.md", folder_, code);
        if (std::ofstream(path) << TextOf(code) << std::flush)
            uri->second = UriOfPath(path);
    }
    return uri->second;
}

std::string Explanations::TextOf(const std::string& code)
{
    const Core::Decks::CodeInfo* const info = Core::Decks::FindInfo(code);
    if (!info)
        return {};
    return fmt::format("# {}\n\n{}: {}\n\nTo fix: {}\n{}{}", info->name, ToString(info->severity),
        info->meaning, info->remedy, ExampleBlock("Wrong", info->wrong), ExampleBlock("Right", info->right));
}

} // namespace Veld::Quor::Tools::LanguageServer
