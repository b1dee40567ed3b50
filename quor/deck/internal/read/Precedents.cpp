#include "quor/deck/internal/read/Precedents.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

void Precedents::Follow(const KeywordInstance& keyword, bool isSure)
{
    if (isSure && keyword.syntax->HasPrecedents())
        Check(keyword);
    seen_.insert(keyword.syntax->GetName());
}

void Precedents::Check(const KeywordInstance& keyword)
{
    std::string missing;
    for (const std::string& name : keyword.syntax->GetPrecedents(keyword.section)) {
        if (seen_.insert(name).second)
            missing += (missing.empty() ? "" : ", ") + name;
    }
    if (!missing.empty())
        reporter_.Report(keyword.name, Code::MissingPrecedent,
            fmt::format("{} requires {} before it", keyword.syntax->GetName(), missing));
}

} // namespace Veld::Quor::Core::Decks
