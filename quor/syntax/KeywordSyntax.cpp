#include "quor/syntax/internal/KeywordSyntax.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/KeywordListMDImpl.h"
#include "quor/metadata/KeywordMapMDImpl.h"
#include "quor/metadata/KeywordRawMDImpl.h"
#include "quor/metadata/KeywordRecordMDImpl.h"
#include "quor/metadata/internal/ContainerReader.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <algorithm>
#include <cassert>
#include <mutex>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

KeywordDeckRole::Enum DeckRoleOf(const std::string& name)
{
    static constexpr struct {
        const char* name;
        KeywordDeckRole::Enum role;
    } roles[] = {
        {"INCLUDE", KeywordDeckRole::Include},
        {"END", KeywordDeckRole::End},
        {"ENDINC", KeywordDeckRole::EndInclude},
        {"SKIP", KeywordDeckRole::Skip},
        {"ENDSKIP", KeywordDeckRole::EndSkip},
    };
    for (const auto& row : roles) {
        if (name == row.name)
            return row.role;
    }
    bool isSection = false;
    SectionType::FromString(name, &isSection);
    return isSection ? KeywordDeckRole::Section : KeywordDeckRole::Ordinary;
}

/// Sets a flag for as long as it lives.
class Flagged {
public:
    explicit Flagged(bool& flag)
        : flag_(flag)
    {
        flag_ = true;
    }
    ~Flagged() { flag_ = false; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

private:
    bool& flag_;
};

} // namespace

KeywordSyntax::KeywordSyntax(const std::string& name, const TreeElement& element)
    : name_(name)
    , deckRole_(DeckRoleOf(name))
{
    try {
        ReadXML(element);
    } catch (const KeywordException& error) {
        throw KeywordException(name_ + ": " + error.what());
    }
}

void KeywordSyntax::ReadXML(const TreeElement& element)
{
    ValidityElements validity;
    std::vector<TreeElement> aliases;
    bool hasData = false;
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Description)) {
            description_ = child.GetText();
        } else if (child.Is(Tag::Documentation)) {
            documentation_ = child.GetText();
        } else if (child.Is(Tag::SummaryMnemonic)) {
            summaryMnemonic_ = std::make_unique<SummaryMnemonicInfo>(child);
        } else if (child.Is(Tag::Cell)) {
            cellProperty_ = std::make_unique<CellPropertyInfo>(name_, child);
        } else if (validity.Note(child)) {
            continue;
        } else if (child.Is(Tag::Data)) {
            // Wanted: validity elements after the data element come too late for the keyword, though not for
            // its aliases. The metadata needs the valid simulators when it is read.
            validity_.Set(validity.ReadFacts());
            CreateDataMD(child);
            hasData = true;
        } else if (child.Is(Tag::Aliases)) {
            for (const TreeElement alias : ChildElements(child)) {
                if (alias.Is(Tag::Alias))
                    aliases.push_back(alias);
            }
        } else if (child.Is(Tag::Precedents)) {
            ReadPrecedents(child);
        } else if (child.Is(Tag::Scope)) {
            scope_ = std::make_unique<ScopeInfo>(child);
        } else if (child.Is(Tag::IsHidden)) {
            isHidden_ = true;
        } else if (child.Is(Tag::IsGeneric)) {
            isGeneric_ = true;
        }
    }
    if (!hasData)
        validity_.Set(validity.ReadFacts());
    ReadAliases(aliases, validity);
}

void KeywordSyntax::CreateDataMD(const TreeElement& element)
{
    if (dataMD_ || unread_)
        return; // of two data elements the first one counts
    for (const TreeElement item : Descendants(element, Tag::Item)) {
        if (IsFlagged(item, Tag::Identifier))
            ++identifierCount_;
    }
    for (const TreeElement child : ChildElements(element)) {
        if (child.GetTree().LastsAsTheProcess())
            unread_ = child;
        else
            dataMD_ = ReadDataMD(child);
        return; // whatever follows is not looked at
    }
}

std::unique_ptr<IKeywordDataMDInternal> KeywordSyntax::ReadDataMD(const TreeElement& typeElement) const
{
    if (typeElement.Is(Tag::Raw)) {
        auto raw = std::make_unique<KeywordRawMDImpl>();
        raw->ReadXML(typeElement);
        return raw;
    }
    const auto read = [&](auto md) -> std::unique_ptr<IKeywordDataMDInternal> {
        md->ReadXML(typeElement, GetValidSimulators());
        return md;
    };
    if (typeElement.Is(Tag::Record))
        return read(std::make_unique<KeywordRecordMDImpl>(false));
    if (typeElement.Is(Tag::Map))
        return read(std::make_unique<KeywordMapMDImpl>());
    if (typeElement.Is(Tag::List))
        return read(std::make_unique<KeywordListMDImpl>());
    FailUnhandled("KeywordSyntax::CreateDataMD: unhandled keyword data type: ", typeElement);
}

void KeywordSyntax::ReadPrecedents(const TreeElement& element)
{
    precedents_.clear();
    for (const TreeElement precedent : Descendants(element, Tag::Precedent))
        precedents_.insert(NameOf(precedent));
}

