#include "quor/syntax/internal/NameIndex.h"

#include <utility>

namespace Veld::Quor::Core::Keywords {

const IKeywordSyntax* NameIndex::ChosenOf(const Syntaxes& syntaxes)
{
    if (syntaxes.size() > 1) {
        for (const auto& syntax : syntaxes) {
            if (!syntax->IsValid(SectionType::SUMMARY, SimulatorType::Any))
                return syntax.get();
        }
    }
    return syntaxes.front().get();
}

void NameIndex::Words::Set(std::uint64_t key, const IKeywordSyntax* chosen, const Syntaxes* all)
{
    if (4 * (count_ + 1) > slots_.size()) {
        Words larger;
        larger.slots_.resize(2 * slots_.size());
        larger.all_.resize(2 * slots_.size());
        for (std::size_t place = 0; place < slots_.size(); ++place) {
            if (slots_[place].key != none)
                larger.Set(slots_[place].key, slots_[place].chosen, all_[place]);
        }
        *this = std::move(larger);
    }
    const std::size_t place = PlaceOf(key);
    if (slots_[place].key == none)
        ++count_;
    slots_[place] = {key, chosen};
    all_[place] = all;
}

void NameIndex::Add(const std::string& name, const Syntaxes* syntaxes)
{
    if (const std::uint64_t key = Pack(name); key != none)
        exact_.Set(key, ChosenOf(*syntaxes), syntaxes);
    else if (name.find('*') != std::string::npos)
        AddWildcard(name, syntaxes);
}

void NameIndex::AddWildcard(const std::string& name, const Syntaxes* syntaxes)
{
    const std::string beginning = name.substr(0, name.find('*'));
    const std::uint64_t key = Pack(beginning);
    if (key == none || beginning.size() + 1 != name.size())
        hasOddWildcards_ = true;
    else
        wildcards_.Set(key, ChosenOf(*syntaxes), syntaxes);
    if (beginning.empty()) {
        for (Beginning& each : beginnings_)
            each.seconds = ~std::uint64_t{0};
        return;
    }
    Beginning& own = beginnings_[static_cast<unsigned char>(beginning[0])];
    if (key != none)
        own.lengths |= 1U << beginning.size();
    own.seconds |= beginning.size() > 1 ? std::uint64_t{1} << (beginning[1] & 63) : ~std::uint64_t{0};
}

} // namespace Veld::Quor::Core::Keywords
