#include "quor/syntax/KeywordSyntaxTable.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/xml/Initialise.h"
#include "quor/foundation/service/xml/internal/XMLParser.h"
#include "quor/syntax/KeywordSyntaxLookupTable.h"
#include "quor/syntax/internal/KeywordSyntax.h"
#include "quor/syntax/internal/LoadFailure.h"
#include "quor/syntax/internal/NameIndex.h"
#include "quor/syntax/internal/SyntaxLoader.h"
#include "quor/syntax/internal/TableKeyword.h"
#include "quor/syntax/internal/TrustedSyntaxLoader.h"

#include <cstddef>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

unsigned long tableNumber = 1;

std::vector<std::string>& OwnDocuments()
{
    static auto& files = *new std::vector<std::string>; // never freed: a host may ask at exit
    return files;
}

} // namespace

unsigned long TableNumber()
{
    return tableNumber;
}

class KeywordSyntaxTableImpl final : public IKeywordSyntaxTable {
public:
    /// An empty table.
    KeywordSyntaxTableImpl() = default;

    /// Reads the documents of the host, then those of the language. Those of files and hosts are freed before
    /// this returns, and nothing keeps a pointer into them.
    void Load();

    const IKeywordSyntax* Lookup(
        const std::string& name, SectionType::Enum section, bool acceptSingle) const override;
    const IKeywordSyntax* Lookup(const std::string& name, bool wildcards) const override;
    std::vector<const IKeywordSyntax*> LookupAll(const std::string& name) override;

    KeywordSyntaxLookupTable& GetLookupTable() { return lookupTable_; }

private:
    /// Names, ids and aliases that were read.
    using Seen = std::unordered_set<std::string>;

    std::size_t ReadDocument(DocumentTree tree, Seen& seen, bool record);
    void ReadKeyword(const TreeElement& element, Seen& seen, bool record);

    void Enter(const std::string& name, const std::shared_ptr<const IKeywordSyntax>& syntax);
    /// Null if there are none.
    const KeywordSyntaxLookupTable::Syntaxes* FindAll(const std::string& name) const;

    std::vector<std::unique_ptr<const DocumentTree>> documents_; // of which keywords read more when asked
    KeywordSyntaxLookupTable lookupTable_;
    NameIndex index_; // into the table
};

void KeywordSyntaxTableImpl::Load()
{
    if (XMLParser::IsInProcess()) // a host that uses it too finds it started after this
        Service::XML::Initialise::Init();
    Seen seen;
    const std::vector<std::string>& own = KeywordSyntaxTable::GetOwnDocuments();
    for (auto file = own.rbegin(); file != own.rend(); ++file) {
        if (ReadDocument(SyntaxLoader(*file).Load(), seen, true) == 0)
            FailLoad("KeywordSyntaxTable: no keyword in the document " + *file);
    }
    // Before the others, so that trusted syntaxes are before others of their name.
    ReadDocument(TrustedSyntaxLoader().Load(), seen, true);
    ReadDocument(SyntaxLoader().Load(), seen, true);
}

/// Returns how many keywords it has.
std::size_t KeywordSyntaxTableImpl::ReadDocument(DocumentTree tree, Seen& seen, bool record)
{
    if (tree.nodes.empty())
        return 0;
    std::size_t count = 0;
    documents_.push_back(std::make_unique<const DocumentTree>(std::move(tree)));
    for (const TreeElement element : Descendants(RootOf(*documents_.back()), Tag::Keyword)) {
        ReadKeyword(element, seen, record);
        ++count;
    }
    if (!documents_.back()->LastsAsTheProcess())
        documents_.pop_back();
    return count;
}

/// With `record` the keyword is entered, and what it is known by goes into `seen`. Without, it is entered
/// only if it isn't known yet.
void KeywordSyntaxTableImpl::ReadKeyword(const TreeElement& element, Seen& seen, bool record)
{
    const std::string name = element.Get(Tag::Name);
    // One name may be defined several times, with different ids. The name decides where the syntaxes are.
    const std::string key = element.Has(Tag::ID) ? element.Get(Tag::ID) : name;
    if (!record && seen.count(key) != 0)
        return;
    const auto syntax = std::make_shared<const Keywords::KeywordSyntax>(name, element);
    Enter(name, syntax);
    if (record)
        seen.insert(key);
    for (const std::string& alias : syntax->GetAliases()) {
        Enter(alias, syntax);
        if (record)
            seen.insert(alias);
    }
}

