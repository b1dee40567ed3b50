#include "quor/data/KeywordMapDataHelper.h"

#include "quor/foundation/service/Strings.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/KeywordAssignmentMDImpl.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using Service::Optional;
using Pair = KeywordMapDataHelper::AssignmentValueMDPair;

namespace {

std::string Normalise(std::string key)
{
    Service::StringTrimBlank(key, true, true);
    Service::StringToUpper(key);
    return key;
}

} // namespace

Pair::AssignmentValueMDPair(const IKeywordAssignmentMD* md, const Optional<int>& value)
    : value_(value)
    , md_(md)
{
}

Pair::AssignmentValueMDPair(std::unique_ptr<IKeywordAssignmentMD> md, const Optional<int>& value)
    : value_(value)
    , md_(nullptr)
    , ownedMD_(std::move(md))
{
}

Pair::AssignmentValueMDPair(const AssignmentValueMDPair&) = default;
Pair::AssignmentValueMDPair(AssignmentValueMDPair&&) noexcept = default;
Pair& Pair::operator=(const AssignmentValueMDPair&) = default;
Pair& Pair::operator=(AssignmentValueMDPair&&) noexcept = default;
Pair::~AssignmentValueMDPair() = default;

int KeywordMapDataHelper::FindIndex(const Pairs& pairs, const std::string& key)
{
    const std::string normalised = Normalise(key);
    const auto at = std::find_if(pairs.begin(), pairs.end(),
        [&](const Pair& pair) { return FindMatch(pair.GetMD()->GetKeys(), normalised) >= 0; });
    return at == pairs.end() ? -1 : static_cast<int>(at - pairs.begin());
}

bool KeywordMapDataHelper::GetValue(const Pairs& pairs, const std::string& key, Optional<int>& value)
{
    const int index = FindIndex(pairs, key);
    value = index < 0 ? Optional<int>() : pairs[static_cast<std::size_t>(index)].GetValue();
    return index >= 0;
}

bool KeywordMapDataHelper::SetValue(
    Pairs& pairs, const std::string& key, const Optional<int>& value, const IKeywordMapMD* md)
{
    const int index = FindIndex(pairs, key);
    if (index >= 0) {
        pairs[static_cast<std::size_t>(index)].SetValue(value);
        return true;
    }
    if (!md)
        return false;
    const std::string normalised = Normalise(key);
    Pairs born; // put in at the end: a failure in between leaves `pairs` as it was
    for (int i = 0; i < md->GetWildcardSize(); ++i) {
        const IKeywordAssignmentMD& wildcard = *md->GetWildcardItemMD(i);
        if (FindMatch(wildcard.GetKeys(), normalised) < 0)
            continue; // Wanted: there is no stop after a match, so each wildcard that accepts the key adds a
                      // pair.
        auto assignment = std::make_unique<KeywordAssignmentMDImpl>(wildcard);
        assignment->SetKey(key);
        born.emplace_back(std::move(assignment), value);
    }
    pairs.insert(pairs.end(), std::make_move_iterator(born.begin()), std::make_move_iterator(born.end()));
    return !born.empty();
}

bool KeywordMapDataHelper::SetValue(Pairs& pairs, const std::string& key, int value, const IKeywordMapMD* md)
{
    return SetValue(pairs, key, Optional<int>(value), md);
}

bool KeywordMapDataHelper::SetValueToDefault(Pairs& pairs, const std::string& key)
{
    return SetValue(pairs, key, Optional<int>(), nullptr);
}

Optional<int> KeywordMapDataHelper::GetDefaultValue(const Pairs&, const std::string&)
{
    return {};
}

bool KeywordMapDataHelper::MatchKeys(const std::string& pattern, const std::string& key)
{
    if (pattern == key)
        return true;
    if (pattern.empty() || pattern.back() != '*')
        return false;
    return key.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
}

int KeywordMapDataHelper::FindMatch(const std::vector<std::string>& keys, const std::string& key)
{
    const auto at = std::find_if(
        keys.begin(), keys.end(), [&](const std::string& pattern) { return MatchKeys(pattern, key); });
    return at == keys.end() ? -1 : static_cast<int>(at - keys.begin());
}

} // namespace Veld::Quor::Core::Keywords
