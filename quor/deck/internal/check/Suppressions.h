#pragma once

#include "quor/deck/DeckSource.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the comments of a file say of findings that aren't to be reported:
///   -- quor: off CODE, CODE   on this line; alone on its line, on the next one that is more than a comment
///   -- quor: begin-off CODE   from here on
///   -- quor: end-off CODE     up to here
/// No code stands for all. After a further `--` there is room for a reason.
class Suppressions {
public:
    /// What is wrong with a comment.
    struct Mistake {
        std::size_t offset;
        std::size_t length;
        std::string message;
        std::string hint;
    };

    /// Looks through the whole text. `ownCodes`: that rules have beside those of the library; they must
    /// outlive it.
    Suppressions(const SourceText& source, const std::vector<std::string>& ownCodes);

    /// Whether findings with the code aren't to be reported at the offset.
    bool Cover(std::size_t offset, const std::string& code) const;
    const std::vector<Mistake>& GetMistakes() const { return mistakes_; }

private:
    static constexpr std::size_t mostCodes = 256;
    using CodeSet = std::bitset<mostCodes>; // by number: see `NumberOf`

    struct Line {
        std::size_t begin;
        std::size_t end;
        CodeSet codes;
    };
    /// What is suppressed from the offset on.
    struct Region {
        std::size_t offset;
        CodeSet codes;
    };

    void Scan(const SourceText& source);
    void Follow(std::size_t mark);
    void Do(std::string_view verb, std::string_view words, std::string_view comment);
    CodeSet ReadCodes(std::string_view words);
    std::size_t NumberOf(std::string_view code) const;
    void SuppressLine(std::string_view comment, const CodeSet& codes);
    void Open(std::string_view comment, const CodeSet& codes);
    void Close(std::string_view comment, const CodeSet& codes);
    void ReportOpen();
    void Report(std::string_view part, std::string message, std::string hint);
    std::size_t OffsetOf(std::string_view part) const
    {
        return static_cast<std::size_t>(part.data() - text_.data());
    }
    std::string_view LineAt(std::size_t offset) const;
    std::string_view NextFullLine(std::size_t offset) const;

    const std::vector<std::string>& ownCodes_;
    std::string_view text_;
    std::size_t followed_ = 0; // where the last comment that counts ends
    std::vector<Line> lines_; // by offset
    std::vector<Region> regions_; // by offset
    std::array<std::optional<std::string_view>, mostCodes> opened_ = {}; // the comments of open regions
    std::vector<Mistake> mistakes_;
};

} // namespace Veld::Quor::Core::Decks