void KeywordSyntaxTableImpl::Enter(
    const std::string& name, const std::shared_ptr<const IKeywordSyntax>& syntax)
{
    lookupTable_.AddSyntax(name, syntax);
    index_.Add(name, lookupTable_.FindSyntaxes(name, false));
}

const KeywordSyntaxLookupTable::Syntaxes* KeywordSyntaxTableImpl::FindAll(const std::string& name) const
{
    const auto known = index_.Find<const KeywordSyntaxLookupTable::Syntaxes*>(name, true);
    return known ? *known : lookupTable_.FindSyntaxes(name, true);
}

const IKeywordSyntax* KeywordSyntaxTableImpl::Lookup(
    const std::string& name, SectionType::Enum section, bool acceptSingle) const
{
    const auto* const syntaxes = FindAll(name);
    if (!syntaxes)
        return nullptr;
    if (acceptSingle && syntaxes->size() == 1)
        return syntaxes->front().get();
    for (const auto& syntax : *syntaxes) {
        if (syntax->IsValid(section, SimulatorType::Any))
            return syntax.get();
    }
    return nullptr;
}

const IKeywordSyntax* KeywordSyntaxTableImpl::Lookup(const std::string& name, bool wildcards) const
{
    if (const auto known = index_.Find<const IKeywordSyntax*>(name, wildcards))
        return *known;
    const auto* const syntaxes = lookupTable_.FindSyntaxes(name, wildcards);
    return syntaxes ? NameIndex::ChosenOf(*syntaxes) : nullptr;
}

std::vector<const IKeywordSyntax*> KeywordSyntaxTableImpl::LookupAll(const std::string& name)
{
    std::vector<const IKeywordSyntax*> all;
    if (const auto* const syntaxes = FindAll(name)) {
        all.reserve(syntaxes->size());
        for (const auto& syntax : *syntaxes)
            all.push_back(syntax.get());
    }
    return all;
}

IKeywordSyntaxTable::~IKeywordSyntaxTable() = default;

KeywordSyntaxTable::KeywordSyntaxTable(std::unique_ptr<KeywordSyntaxTableImpl> impl)
    : impl_(std::move(impl))
{
}

KeywordSyntaxTable::~KeywordSyntaxTable() = default;

KeywordSyntaxTable& KeywordSyntaxTable::Instance(bool clear, bool permanently)
{
    static std::unique_ptr<KeywordSyntaxTable> table;
    static bool cleared = false;
    if (clear) {
        table.reset();
        cleared = cleared || permanently;
        if (!cleared)
            ++tableNumber;
        return Unusable();
    }
    if (cleared)
        throw std::runtime_error("Attempt to re-create KeywordSyntaxTable when already cleared");
    if (!table) {
        auto impl = std::make_unique<KeywordSyntaxTableImpl>();
        WithStandardErrors([&] { impl->Load(); });
        table.reset(new KeywordSyntaxTable(std::move(impl)));
    }
    return *table;
}

void KeywordSyntaxTable::SetOwnDocuments(std::vector<std::string> files)
{
    OwnDocuments() = std::move(files);
}

const std::vector<std::string>& KeywordSyntaxTable::GetOwnDocuments()
{
    return OwnDocuments();
}

/// What a caller that clears is given: a table without keywords, so that a use by mistake finds nothing.
KeywordSyntaxTable& KeywordSyntaxTable::Unusable()
{
    static auto& unusable = *new KeywordSyntaxTable(std::make_unique<KeywordSyntaxTableImpl>());
    return unusable;
}

const IKeywordSyntax* KeywordSyntaxTable::Lookup(
    const std::string& name, SectionType::Enum section, bool acceptSingle) const
{
    return impl_->Lookup(name, section, acceptSingle);
}

const IKeywordSyntax* KeywordSyntaxTable::Lookup(const std::string& name, bool wildcards) const
{
    return impl_->Lookup(name, wildcards);
}

std::vector<const IKeywordSyntax*> KeywordSyntaxTable::LookupAll(const std::string& name)
{
    return impl_->LookupAll(name);
}

KeywordSyntaxEnumerator KeywordSyntaxTable::KeywordsEnumerator()
{
    return KeywordSyntaxEnumerator(impl_->GetLookupTable());
}

} // namespace Veld::Quor::Core::Keywords
