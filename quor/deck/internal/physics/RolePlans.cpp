#include "quor/deck/internal/physics/RolePlans.h"

#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

bool HasWord(const std::vector<std::string>& words, const std::string& word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The record below lists; null if there is none.
const IKeywordRecordMD* FindRecord(const IKeywordDataMD* md)
{
    while (KeywordUtils::GetMDType(md) == MDType::List)
        md = static_cast<const IKeywordListMD&>(*md).GetItemMD();
    return KeywordUtils::GetMDType(md) == MDType::Record ? static_cast<const IKeywordRecordMD*>(md) : nullptr;
}

/// Whether data of that type can have the role. A document may give any keyword or item any role.
bool Fits(Role::Enum role, const IKeywordDataMD* md)
{
    const MDType::Enum type = KeywordUtils::GetMDType(md);
    switch (role) {
    case Role::CornerDepths:
    case Role::CellTops:
    case Role::Fractions:
        return IsListOf(md, MDType::Real);
    case Role::ActiveCells:
        return IsListOf(md, MDType::Integer);
    case Role::NameOfWell:
    case Role::NameOfArray:
    case Role::ArrayThatIsCopied:
    case Role::WellThatBegins:
    case Role::GroupOfWell:
    case Role::WellThatIsCompleted:
    case Role::WellThatIsControlled:
    case Role::WellThatOpensOrShuts:
    case Role::GroupInTheTree:
    case Role::GroupAbove:
        return type == MDType::String;
    case Role::FamilyOfRegion:
    case Role::StatusOfWell:
    case Role::ControlOfWell:
    case Role::InjectedFluid:
        return type == MDType::Choice;
    case Role::HeadI:
    case Role::HeadJ:
    case Role::ConnectionI:
    case Role::ConnectionJ:
    case Role::ConnectionFirstK:
    case Role::ConnectionLastK:
    case Role::TableOfDissolvedGas:
    case Role::CellOfStatus:
    case Role::FirstI:
    case Role::LastI:
    case Role::FirstJ:
    case Role::LastJ:
    case Role::FirstK:
    case Role::LastK:
    case Role::Region:
    case Role::CompletionI:
    case Role::CompletionJ:
    case Role::CompletionFirstK:
    case Role::CompletionLastK:
        return type == MDType::Integer;
    case Role::DepthOfWell:
    case Role::LimitOfProduction:
    case Role::LimitOfInjection:
    case Role::ValueForArray:
        return type == MDType::Real;
    default: // a number of a table, or a keyword that says something by being there
        return true;
    }
}

} // namespace

int RecordRoles::Find(Role::Enum role) const
{
    for (const Item& entry : items) {
        if (entry.role == role)
            return entry.item;
    }
    return -1;
}

const RecordRoles* RecordRoles::FindInner(int itemOfRecord) const
{
    for (const RecordRoles& below : inner) {
        if (below.item == itemOfRecord)
            return &below;
    }
    return nullptr;
}

const KeywordRoles* RolePlans::Find(const IKeywordSyntax& syntax)
{
    const auto [plan, isNew] = plans_.try_emplace(&syntax);
    if (isNew) {
        KeywordRoles roles = Make(syntax);
        if (!roles.IsEmpty())
            plan->second = std::make_unique<const KeywordRoles>(std::move(roles));
    }
    return plan->second.get();
}

KeywordRoles RolePlans::Make(const IKeywordSyntax& syntax) const
{
    KeywordRoles plan;
    for (const RoleRule& rule : rules_.roles) {
        if (IsAsked(rule.role) && rule.item.empty() && HasWord(rule.keywords, syntax.GetName())
            && Fits(rule.role, syntax.GetDataMD()))
            plan.roles.push_back(rule.role);
    }
    for (const MagnitudeRule& rule : rules_.magnitudes) {
        if (rule.items.empty() && HasWord(rule.keywords, syntax.GetName()))
            plan.magnitude = &rule;
    }
    if (const IKeywordRecordMD* const record = FindRecord(syntax.GetDataMD()))
        plan.record = MakeRecord(syntax.GetName(), *record);
    return plan;
}

RecordRoles RolePlans::MakeRecord(const std::string& keyword, const IKeywordDataMD& md) const
{
    const auto& record = static_cast<const IKeywordRecordMD&>(md);
    RecordRoles plan;
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD& item = *record.GetItemMD(i);
        for (const RoleRule& rule : rules_.roles) {
            if (IsAsked(rule.role) && rule.item == item.GetName() && HasWord(rule.keywords, keyword)
                && Fits(rule.role, &item))
                plan.items.push_back({i, rule.role});
        }
        for (const MagnitudeRule& rule : rules_.magnitudes) {
            if (item.GetType() == MDType::Real && HasWord(rule.items, item.GetName())
                && HasWord(rule.keywords, keyword))
                plan.magnitudes.push_back({i, &rule});
        }
        plan.isFlat = plan.isFlat && KeywordUtils::IsItemMDType(&item);
        if (const IKeywordRecordMD* const below = FindRecord(&item)) {
            RecordRoles inner = MakeRecord(keyword, *below);
            inner.item = i;
            if (!inner.IsEmpty())
                plan.inner.push_back(std::move(inner));
        }
    }
    return plan;
}

} // namespace Veld::Quor::Core::Decks
