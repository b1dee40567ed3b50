#include "tools/quor/findings/FindingCodes.h"

#include "quor/deck/FindingCodes.h"
#include "quor/lint/Codes.h"

#include <set>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace Lint = Core::Lint;

namespace {

const char* SeeAlso(Decks::Code code)
{
    using Code = Decks::Code;
    switch (code) {
    case Code::BadSuppression:
        return "'quor explain', which lists all codes";
    case Code::ChoiceNotValid:
    case Code::NotAChoice:
    case Code::UnknownName:
    case Code::WrongSection:
    case Code::WrongType:
        return "'quor show KEYWORD', which lists what is valid";
    case Code::UnknownVariable:
        return "the option --set NAME=VALUE";
    default:
        return "";
    }
}

} // namespace

std::vector<FindingCode> AllFindingCodes()
{
    std::vector<FindingCode> codes;
    for (std::size_t i = 0; i < Decks::Codes().size(); ++i)
        codes.push_back({"check", &Decks::Codes()[i], SeeAlso(static_cast<Decks::Code>(i))});
    for (const Decks::CodeInfo& info : Lint::Codes())
        codes.push_back({"lint", &info});
    return codes;
}

std::vector<std::string> FindingCodeNames()
{
    std::set<std::string> names;
    for (const FindingCode& code : AllFindingCodes())
        names.insert(code.info->name);
    return {names.begin(), names.end()};
}

} // namespace Veld::Quor::Tools
