#include "quor/deck/internal/physics/PhysicsChecks.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/physics/Checks.h"
#include "quor/deck/internal/physics/FractionSums.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/service/Optional.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

PhysicsChecks::PhysicsChecks(const RuleSet& rules, const DeckContents& deck, const Dimensions& dimensions,
    FindingReporter& reporter, SimulatorType::Enum simulator)
    : deck_(deck)
    , simulator_(simulator)
    , plans_(rules, RolePlans::Which::Checked)
    , facts_(deck, dimensions, reporter)
    , magnitudes_(facts_)
    , limits_(facts_)
{
}

void PhysicsChecks::Follow(bool isKnown)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const KeywordRoles* const roles = plans_.Find(*keyword.syntax);
    if (!roles)
        return;
    if (!keyword.syntax->GetDataMD())
        return AddKeyword(*roles);
    if (!isKnown || keyword.scope != noIndex)
        return facts_.LoseCells();
    // Whatever else is odd in a table has the same reason.
    if (!magnitudes_.HasOdd(keyword, *roles) || roles->record.Find(Role::NameOfWell) >= 0) {
        AddKeyword(*roles);
        FollowRecords(roles->record);
    }
}

void PhysicsChecks::FollowRecords(const RecordRoles& roles)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const bool isOfConnections = roles.Find(Role::ConnectionI) >= 0;
    if (isOfConnections || roles.Find(Role::NameOfWell) >= 0) {
        if (!wells_)
            wells_.emplace(facts_);
        isOfConnections ? wells_->FollowConnections(keyword, roles) : wells_->FollowHeads(keyword, roles);
    } else if (roles.Find(Role::NameOfArray) >= 0) {
        if (ChangesActiveCells(roles))
            facts_.LoseCells();
    } else if (roles.Find(Role::LimitOfProduction) >= 0 || roles.Find(Role::LimitOfInjection) >= 0) {
        limits_.Follow(keyword, roles);
    } else if (!roles.IsEmpty()) {
        CheckFractionSums(facts_, keyword, roles);
        facts_.AddTables(
            MakeTables(deck_, static_cast<std::uint32_t>(deck_.keywords.size() - 1), roles, simulator_));
    }
}

void PhysicsChecks::AddKeyword(const KeywordRoles& roles)
{
    for (const Role::Enum role : roles.roles) {
        facts_.AddKeyword(role, static_cast<std::uint32_t>(deck_.keywords.size() - 1));
        hasNewDepths_ = hasNewDepths_ || role == Role::CornerDepths || role == Role::CellTops;
    }
}

/// Whether the last keyword works on the array that says which cells are active.
bool PhysicsChecks::ChangesActiveCells(const RecordRoles& roles)
{
    const IKeywordData& data = *deck_.keywords.back().data;
    if (!IsListOfRecords(data.GetMD(), {}))
        return true;
    const auto& list = static_cast<const IKeywordListData&>(data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& record = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        const auto& name = *static_cast<const Service::Optional<std::string>*>(
            record.GetData(roles.Find(Role::NameOfArray)));
        if (!name)
            return true;
        for (const IKeywordSyntax* const array : deck_.language.LookupAll(ToUpper(*name))) {
            const KeywordRoles* const found = plans_.Find(*array);
            if (found && std::count(found->roles.begin(), found->roles.end(), Role::ActiveCells) > 0)
                return true;
        }
    }
    return false;
}

void PhysicsChecks::EndSection()
{
    CheckSaturationEnds(facts_);
    CheckSaturationPairs(facts_);
    CheckCapillaryOrder(facts_);
    CheckFluidTrends(facts_);
    CheckTotalCompressibility(facts_);
    CheckContactOrder(facts_);
    CheckDatumPressure(facts_);
    if (hasNewDepths_) {
        CheckCornerDepths(facts_);
        CheckCellJumps(facts_);
    }
    limits_.EndSection();
    hasNewDepths_ = false;
    facts_.KeepDatumDepths();
    facts_.ForgetTables();
}

} // namespace Veld::Quor::Core::Decks
