#include "quor/deck/Finding.h"

#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

/// What findings have in common that say the same of several places: all but the numbers in the message.
std::string KindOf(const Finding& finding)
{
    std::string kind = finding.location.file + '\n' + finding.code + '\n';
    const std::string& message = finding.message;
    const auto isDigit = [&](std::size_t i) { return i < message.size() && IsDigit(message[i]); };
    const auto begins = [&](std::size_t i) { return isDigit(i) || (message[i] == '-' && isDigit(i + 1)); };
    bool isQuoted = false;
    for (std::size_t i = 0; i < message.size(); ++i) {
        isQuoted = isQuoted != (message[i] == '\'');
        const bool isNumber = !isQuoted && begins(i) && (i == 0 || message[i - 1] == ' ');
        if (!isNumber)
            kind += message[i];
        else
            i = std::min(message.find_first_not_of("-.,e+0123456789", i), message.size()) - 1;
    }
    return kind;
}

} // namespace

const char* ToString(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return "";
}

std::string MoreText(const Finding& finding)
{
    if (finding.more == 0)
        return {};
    std::string count = std::to_string(finding.more);
    for (std::size_t end = count.size(); end > 3; end -= 3)
        count.insert(end - 3, ",");
    return fmt::format("and {} more like it", count);
}

std::string ToString(const Finding& finding)
{
    return fmt::format("{}:{}:{}: {}: {}{}{}{}{} [{}]", finding.location.file, finding.location.line,
        finding.location.column, ToString(finding.severity), finding.message, finding.more > 0 ? ", " : "",
        MoreText(finding), finding.hint.empty() ? "" : "; ", finding.hint, finding.code);
}

Findings::Findings(std::size_t limit)
    : limit_(limit)
{
}

Findings::~Findings() = default;
Findings::Findings(const Findings&) = default;
Findings::Findings(Findings&&) noexcept = default;
Findings& Findings::operator=(Findings&&) noexcept = default;

Findings& Findings::operator=(const Findings& other)
{
    return *this = Findings(other); // whole, or not at all
}

Findings Findings::Fold(std::size_t limit) const
{
    Findings folded = *this;
    folded.limit_ = limit;
    folded.kept_.clear();
    std::map<std::string, std::size_t> places; // in what is kept, by what is alike
    for (const Finding& finding : kept_) {
        const auto [place, isNew] = places.try_emplace(KindOf(finding), folded.kept_.size());
        if (!isNew && place->second < folded.kept_.size())
            folded.kept_[place->second].more += finding.more + 1;
        else if (folded.kept_.size() >= limit)
            folded.omitted_ += finding.more + 1;
        else
            folded.kept_.push_back(finding);
    }
    return folded;
}

std::size_t Findings::GetCount(Severity severity) const
{
    return counts_[static_cast<std::size_t>(severity)];
}

bool Findings::IsClean() const
{
    return GetCount(Severity::Error) + GetCount(Severity::Warning) == 0;
}

} // namespace Veld::Quor::Core::Decks
