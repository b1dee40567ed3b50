#pragma once

#include "quor/data/KeywordListData.h"
#include "quor/metadata/IKeywordListMD.h"

namespace Veld::Quor::Core::Keywords {

template <class T>
class GenericKeywordListDataImpl final : public KeywordListData<T> {
public:
    GenericKeywordListDataImpl(const IKeywordListMD* md, const IKeywordSyntax* syntax)
        : md_(md)
        , syntax_(syntax)
    {
        this->SetDefaultable(md->IsItemDefaultable());
    }
    GenericKeywordListDataImpl(const GenericKeywordListDataImpl&) = default;
    GenericKeywordListDataImpl& operator=(const GenericKeywordListDataImpl&) = delete;

    IKeywordData* Clone() const override { return new GenericKeywordListDataImpl(*this); }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return syntax_; }

private:
    const IKeywordListMD* md_; // the table's, as the syntax
    const IKeywordSyntax* syntax_;
};

} // namespace Veld::Quor::Core::Keywords
