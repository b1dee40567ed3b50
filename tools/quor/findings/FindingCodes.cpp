#include "tools/quor/findings/FindingCodes.h"

#include "quor/deck/FindingCodes.h"
#include "quor/lint/Codes.h"

#include <algorithm>
#include <iterator>
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
    case Code::TooManyValues:
        return "the option --max-repeated-values N, for a large grid whose arrays are all repeats";
    case Code::UnknownVariable:
        return "the option --set NAME=VALUE";
    default:
        return "";
    }
}

FindingCode OfDecks(const Decks::CodeInfo& info)
{
    return {"check", &info, SeeAlso(static_cast<Decks::Code>(&info - Decks::Codes().data()))};
}

FindingCode OfDocuments(const Decks::CodeInfo& info)
{
    return {"lint", &info};
}

} // namespace

std::vector<FindingCode> AllFindingCodes()
{
    std::vector<FindingCode> codes;
    std::transform(Decks::Codes().begin(), Decks::Codes().end(), std::back_inserter(codes), OfDecks);
    std::transform(Lint::Codes().begin(), Lint::Codes().end(), std::back_inserter(codes), OfDocuments);
    return codes;
}

std::vector<FindingCode> FindFindingCodes(const std::string& name)
{
    std::vector<FindingCode> codes;
    if (const Decks::CodeInfo* const info = Decks::FindInfo(name))
        codes.push_back(OfDecks(*info));
    if (const Decks::CodeInfo* const info = Lint::FindInfo(name))
        codes.push_back(OfDocuments(*info));
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
