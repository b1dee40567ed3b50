#pragma once

#include <string>
#include <string_view>

namespace Veld::Quor::Core::Keywords {
class ICustomReadTermination;
class IKeywordSyntax;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Tools::Deck {

/// What is known of the data behind the keyword read last without reading them: enough to tell a misspelt
/// keyword from a word among the data.
class DataState {
public:
    /// A keyword came. Null if it isn't known, or opens a section.
    void Begin(const Core::Keywords::IKeywordSyntax* syntax);

    /// Whether the next line that is no comment is a line of text, whatever it holds.
    bool ExpectsText() const { return expectsText_; }
    /// Whether that line is text even if it looks like a keyword.
    bool IsDirectlyBehind() const { return isDirectlyBehind_; }
    /// To be called for each line while text is expected.
    void AddText(std::string_view line);

    /// A line of data; it is only looked at later, and must last until `Settle`.
    void Add(std::string_view line);
    /// Whether `word` is one of those that end the keyword's list.
    bool IsEndOfData(std::string_view word) const;
    /// The word that must still come to end raw text; empty if none is being read.
    const std::string& GetMissingEnd() const { return rawEnd_; }
    /// Nothing more belongs to the keyword.
    void Close();

    /// Whether a keyword could stand here: the keyword before carries no data, or a slash ended them.
    bool MayKeywordStand() const;

    /// Lets go of the lines that were added.
    void Settle();

private:
    const Core::Keywords::ICustomReadTermination* endWords_ = nullptr; // of the keyword's list
    std::string rawEnd_; // the word, in upper case, that ends the raw text being read; empty: none is read
    std::string_view lastLine_; // empty: none since the keyword or since `Settle`
    bool isOpen_ = false; // by the lines before `lastLine_`
    bool expectsText_ = false;
    bool isDirectlyBehind_ = false;
};

} // namespace Veld::Quor::Tools::Deck