void KeywordSyntax::ReadAliases(const std::vector<TreeElement>& elements, const ValidityElements& ofKeyword)
{
    if (elements.empty())
        return;
    aliases_ = std::make_unique<Aliases>();
    for (const TreeElement& element : elements)
        ReadAlias(element, ofKeyword);
}

void KeywordSyntax::ReadAlias(const TreeElement& element, const ValidityElements& ofKeyword)
{
    bool hidden = false;
    ValidityElements own;
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::IsHiddenAlias))
            hidden = true;
        else
            own.Note(child);
    }
    std::unique_ptr<SyntaxValidity> validity;
    if (!own.IsEmpty()) {
        validity = std::make_unique<SyntaxValidity>();
        validity->Set(own.Or(ofKeyword).ReadFacts());
    }
    aliases_->names.push_back(NameOf(element));
    aliases_->hidden.push_back(hidden);
    aliases_->validities.push_back(std::move(validity));
}

const std::vector<std::string>& KeywordSyntax::GetAliases() const
{
    static const auto& none = *new std::vector<std::string>;
    return aliases_ ? aliases_->names : none;
}

std::optional<std::size_t> KeywordSyntax::FindAlias(const std::string& spelling) const
{
    if (!aliases_ || spelling == name_)
        return std::nullopt;
    const auto& names = aliases_->names;
    const auto at = std::find(names.begin(), names.end(), spelling);
    if (at == names.end())
        return std::nullopt;
    return static_cast<std::size_t>(at - names.begin());
}

bool KeywordSyntax::IsHidden(const std::string& alias) const
{
    // Wanted: without aliases every text counts as the keyword's own name.
    if (!aliases_ || alias == name_)
        return isHidden_;
    const auto index = FindAlias(alias);
    return index && aliases_->hidden[*index];
}

const SyntaxValidity& KeywordSyntax::ValidityOf(const std::string& spelling) const
{
    const auto index = FindAlias(spelling);
    const SyntaxValidity* const own = index ? aliases_->validities[*index].get() : nullptr;
    return own ? *own : validity_;
}

std::string KeywordSyntax::GetDocumentationName() const
{
    if (documentation_)
        return *documentation_;
    if (GetValidSections() == std::vector<SectionType::Enum>{SectionType::SUMMARY})
        return SectionType::ToString(SectionType::SUMMARY);
    return name_;
}

std::vector<SimulatorType::Enum> KeywordSyntax::GetValidSimulators(const std::string& alias) const
{
    return ValidityOf(alias).GetValidSimulators();
}

std::vector<SimulatorType::Enum> KeywordSyntax::GetValidSimulators() const
{
    return validity_.GetValidSimulators();
}

bool KeywordSyntax::IsValidSimulator(SimulatorType::Enum simulator, const std::string& alias) const
{
    return ValidityOf(alias).IsValidSimulator(simulator);
}

bool KeywordSyntax::IsValidSimulator(SimulatorType::Enum simulator) const
{
    return validity_.IsValidSimulator(simulator);
}

bool KeywordSyntax::IsValid(
    SectionType::Enum section, SimulatorType::Enum simulator, const std::string& alias) const
{
    return ValidityOf(alias).IsValid(section, simulator);
}

bool KeywordSyntax::IsValid(SectionType::Enum section, SimulatorType::Enum simulator) const
{
    return validity_.IsValid(section, simulator);
}

const std::vector<const IKeywordSyntax*>& KeywordSyntax::GetScopeKeywords() const
{
    static const auto& none = *new std::vector<const IKeywordSyntax*>;
    return scope_ ? scope_->GetScopeKeywords() : none;
}

const IKeywordSyntax* KeywordSyntax::GetScopeSyntax() const
{
    assert(scope_ && "GetScopeSyntax: the keyword has no scope");
    return scope_->GetScopeSyntax();
}

const std::set<std::string>& KeywordSyntax::GetPrecedents(SectionType::Enum section) const
{
    if (!arePrecedentsExpanded_.load(std::memory_order_acquire))
        ExpandPrecedents(section);
    return allPrecedents_;
}

void KeywordSyntax::ExpandPrecedents(SectionType::Enum section) const
{
    static auto& mutex = *new std::recursive_mutex; // one for all: each asks its precedents for theirs
    const std::lock_guard lock(mutex);
    if (arePrecedentsExpanding_ || arePrecedentsExpanded_.load(std::memory_order_relaxed))
        return; // in a cycle, or by another thread
    const Flagged expanding(arePrecedentsExpanding_);
    allPrecedents_ = precedents_;
    for (const std::string& name : precedents_) {
        const IKeywordSyntax* const precedent =
            KeywordSyntaxTable::Instance(false, true).Lookup(name, section, true);
        if (precedent) { // else a mistake of the document
            const std::set<std::string>& theirs = precedent->GetPrecedents(section);
            allPrecedents_.insert(theirs.begin(), theirs.end());
        }
    }
    arePrecedentsExpanded_.store(true, std::memory_order_release);
}

} // namespace Veld::Quor::Core::Keywords
