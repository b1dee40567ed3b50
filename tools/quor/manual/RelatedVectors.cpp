#include "tools/quor/manual/RelatedVectors.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <cctype>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using WordSet = std::set<std::string>;

/// Words in small letters without those that say little.
WordSet WordsOf(const std::string& text)
{
    static const WordSet fillers = {"a", "an", "and", "as", "at", "by", "each", "for", "from", "greatest",
        "in", "is", "least", "of", "on", "or", "the", "to", "target", "limit", "maximum", "minimum",
        "observed", "whose", "with"};
    WordSet words;
    std::string word;
    for (const char c : ToLower(text) + ' ') {
        if (std::isalpha(static_cast<unsigned char>(c))) {
            word += c;
        } else {
            if (!word.empty() && !fillers.contains(word))
                words.insert(word);
            word.clear();
        }
    }
    return words;
}

WordSet KindsOf(const Entry& entry)
{
    WordSet kinds;
    for (const Core::Decks::KeywordRule& rule : entry.rules) {
        if (rule.kind == "defines" || rule.kind == "refers-to")
            kinds.insert(rule.what);
    }
    return kinds;
}

bool Intersect(const WordSet& a, const WordSet& b)
{
    return std::any_of(a.begin(), a.end(), [&](const std::string& word) { return b.contains(word); });
}

/// The words of each real with a measurement.
void AddItems(const IKeywordDataMD& md, std::vector<WordSet>& items)
{
    VisitMD(md,
        Overloaded{[&](const IKeywordRealMD& real) {
                       WordSet words = WordsOf(real.GetDescription());
                       if (real.GetMeasurement() && words.size() > 1)
                           items.push_back(std::move(words));
                   },
            [&](const IKeywordRecordMD& record) {
                for (int i = 0; i < record.GetSize(); ++i)
                    AddItems(*record.GetItemMD(i), items);
            },
            [&](const IKeywordListMD& list) {
                if (list.GetItemMD())
                    AddItems(*list.GetItemMD(), items);
            },
            [](const IKeywordDataMD&) {}});
}

} // namespace

RelatedVectors::RelatedVectors(const Catalog& catalog)
{
    for (const Entry& entry : catalog.GetEntries()) {
        if (entry.IsVector())
            vectors_.push_back({&entry, WordsOf(entry.GetFirst().GetDescription()), KindsOf(entry)});
    }
}

std::vector<const Entry*> RelatedVectors::Find(const Entry& entry) const
{
    std::vector<WordSet> items;
    for (const IKeywordSyntax* syntax : entry.syntaxes) {
        if (syntax->GetDataMD())
            AddItems(*syntax->GetDataMD(), items);
    }
    const WordSet kinds = KindsOf(entry);
    std::vector<const Entry*> found;
    for (const Vector& vector : vectors_) {
        const auto isCovered = [&](const WordSet& item) {
            return std::includes(vector.words.begin(), vector.words.end(), item.begin(), item.end());
        };
        if (Intersect(kinds, vector.kinds) && std::any_of(items.begin(), items.end(), isCovered))
            found.push_back(vector.entry);
    }
    return found;
}

} // namespace Veld::Quor::Tools
