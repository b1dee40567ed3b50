#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/DeckDifference.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/foundation/SimulatorType.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Pairs of positions of two lists, in order; `unpaired` where one has no partner.
constexpr std::size_t unpaired = static_cast<std::size_t>(-1);
using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;

/// Pairs equal elements from both ends inwards, and what is left between them by position.
template <class Equal> // (position in the first list, position in the second)
Pairs PairUp(std::size_t sizeA, std::size_t sizeB, Equal equal)
{
    std::size_t head = 0;
    while (head < sizeA && head < sizeB && equal(head, head))
        ++head;
    std::size_t tail = 0;
    while (head + tail < sizeA && head + tail < sizeB && equal(sizeA - 1 - tail, sizeB - 1 - tail))
        ++tail;
    Pairs pairs;
    for (std::size_t i = head; i + tail < sizeA || i + tail < sizeB; ++i)
        pairs.emplace_back(i + tail < sizeA ? i : unpaired, i + tail < sizeB ? i : unpaired);
    return pairs; // without the equal ones
}

/// Compares the data of two instances of one keyword.
class DataComparison {
public:
    /// `simulator`: whose defaults hold. `isStrict`: a value left to its default differs from that value.
    DataComparison(Core::Keywords::SimulatorType::Enum simulator, bool isStrict)
        : simulator_(simulator)
        , isStrict_(isStrict)
    {
    }

    /// Both may be null.
    bool AreEqual(const Core::Keywords::IKeywordData* a, const Core::Keywords::IKeywordData* b);
    std::vector<ItemChange> Compare(
        const Core::Keywords::IKeywordData& a, const Core::Keywords::IKeywordData& b);

private:
    using List = Core::Keywords::IKeywordListData;
    using MD = Core::Keywords::IKeywordDataMD;

    bool CompareData(const Core::Keywords::IKeywordData& a, const Core::Keywords::IKeywordData& b,
        const std::string& path);
    bool CompareNodes(const Core::Keywords::IKeywordRecordData& a,
        const Core::Keywords::IKeywordRecordData& b, const std::string& path);
    bool CompareScalars(const MD& md, const ScalarValue& a, const ScalarValue& b, const std::string& path);
    bool CompareNodes(const List& a, const List& b, const std::string& path);
    bool CompareElements(const List& a, std::size_t i, const List& b, std::size_t j, const std::string& path);
    bool CompareNumbers(const List& a, const List& b, const std::string& path);
    bool CompareNodes(const Core::Keywords::IKeywordMapData& a, const Core::Keywords::IKeywordMapData& b,
        const std::string& path);
    bool CompareNodes(const Core::Keywords::IKeywordRawData& a, const Core::Keywords::IKeywordRawData& b,
        const std::string& path);

    /// False, always: what is reported isn't equal.
    bool Report(ItemChange change);
    std::string ScalarText(const MD& md, const ScalarValue& value) const;

    Core::Keywords::SimulatorType::Enum simulator_;
    bool isStrict_;
    std::vector<ItemChange>* changes_ = nullptr; // null: only whether there are some is asked
};

} // namespace Veld::Quor::Core::Decks
