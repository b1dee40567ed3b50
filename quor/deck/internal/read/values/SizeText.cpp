#include "quor/deck/internal/read/values/SizeText.h"

#include <charconv>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

namespace {

using Value = std::optional<long long>;

/// Recursive descent: a sum of products of factors.
class Expression {
public:
    Expression(std::string_view text, const SizeOfName& sizeOf)
        : rest_(text)
        , sizeOf_(sizeOf)
    {
    }

    Value Evaluate()
    {
        const Value value = Sum();
        SkipBlanks();
        return rest_.empty() && value && *value >= 0 ? value : std::nullopt;
    }

private:
    Value Sum()
    {
        Value value = Product();
        while (value) {
            if (Take('+'))
                value = Apply(*value, Product(), [](long long a, long long b, long long* result) {
                    return !__builtin_add_overflow(a, b, result);
                });
            else if (Take('-'))
                value = Apply(*value, Product(), [](long long a, long long b, long long* result) {
                    return !__builtin_sub_overflow(a, b, result);
                });
            else
                break;
        }
        return value;
    }

    Value Product()
    {
        Value value = Factor();
        while (value) {
            if (Take('*'))
                value = Apply(*value, Factor(), [](long long a, long long b, long long* result) {
                    return !__builtin_mul_overflow(a, b, result);
                });
            else if (Take('/'))
                value = Apply(*value, Factor(), [](long long a, long long b, long long* result) {
                    const bool isSafe = b > 0;
                    *result = isSafe ? a / b : 0;
                    return isSafe;
                });
            else
                break;
        }
        return value;
    }

    Value Factor()
    {
        if (depth_ > deepest)
            return std::nullopt;
        if (Take('(')) {
            ++depth_;
            const Value value = Sum();
            --depth_;
            return value && Take(')') ? value : std::nullopt;
        }
        SkipBlanks();
        long long number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (end != rest_.data()) {
            rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
            return error == std::errc() ? Value(number) : std::nullopt;
        }
        const std::string name(rest_.substr(0, rest_.find_first_of(" +-*/()")));
        rest_.remove_prefix(name.size());
        return name.empty() ? std::nullopt : sizeOf_(name);
    }

    template <class Operation>
    static Value Apply(long long a, Value b, Operation operation)
    {
        long long result = 0;
        return b && operation(a, *b, &result) ? Value(result) : std::nullopt;
    }

    bool Take(char c)
    {
        SkipBlanks();
        if (rest_.empty() || rest_.front() != c)
            return false;
        rest_.remove_prefix(1);
        return true;
    }
    void SkipBlanks()
    {
        while (!rest_.empty() && rest_.front() == ' ')
            rest_.remove_prefix(1);
    }

    static constexpr int deepest = 100;

    std::string_view rest_;
    const SizeOfName& sizeOf_;
    int depth_ = 0;
};

} // namespace

Value EvaluateSize(std::string_view text, const SizeOfName& sizeOf)
{
    return Expression(text, sizeOf).Evaluate();
}

} // namespace Veld::Quor::Core::Decks
