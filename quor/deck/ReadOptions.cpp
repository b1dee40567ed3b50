#include "quor/deck/ReadOptions.h"

#include "quor/deck/internal/read/contents/ReadSettings.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/variables/VariablesString.h"

#include <fmt/format.h>

#include <stdexcept>
#include <utility>

namespace Veld::Quor::Core::Decks {

ReadCancelled::ReadCancelled()
    : Service::Exception("reading the deck was cancelled")
{
}

ReadCancelled::~ReadCancelled() = default;

ReadOptions::ReadOptions()
    : settings_(std::make_unique<ReadSettings>())
{
}

ReadOptions::~ReadOptions() = default;

ReadOptions::ReadOptions(const ReadOptions& other)
    : settings_(std::make_unique<ReadSettings>(other.GetSettings()))
{
}

ReadOptions& ReadOptions::operator=(const ReadOptions& other)
{
    *this = ReadOptions(other);
    return *this;
}

ReadOptions::ReadOptions(ReadOptions&&) noexcept = default;
ReadOptions& ReadOptions::operator=(ReadOptions&&) noexcept = default;

ReadOptions& ReadOptions::SetTarget(const Target& target)
{
    GetSettings().target = target;
    return *this;
}

ReadOptions& ReadOptions::SetSimulator(Keywords::SimulatorType::Enum simulator)
{
    GetSettings().target.simulator = simulator;
    return *this;
}

ReadOptions& ReadOptions::SetMode(Keywords::SimulatorModeType::Enum mode)
{
    GetSettings().target.mode = mode;
    return *this;
}

ReadOptions& ReadOptions::SetVariable(const std::string& name, const std::string& value)
{
    const std::string key = name.rfind('$', 0) == 0 ? name : '$' + name;
    if (Keywords::VariablesString(key).GetVariables() != std::vector<std::string>{key})
        throw std::invalid_argument(fmt::format("invalid variable name '{}'", Printable(name)));
    GetSettings().variables.insert_or_assign(key, value);
    return *this;
}

ReadOptions& ReadOptions::SetMaxFindings(std::size_t count)
{
    GetSettings().maxFindings = count;
    return *this;
}

ReadOptions& ReadOptions::SetMaxRepeatedValues(std::size_t count)
{
    GetSettings().maxRepeatedValues = count;
    return *this;
}

ReadOptions& ReadOptions::SetSource(std::shared_ptr<const DeckSource> source)
{
    GetSettings().source = std::move(source);
    return *this;
}

ReadOptions& ReadOptions::SetProgress(ReadProgress progress)
{
    GetSettings().progress = std::move(progress);
    return *this;
}

ReadOptions& ReadOptions::SetCancellation(ReadCancellation cancellation)
{
    GetSettings().isCancelled = std::move(cancellation);
    return *this;
}

ReadOptions& ReadOptions::SetKnownFinding(KnownFinding isKnown)
{
    GetSettings().isKnown = std::move(isKnown);
    return *this;
}

ReadOptions& ReadOptions::SetEditable(bool isEditable)
{
    GetSettings().keepsValueRanges = isEditable;
    return *this;
}

ReadOptions& ReadOptions::SetStrict(bool isStrict)
{
    GetSettings().isStrict = isStrict;
    return *this;
}

ReadOptions& ReadOptions::SetSeverity(const std::string& code, std::optional<Severity> severity)
{
    GetSettings().codes.SetSeverity(code, severity);
    return *this;
}

ReadOptions& ReadOptions::SelectCode(const std::string& code)
{
    GetSettings().codes.Select(code);
    return *this;
}

ReadOptions& ReadOptions::SetPathAlias(const std::string& name, const std::string& path)
{
    const std::string alias = name.rfind('$', 0) == 0 ? name.substr(1) : name;
    if (alias.empty() || alias.find_first_of("$/\\") != std::string::npos)
        throw std::invalid_argument(fmt::format("invalid path alias '{}'", Printable(name)));
    if (path.find('$') != std::string::npos)
        throw std::invalid_argument(fmt::format("the path '{}' has a '$'", Printable(path)));
    GetSettings().aliases.setAlias(alias, path);
    return *this;
}

ReadOptions& ReadOptions::SetConfined(bool isConfined)
{
    GetSettings().isConfined = isConfined;
    return *this;
}

ReadOptions& ReadOptions::SetOutsideTextShown(bool isShown)
{
    GetSettings().isOutsideTextShown = isShown;
    return *this;
}

ReadOptions& ReadOptions::SetSection(Keywords::SectionType::Enum section)
{
    GetSettings().section = section;
    return *this;
}

ReadOptions& ReadOptions::SetReportedFile(ReportedFile isReported)
{
    GetSettings().isReported = std::move(isReported);
    return *this;
}

const Target& ReadOptions::GetTarget() const
{
    return GetSettings().target;
}

const std::map<std::string, std::string>& ReadOptions::GetVariables() const
{
    return GetSettings().variables;
}

std::size_t ReadOptions::GetMaxFindings() const
{
    return GetSettings().maxFindings;
}

std::size_t ReadOptions::GetMaxRepeatedValues() const
{
    return GetSettings().maxRepeatedValues;
}

const std::shared_ptr<const DeckSource>& ReadOptions::GetSource() const
{
    return GetSettings().source;
}

bool ReadOptions::IsEditable() const
{
    return GetSettings().keepsValueRanges;
}

bool ReadOptions::IsStrict() const
{
    return GetSettings().isStrict;
}

bool ReadOptions::IsConfined() const
{
    return GetSettings().isConfined;
}

bool ReadOptions::IsOutsideTextShown() const
{
    return GetSettings().isOutsideTextShown;
}

Keywords::SectionType::Enum ReadOptions::GetSection() const
{
    return GetSettings().section;
}

ReadSettings& ReadOptions::GetSettings() const
{
    if (!settings_)
        throw std::logic_error("the options were moved from");
    return *settings_;
}

} // namespace Veld::Quor::Core::Decks
