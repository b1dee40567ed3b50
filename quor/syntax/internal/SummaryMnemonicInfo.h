#pragma once

#include "quor/metadata/TreeForward.h"
#include "quor/syntax/ISummaryMnemonicInfo.h"

namespace Veld::Quor::Core::Keywords {

class SummaryMnemonicInfo final : public ISummaryMnemonicInfo {
public:
    /// Throws `KeywordException` for a category or a value that is not one of the tables'.
    explicit SummaryMnemonicInfo(const Service::XML::Internal::TreeElement& element);
    ~SummaryMnemonicInfo() override;

    Service::Optional<SummaryFunction::Enum> GetFunction() const override { return function_; }
    Service::Optional<SummaryEntity::Enum> GetEntity() const override { return entity_; }
    Service::Optional<SummaryOption::Enum> GetOption() const override { return option_; }
    Service::Optional<SummaryPhase::Enum> GetPhase() const override { return phase_; }
    Service::Optional<SummaryFlow::Enum> GetFlow() const override { return flow_; }

private:
    void ReadCategory(const Service::XML::Internal::TreeElement& element);

    Service::Optional<SummaryFunction::Enum> function_;
    Service::Optional<SummaryEntity::Enum> entity_;
    Service::Optional<SummaryOption::Enum> option_;
    Service::Optional<SummaryPhase::Enum> phase_;
    Service::Optional<SummaryFlow::Enum> flow_;
};

} // namespace Veld::Quor::Core::Keywords
