#include "quor/deck/Remedies.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

const std::vector<Remedy>& Remedies()
{
    constexpr Target carrow{SimulatorType::Carrow, SimulatorModeType::Any};
    constexpr Target dunmereBlackOil{SimulatorType::Dunmere, SimulatorModeType::BlackOil};
    static const std::vector<Remedy> rows = {
        {Code::UnknownKeyword,
            "Correct the spelling; if the word was to be data, indent it or close the record before it.",
            "RUNSPEC\nOILL\n", "RUNSPEC\nOIL\n"},
        {Code::LowerCase, "Write keywords in upper case.", "RUNSPEC\nOil\n", "RUNSPEC\nOIL\n"},
        {Code::StrayText,
            "Take the text away, or put it behind two hyphens. A keyword begins in the first column, and one "
            "that "
            "takes no data stands alone on its line.",
            "RUNSPEC\nOIL AND WATER\n", "RUNSPEC\nOIL\nWATER\n"},
        {Code::NoSection, "Begin the deck with RUNSPEC, and put each keyword behind the head of its section.",
            "OIL\n", "RUNSPEC\nOIL\n"},
        {Code::SectionOrder,
            "Bring the sections into their order: RUNSPEC, GRID, EDIT, PROPS, REGIONS, SOLUTION, SUMMARY, "
            "SCHEDULE; each of them once.",
            "RUNSPEC\nPROPS\nGRID\n", "RUNSPEC\nGRID\nPROPS\n"},
        {Code::WrongSection, "Move the keyword to a section where it is valid; 'quor show' lists them.",
            "RUNSPEC\nGRID\nOIL\n", "RUNSPEC\nOIL\nGRID\n"},
        {Code::WrongSimulator,
            "Use a keyword of the simulator, or put this one into a block that is skipped for it.",
            "RUNSPEC\nCOMPS\n 3 /\n", "RUNSPEC\nSKIPCAR\nCOMPS\n 3 /\nENDSKIP\n", carrow},
        {Code::WrongMode, "Leave the keyword out, or run the deck in another mode.", "RUNSPEC\nCOMPS\n 3 /\n",
            "RUNSPEC\nOIL\n", dunmereBlackOil},
        {Code::MissingPrecedent, "Put the keyword that is named before this one.",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nEDIT\nDIFFX\n 2*0.5 /\n",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nDIFFUSE\nEDIT\nDIFFX\n 2*0.5 /\n"},
        {Code::TooFewValues, "Give the values that are missing before the slash.", "RUNSPEC\nSTART\n 1 /\n",
            "RUNSPEC\nSTART\n 1 JAN 2030 /\n"},
        {Code::TooManyValues,
            "Take the surplus values away. Often a slash is missing, and the next record counts as the rest "
            "of this one.",
            "RUNSPEC\nDIMENS\n 2 2 1 1 /\n", "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::NoDefault, "Give the value: it can't be left out.", "RUNSPEC\nSTART\n 1* JAN 2030 /\n",
            "RUNSPEC\nSTART\n 1 JAN 2030 /\n"},
        {Code::WrongType,
            "Write a value of the type of the item; 'quor show' tells it. If the values before it are "
            "right, one may be missing or too many.",
            "RUNSPEC\nDIMENS\n 2 two 1 /\n", "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::OutOfRange, "Give a value within the limits; often it is in another unit than the deck's.",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nPORO\n 23 /\n",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nPORO\n 0.23 /\n"},
        {Code::ColumnOrder,
            "Bring the rows into their order, and look for slips in the values of the column.",
            "PROPS\nPVDO\n 200 1.20 1.8\n 100 1.10 2.0 /\n", "PROPS\nPVDO\n 100 1.20 1.8\n 200 1.10 2.0 /\n"},
        {Code::WrongSize, "Give as many values as the sizes of the deck say, or correct the sizes.",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 3*0.2 /\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 4*0.2 /\n"},
        {Code::BadRepeat, "Write a count from 1 on before the asterisk, and a number behind it.",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 0*0.2 3*0.2 /\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 4*0.2 /\n"},
        {Code::LongText, "Shorten the text, so that names stay different.",
            "SCHEDULE\nWELSPECS\n 'PRODUCER-1' 'G' 1 1 2000 OIL /\n/\n",
            "SCHEDULE\nWELSPECS\n 'PROD-1' 'G' 1 1 2000 OIL /\n/\n"},
        {Code::NotAChoice, "Write one of the words of the item; 'quor show' lists them.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OLI /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\n"},
        {Code::AbbreviatedWord, "Write the word out: another one may come to begin in the same way.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 WATE /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 WATER /\n/\n"},
        {Code::DeprecatedWord, "Write the word that has taken its place.",
            "SCHEDULE\nWCONPROD\n 'P1' CLOSED /\n/\n", "SCHEDULE\nWCONPROD\n 'P1' SHUT /\n/\n"},
        {Code::ChoiceNotValid, "Choose a word that the simulator takes; 'quor show' tells which.",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN CRAT /\n/\n", "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT 100 /\n/\n",
            carrow},
        {Code::ChoiceUnsupported, "Choose another word, or don't count on what this one asks for.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL 5* AVG /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\n", carrow},
        {Code::ItemNotValid, "Leave the value out: write 1* in its place.",
            "SOLUTION\nEQUIL\n 2000 200 2100 0 1500 0 0 0 0 1 /\n",
            "SOLUTION\nEQUIL\n 2000 200 2100 0 1500 0 0 0 0 1* /\n", dunmereBlackOil},
        {Code::ItemUnsupported, "Leave the value out, or don't count on its effect.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\nCOMPDAT\n 'P1' 1 1 1 1 OPEN 1* 1* 0.2 1* 0 "
            "0.01 /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\nCOMPDAT\n 'P1' 1 1 1 1 OPEN 1* 1* 0.2 1* 0 "
            "/\n/\n",
            carrow},
        {Code::UnknownName, "Correct the name; 'quor show' lists those of the keyword.",
            "GRID\nRPTGRID\n POROSTY /\n", "GRID\nRPTGRID\n PORO /\n"},
        {Code::UnknownVariable, "Give the variable a value, or correct its name.",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT $PLATEAU /\n/\n",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT 500 /\n/\n"},
        {Code::BadDate, "Correct day, month or year.", "SCHEDULE\nDATES\n 31 FEB 2030 /\n/\n",
            "SCHEDULE\nDATES\n 28 FEB 2030 /\n/\n"},
        {Code::DateOrder, "Bring the dates into their order, behind the start of the run.",
            "SCHEDULE\nDATES\n 1 JUN 2030 /\n 1 MAY 2030 /\n/\n",
            "SCHEDULE\nDATES\n 1 MAY 2030 /\n 1 JUN 2030 /\n/\n"},
        {Code::UnclosedData, "Put a slash behind the last value, or on a line of its own behind a list.",
            "RUNSPEC\nDIMENS\n 2 2 1\nOIL\n", "RUNSPEC\nDIMENS\n 2 2 1 /\nOIL\n"},
        {Code::UnclosedQuote, "Close the quote on its line, with the sign that opened it.",
            "SCHEDULE\nWELOPEN\n 'P1\n /\n/\n", "SCHEDULE\nWELOPEN\n 'P1'\n /\n/\n"},
        {Code::UnclosedText, "Put the end word at the start of a line behind the text.",
            "RUNSPEC\nNOTES\nA model of one well.\n", "RUNSPEC\nNOTES\nA model of one well.\nENDNOTES\n"},
        {Code::UnclosedSkip, "Put ENDSKIP behind the block, in the same file.", "RUNSPEC\nSKIP\nOIL\n",
            "RUNSPEC\nSKIP\nOIL\nENDSKIP\n"},
        {Code::UnclosedScope, "Put the end keyword behind what belongs inside, in the same section.",
            "GRID\nBOX\n 1 1 1 1 1 1 /\n", "GRID\nBOX\n 1 1 1 1 1 1 /\nENDBOX\n"},
        {Code::StrayEnd, "Take the keyword away, or open before it what it is to end.", "GRID\nENDBOX\n",
            "GRID\nBOX\n 1 1 1 1 1 1 /\nENDBOX\n"},
        {Code::StrayEndskip, "Take the keyword away, or open the block before it, in the same file.",
            "RUNSPEC\nOIL\nENDSKIP\n", "RUNSPEC\nSKIP\nOIL\nENDSKIP\n"},
        {Code::StrayEndinc, "Take the keyword away; END ends a deck.", "RUNSPEC\nENDINC\n", "RUNSPEC\nEND\n"},
        {Code::IncludeName, "Put the name in quotes behind INCLUDE, with a slash behind it.",
            "RUNSPEC\nINCLUDE\n/\n", ""},
        {Code::IncludeMissing,
            "Correct the name, or bring the file to its place. A relative name starts from the folder of the "
            "deck, also in an included file.",
            "RUNSPEC\nINCLUDE\n 'no-such-file.inc' /\n", ""},
        {Code::IncludeLoop, "Take the inclusion away.", "", ""},
        {Code::IncludeDepth, "Include the files from the deck itself instead of from one another.", "", ""},
        {Code::IncludeCount,
            "Put files together: so many inclusions are a slip of a program that wrote them.", "", ""},
        {Code::UnknownAlias, "Define the alias with PATHS before it is used, or correct its name.",
            "RUNSPEC\nINCLUDE\n '$GRIDS/a.inc' /\n", ""},
        {Code::Encoding, "Save the file as plain text or in UTF-8.", "", ""},
        {Code::BadSilence,
            "Write '-- quor: off CODE', or '-- quor: begin-off CODE' and '-- quor: end-off CODE'.",
            "RUNSPEC\nOIL -- quor: off wrong-sektion\n", "RUNSPEC\nOIL -- quor: off wrong-section\n"},
    };
    assert(rows.size() == static_cast<std::size_t>(Code::Count) && "Remedies: a row is missing");
    return rows;
}

const Remedy& RemedyOf(Code code)
{
    const Remedy& remedy = Remedies()[static_cast<std::size_t>(code)];
    assert(remedy.code == code && "RemedyOf: a row is not in its place");
    return remedy;
}

} // namespace Veld::Quor::Core::Decks
