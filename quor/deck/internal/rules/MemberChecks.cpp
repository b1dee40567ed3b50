#include "quor/deck/internal/rules/MemberChecks.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

long long LengthOf(const void* list)
{
    return static_cast<const IKeywordListData*>(static_cast<const IKeywordData*>(list))->GetSize();
}

std::uint64_t PairOf(std::uint64_t owner, std::uint64_t member)
{
    return (owner ^ (member >> 7)) * 0x9E3779B97F4A7C15ULL + member;
}

} // namespace

void MemberChecks::Check(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    for (const RecordRules::Member& rule : rules.members)
        CheckMember(rule, record, position);
    for (const RecordRules::Length& length : rules.lengths) {
        const LengthRule& rule = *length.rule;
        const auto most = context_.FindLimit(rule.limit);
        const long long count = LengthOf(record.GetData(length.item.index));
        if (count > most)
            ReportAbove(rule.voice, RangeOf(context_.GetKeyword(), position.element),
                fmt::format("{} {} in {}", count, rule.what, rule.item), rule.limit);
    }
}

void MemberChecks::CheckTables(const LengthRule& rule)
{
    const auto& tables = static_cast<const IKeywordListData&>(*context_.GetKeyword().data);
    const auto size = static_cast<std::size_t>(tables.GetSize());
    const auto most = context_.FindLimit(rule.limit);
    for (std::size_t i = 0; i < size; ++i) {
        if (const long long count = LengthOf(tables.GetData(i)); count > most)
            ReportAbove(rule.voice, RangeOf(context_.GetKeyword(), i),
                fmt::format("{} {} in table {}", count, rule.what, i + 1), rule.limit);
    }
}

void MemberChecks::CheckMember(
    const RecordRules::Member& member, const Record& record, ValuePosition position)
{
    const MemberRule& rule = *member.rule;
    const std::uint64_t owner = member.owner.IsThere() ? KeyOfName(record, member.owner, names_) : 1;
    if (owner == 0 || !Holds(member.when, record))
        return;
    const long long count = Add(member, record, owner);
    if (count <= counts_[member.number].limit.Get(context_, rule.limit))
        return;
    position.item = std::max(member.owner.index, 0);
    ReportAbove(rule.voice, FindValue(context_.deck, context_.GetKeyword(), position),
        member.owner.IsThere()
            ? fmt::format("{} {} {} {}", count, rule.what, "for", Shorten(ValueText(record, member.owner)))
            : fmt::format("{} {}", count, rule.what),
        rule.limit);
}

/// How many the owner has then.
long long MemberChecks::Add(const RecordRules::Member& rule, const Record& record, std::uint64_t owner)
{
    Count& count = counts_[rule.number];
    if (rule.items.empty())
        return ++*count.ofOwner.Add(owner, 0).first;
    const RecordKeys keys(record, rule.items, rule.last, 0, names_);
    if (keys.HasZero()) // counted by themselves: they may be the same as others
        owner = ~owner;
    long long added = 0;
    if (rule.rule->hasOneOwner)
        keys.ForEach([&](std::uint64_t member) {
            added += Take(owner, member, count) ? 1 : 0;
            return true;
        });
    else
        keys.ForEachBlock([&](std::uint64_t block, std::uint64_t bits) {
            std::uint64_t& members = *count.members.Add(PairOf(owner, block), 0).first;
            added += std::popcount(bits & ~members);
            members |= bits;
        });
    return *count.ofOwner.Add(owner, 0).first += added;
}

/// Whether the owner didn't have the member, which is taken from the one that had it.
bool MemberChecks::Take(std::uint64_t owner, std::uint64_t member, Count& count)
{
    const auto [before, isFirst] = count.owners.Add(member, owner);
    if (isFirst)
        return true;
    if (*before == owner)
        return false;
    --*count.ofOwner.Add(std::exchange(*before, owner), 0).first;
    return true;
}

/// A size is reported once: it is what is to be corrected.
void MemberChecks::ReportAbove(
    const FindingVoice& voice, const TextRange& range, const std::string& what, const SizeLimit& limit)
{
    if (context_.dimensions.IsFirstReport(limit.item))
        context_.reporter.ReportAs(voice, range, Code::TooManyNames,
            fmt::format(
                "{}: {}, but {} is {}", context_.GetName(), what, limit.item, context_.FindLimit(limit)),
            fmt::format("increase {} in {}", limit.item, limit.keyword), {},
            FindSize(context_.deck, context_.dimensions, limit.name));
}

} // namespace Veld::Quor::Core::Decks
