#pragma once

#include "quor/data/KeywordRawData.h"
#include "quor/metadata/IKeywordRawMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class GenericKeywordRawDataImpl final : public KeywordRawData {
public:
    GenericKeywordRawDataImpl(const IKeywordRawMD* md, const IKeywordSyntax* syntax)
        : md_(md)
        , syntax_(syntax)
    {
    }
    GenericKeywordRawDataImpl(const GenericKeywordRawDataImpl&) = default;
    GenericKeywordRawDataImpl& operator=(const GenericKeywordRawDataImpl&) = delete;

    IKeywordData* Clone() const override { return new GenericKeywordRawDataImpl(*this); }
    bool ReservedQuery() const override { return false; }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

    const std::string& GetData() const override { return text_; }
    void SetData(const std::string& text) override { text_ = text; }

private:
    const IKeywordRawMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
    std::string text_;
};

} // namespace Veld::Quor::Core::Keywords
