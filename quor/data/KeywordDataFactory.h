#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"

#include <map>
#include <memory>

namespace Veld::Quor::Core::Keywords {

/// Makes the data of a keyword. A host may register its own maker for the root of a keyword's metadata;
/// it must remove it before the table goes. Registering must not run beside making.
class VELD_QUOR_EXPORT KeywordDataFactory {
public:
    /// Returns new data for the node it was registered for; what it throws reaches the caller of the factory.
    using Constructor = std::unique_ptr<IKeywordData> (*)();

    /// The one factory of the process.
    static KeywordDataFactory& Instance();
    ~KeywordDataFactory();
    KeywordDataFactory(const KeywordDataFactory&) = delete;
    KeywordDataFactory& operator=(const KeywordDataFactory&) = delete;

    /// A new, empty tree: records with all their items and no value, empty lists, a pair for each named
    /// assignment of a map. Null for a keyword that carries nothing. Throws `Service::Exception` for metadata
    /// that can't have data.
    /// @{
    std::unique_ptr<IKeywordData> Construct(const IKeywordSyntax& syntax) const;
    std::unique_ptr<IKeywordData> ConstructSafely(const IKeywordSyntax& syntax) const;
    /// @}

    /// The first maker of a node stays: a second one is logged and dropped. A null maker counts as none, but
    /// holds the place. Does nothing for a null node.
    void Register(const IKeywordDataMD* md, Constructor ctor);
    /// Forgets the maker of the node, if there is one; data that it made stay valid.
    void Remove(const IKeywordDataMD* md);

private:
    struct KeywordDataInfo {
        Constructor ctor;
    };

    KeywordDataFactory();
    const KeywordDataInfo* GetInfo(const IKeywordDataMD* md) const;
    Constructor RegisteredCtor(const IKeywordDataMD* md) const;

    std::map<const IKeywordDataMD*, KeywordDataInfo> infos_;
};

} // namespace Veld::Quor::Core::Keywords
