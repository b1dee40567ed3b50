#pragma once

#include "quor/data/KeywordMapData.h"
#include "quor/data/KeywordMapDataHelper.h"
#include "quor/metadata/IKeywordMapMD.h"

namespace Veld::Quor::Core::Keywords {

class GenericKeywordMapDataImpl final : public KeywordMapData {
public:
    GenericKeywordMapDataImpl(const IKeywordMapMD* md, const IKeywordSyntax* syntax);
    GenericKeywordMapDataImpl(const GenericKeywordMapDataImpl&) = default;
    GenericKeywordMapDataImpl& operator=(const GenericKeywordMapDataImpl&) = delete;

    IKeywordData* Clone() const override { return new GenericKeywordMapDataImpl(*this); }
    bool ReservedQuery() const override { return false; }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

    int GetSize() const override { return static_cast<int>(pairs_.size()); }
    bool GetValue(const std::string& key, Service::Optional<int>& value) const override;
    Service::Optional<int> GetValue(int i) const override { return At(i).GetValue(); }
    bool SetValue(const std::string& key, int value) override;
    void SetValue(int i, int value) override;
    bool SetValueToDefault(const std::string& key) override;
    void SetValueToDefault(int i) override;
    const IKeywordAssignmentMD* GetItemMD(int i) const override { return At(i).GetMD(); }

private:
    const KeywordMapDataHelper::AssignmentValueMDPair& At(int i) const
    {
        return pairs_[static_cast<std::size_t>(i)];
    }

    const IKeywordMapMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    // The metadata's named assignments, then what wildcards gave birth to. A copy shares the metadata of the
    // latter.
    KeywordMapDataHelper::Pairs pairs_;
};

} // namespace Veld::Quor::Core::Keywords
