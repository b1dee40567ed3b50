#include "quor/data/KeywordDataFactory.h"

#include "quor/data/internal/GenericKeywordDataFactory.h"
#include "quor/foundation/service/Log.h"
#include "quor/syntax/IKeywordSyntax.h"

namespace Veld::Quor::Core::Keywords {

KeywordDataFactory::KeywordDataFactory() = default;
KeywordDataFactory::~KeywordDataFactory() = default;

KeywordDataFactory& KeywordDataFactory::Instance()
{
    static KeywordDataFactory factory;
    return factory;
}

std::unique_ptr<IKeywordData> KeywordDataFactory::Construct(const IKeywordSyntax& syntax) const
{
    return ConstructSafely(syntax);
}

std::unique_ptr<IKeywordData> KeywordDataFactory::ConstructSafely(const IKeywordSyntax& syntax) const
{
    const IKeywordDataMD* const md = syntax.GetDataMD();
    if (!md)
        return nullptr;
    if (const Constructor ctor = RegisteredCtor(md))
        return ctor();
    return GenericKeywordDataFactory::Construct(md, &syntax);
}

void KeywordDataFactory::Register(const IKeywordDataMD* md, Constructor ctor)
{
    if (!md)
        return;
    if (!infos_.try_emplace(md, KeywordDataInfo{ctor}).second)
        Service::Log::SendLogMessage(
            "Ignore multiple attempts to register ctor for keyword data", Service::MessageSeverity::Warning);
}

void KeywordDataFactory::Remove(const IKeywordDataMD* md)
{
    infos_.erase(md);
}

const KeywordDataFactory::KeywordDataInfo* KeywordDataFactory::GetInfo(const IKeywordDataMD* md) const
{
    const auto at = infos_.find(md);
    return at == infos_.end() ? nullptr : &at->second;
}

KeywordDataFactory::Constructor KeywordDataFactory::RegisteredCtor(const IKeywordDataMD* md) const
{
    const KeywordDataInfo* const info = GetInfo(md);
    return info ? info->ctor : nullptr;
}

} // namespace Veld::Quor::Core::Keywords
