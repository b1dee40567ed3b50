#include "quor/deck/ReadOptions.h"

#include "quor/deck/internal/read/ReadSettings.h"
#include "quor/variables/VariablesString.h"

#include <fmt/format.h>

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
    : settings_(std::make_unique<ReadSettings>(*other.settings_))
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
    settings_->target = target;
    return *this;
}

ReadOptions& ReadOptions::SetSimulator(Keywords::SimulatorType::Enum simulator)
{
    settings_->target.simulator = simulator;
    return *this;
}

ReadOptions& ReadOptions::SetMode(Keywords::SimulatorModeType::Enum mode)
{
    settings_->target.mode = mode;
    return *this;
}

ReadOptions& ReadOptions::SetVariable(const std::string& name, const std::string& value)
{
    const std::string key = name.rfind('$', 0) == 0 ? name : '$' + name;
    if (Keywords::VariablesString(key).GetVariables() != std::vector<std::string>{key})
        throw std::invalid_argument(fmt::format("invalid variable name '{}'", name));
    settings_->variables.insert_or_assign(key, value);
    return *this;
}

ReadOptions& ReadOptions::SetMaxFindings(std::size_t count)
{
    settings_->maxFindings = count;
    return *this;
}

ReadOptions& ReadOptions::SetSource(std::shared_ptr<const DeckSource> source)
{
    settings_->source = std::move(source);
    return *this;
}

ReadOptions& ReadOptions::SetProgress(ReadProgress progress)
{
    settings_->progress = std::move(progress);
    return *this;
}

ReadOptions& ReadOptions::SetCancellation(ReadCancellation cancellation)
{
    settings_->isCancelled = std::move(cancellation);
    return *this;
}

ReadOptions& ReadOptions::SetKnownFinding(KnownFinding isKnown)
{
    settings_->isKnown = std::move(isKnown);
    return *this;
}

ReadOptions& ReadOptions::SetEditable(bool isEditable)
{
    settings_->keepsValueRanges = isEditable;
    return *this;
}

ReadOptions& ReadOptions::SetStrict(bool isStrict)
{
    settings_->isStrict = isStrict;
    return *this;
}

const Target& ReadOptions::GetTarget() const
{
    return settings_->target;
}

const std::map<std::string, std::string>& ReadOptions::GetVariables() const
{
    return settings_->variables;
}

std::size_t ReadOptions::GetMaxFindings() const
{
    return settings_->maxFindings;
}

const std::shared_ptr<const DeckSource>& ReadOptions::GetSource() const
{
    return settings_->source;
}

bool ReadOptions::IsEditable() const
{
    return settings_->keepsValueRanges;
}

bool ReadOptions::IsStrict() const
{
    return settings_->isStrict;
}

} // namespace Veld::Quor::Core::Decks
