#include "quor/deck/internal/text/OddCharacters.h"

namespace Veld::Quor::Core::Decks {

namespace {

struct CharacterRow {
    std::string_view bytes;
    const char* name;
    const char* instead;
    const char* replacement;
};

constexpr const char* apostrophe = "a straight quote";
constexpr const char* hyphen = "a hyphen";
constexpr const char* blank = "a blank";

constexpr CharacterRow characterRows[] = {
    {"\xE2\x80\x98", "curly quote", apostrophe, "'"},
    {"\xE2\x80\x99", "curly quote", apostrophe, "'"},
    {"\xE2\x80\x9A", "curly quote", apostrophe, "'"},
    {"\xE2\x80\x9B", "curly quote", apostrophe, "'"},
    {"\xE2\x80\x9C", "curly quote", apostrophe, "\""},
    {"\xE2\x80\x9D", "curly quote", apostrophe, "\""},
    {"\xE2\x80\x9E", "curly quote", apostrophe, "\""},
    {"\xE2\x80\x9F", "curly quote", apostrophe, "\""},
    {"\xE2\x80\x90", "long dash", hyphen, "-"},
    {"\xE2\x80\x91", "long dash", hyphen, "-"},
    {"\xE2\x80\x92", "long dash", hyphen, "-"},
    {"\xE2\x80\x93", "long dash", hyphen, "-"},
    {"\xE2\x80\x94", "long dash", hyphen, "-"},
    {"\xE2\x80\x95", "long dash", hyphen, "-"},
    {"\xE2\x88\x92", "minus sign", hyphen, "-"},
    {"\xC2\xA0", "hard space", blank, " "},
    {"\xE2\x80\x87", "hard space", blank, " "},
    {"\xE2\x80\xAF", "hard space", blank, " "},
};

} // namespace

std::optional<OddCharacter> FindOddCharacter(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const CharacterRow& row : characterRows) {
            if (text.substr(i, row.bytes.size()) == row.bytes)
                return OddCharacter{text.substr(i, row.bytes.size()), row.name, row.instead, row.replacement};
        }
    }
    return std::nullopt;
}

} // namespace Veld::Quor::Core::Decks
