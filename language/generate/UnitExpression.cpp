#include "language/generate/UnitExpression.h"

#include "quor/deck/DeckLanguage.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace {

void MultiplyBy(SiUnit& product, const SiUnit& unit, int power)
{
    product.factor *= std::pow(unit.factor, power);
    for (const auto& [name, own] : unit.powers) {
        if ((product.powers[name] += own * power) == 0)
            product.powers.erase(name);
    }
}

class UnitReader {
public:
    UnitReader(const Word& word, const SiUnits& known)
        : word_(word)
        , known_(known)
    {
    }

    SiUnit Read()
    {
        if (const auto alone = known_.find(word_.text); alone != known_.end())
            return alone->second;
        SiUnit unit = ReadProduct();
        if (at_ < word_.text.size())
            FailForm();
        return unit;
    }

private:
    SiUnit ReadProduct()
    {
        SiUnit product;
        for (int sign = 1;; sign = word_.text[at_++] == '/' ? -1 : 1) {
            ReadFactor(product, sign);
            if (at_ == word_.text.size() || word_.text[at_] == ')')
                return product;
        }
    }

    void ReadFactor(SiUnit& product, int sign)
    {
        if (at_ < word_.text.size() && word_.text[at_] == '(') {
            ++at_;
            const SiUnit inner = ReadProduct();
            if (at_ == word_.text.size())
                FailForm();
            const std::size_t end =
                std::min(word_.text.find_first_not_of("0123456789", ++at_), word_.text.size());
            MultiplyBy(product, inner, sign * PowerOf(word_.text.substr(at_, end - at_)));
            at_ = end;
            return;
        }
        const std::size_t end = std::min(word_.text.find_first_of("./()", at_), word_.text.size());
        const std::string name = word_.text.substr(at_, end - at_);
        if (name.empty() || (end < word_.text.size() && word_.text[end] == '('))
            FailForm();
        if (name != "1")
            MultiplyByNamed(product, name, sign);
        at_ = end;
    }

    void MultiplyByNamed(SiUnit& product, const std::string& name, int sign) const
    {
        auto unit = known_.find(name);
        std::string power;
        if (unit == known_.end()) {
            const std::size_t end = name.find_last_not_of("0123456789") + 1;
            unit = known_.find(name.substr(0, end));
            power = name.substr(end);
        }
        if (unit == known_.end())
            FailUnit(name);
        if (unit->second.offset != 0)
            Fail(word_.place,
                "'" + unit->first + "' has an offset, so it must stand alone; use the unit of a difference");
        MultiplyBy(product, unit->second, sign * PowerOf(power));
    }

    static int PowerOf(const std::string& digits) { return digits.empty() ? 1 : std::atoi(digits.c_str()); }

    [[noreturn]] void FailForm() const
    {
        Fail(word_.place,
            "'" + word_.text + "' is no product of units such as cP.rm3/day/bar or psi/(rft3/day)2");
    }

    [[noreturn]] void FailUnit(const std::string& name) const
    {
        std::vector<std::string> names;
        for (const auto& [one, unit] : known_)
            names.push_back(one);
        const auto nearest = Veld::Quor::Core::Decks::FindNearest(names, name);
        Fail(word_.place,
            "unknown unit '" + name + "'"
                + (nearest.empty() ? "; define it in language/units/units.txt"
                                   : "; did you mean '" + nearest.front() + "'?"));
    }

    const Word& word_;
    const SiUnits& known_;
    std::size_t at_ = 0;
};

} // namespace

SiUnit ReadUnit(const Word& word, const SiUnits& known)
{
    return UnitReader(word, known).Read();
}
