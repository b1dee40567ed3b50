#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace Veld::Quor::Tests {

/// A document of random keywords, and random decks in its language. Each deck is right: nothing in it is to
/// be told, and each comment in its data has a word that it has alone, `c1`, `c2` and so on.
class RandomLanguage {
public:
    explicit RandomLanguage(std::uint32_t seed);

    /// What stands below the root of the document.
    std::string GetDocument() const;
    std::string MakeDeck(int keywords, int& comments);

    /// What the variables of the decks stand for: `$ONE` for 1.
    static constexpr const char* variable = "$ONE";

private:
    enum class Kind { Integer, Real, Text, Truth, Choice, Record, List, Map, Raw, Line };
    struct Shape {
        Kind kind = Kind::Integer;
        std::string termination = {}; // of a container
        bool mayBeMissing = false; // a scalar of a record, or the elements of a list
        int size = 0; // of a list that ends by itself
        std::vector<Shape> inner = {};
    };

    int Pick(int most); // from 0 to below
    bool Toss(int outOf = 2) { return Pick(outOf) == 0; }

    Shape MakeScalar();
    Shape MakeRecord(const std::string& termination, int scalars);
    Shape MakeList(const std::string& termination, Shape element);
    Shape MakeRoot();
    static std::string Describe(const Shape& shape);

    void WriteData(const Shape& shape);
    void WriteItems(const Shape& record);
    void WriteList(const Shape& list);
    void WriteScalar(const Shape& shape);
    std::string MakeValue(const Shape& shape);
    void Word(const std::string& word);
    void End();
    void MaybeComment();

    std::mt19937 random_;
    std::vector<Shape> roots_;
    std::string text_; // of the deck being made
    bool isOneLine_ = false;
    int comments_ = 0;
};

} // namespace Veld::Quor::Tests
