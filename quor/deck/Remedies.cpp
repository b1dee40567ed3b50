#include "quor/deck/FindingCodes.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// One row for each code, in the order of the codes.
const std::vector<Remedy>& Remedies()
{
    constexpr Target carrow{SimulatorType::Carrow, SimulatorModeType::Any};
    constexpr Target dunmereBlackOil{SimulatorType::Dunmere, SimulatorModeType::BlackOil};
    static const std::vector<Remedy> rows = {
        {Code::UnknownKeyword,
            "Correct the spelling. If the word is data, indent it, or add the missing slash before it.",
            "RUNSPEC\nOILL\n", "RUNSPEC\nOIL\n"},
        {Code::LowerCase, "Write keywords in upper case.", "RUNSPEC\nOil\n", "RUNSPEC\nOIL\n"},
        {Code::StrayText,
            "Remove the text, or turn it into a comment with '--'. Each keyword is on its own line.",
            "RUNSPEC\nOIL WATER\n", "RUNSPEC\nOIL\nWATER\n"},
        {Code::NoSection,
            "Start the deck with RUNSPEC, and put each keyword after the keyword of its section.", "OIL\n",
            "RUNSPEC\nOIL\n"},
        {Code::SectionOrder,
            "Put the sections in this order, each of them once: RUNSPEC, GRID, EDIT, PROPS, REGIONS, "
            "SOLUTION, SUMMARY, SCHEDULE.",
            "RUNSPEC\nPROPS\nGRID\n", "RUNSPEC\nGRID\nPROPS\n"},
        {Code::WrongSection, "Move the keyword to a section where it is valid.", "RUNSPEC\nGRID\nOIL\n",
            "RUNSPEC\nOIL\nGRID\n"},
        {Code::WrongSimulator,
            "Use a keyword of the simulator, or put this one into a block that the simulator skips.",
            "RUNSPEC\nCOMPS\n 3 /\n", "RUNSPEC\nSKIPCAR\nCOMPS\n 3 /\nENDSKIP\n", carrow},
        {Code::WrongMode, "Remove the keyword, or run the deck in another mode.", "RUNSPEC\nCOMPS\n 3 /\n",
            "RUNSPEC\nOIL\n", dunmereBlackOil},
        {Code::MissingPrecedent, "Add the required keyword before this one.",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nEDIT\nDIFFX\n 2*0.5 /\n",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nDIFFUSE\nEDIT\nDIFFX\n 2*0.5 /\n"},
        {Code::TooFewValues, "Add the missing values before the slash.", "RUNSPEC\nDIMENS\n 10 10 /\n",
            "RUNSPEC\nDIMENS\n 10 10 3 /\n"},
        {Code::TooManyValues,
            "Remove the extra values. If a slash is missing, the next record is read as a part of this one.",
            "RUNSPEC\nDIMENS\n 2 2 1 1 /\n", "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::NoDefault, "Write a value: the item has no default.", "RUNSPEC\nDIMENS\n 10 1* 3 /\n",
            "RUNSPEC\nDIMENS\n 10 10 3 /\n"},
        {Code::WrongType,
            "Write a value of the type of the item. If the values before it look right, one of them may be "
            "missing or extra.",
            "RUNSPEC\nDIMENS\n 2 two 1 /\n", "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::OutOfRange, "Write a value within the limits. Check that it is in the units of the deck.",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nPORO\n 23 /\n",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nPORO\n 0.23 /\n"},
        {Code::ColumnOrder, "Put the rows in order, and check the values of the column.",
            "PROPS\nPVDO\n 200 1.20 1.8\n 100 1.10 2.0 /\n", "PROPS\nPVDO\n 100 1.20 1.8\n 200 1.10 2.0 /\n"},
        {Code::WrongSize, "Write as many values as the sizes of the deck require, or correct the sizes.",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 3*0.2 /\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 4*0.2 /\n"},
        {Code::BadRepeat,
            "Write a repeat count of at least 1, an asterisk and a value. A name in a list of names can't "
            "have a repeat count.",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 0*0.2 3*0.2 /\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\nGRID\nPORO\n 4*0.2 /\n"},
        {Code::LongText, "Shorten the text. Texts with the same beginning are read as equal.",
            "SCHEDULE\nWELSPECS\n 'PRODUCER-1' 'G' 1 1 2000 OIL /\n/\n",
            "SCHEDULE\nWELSPECS\n 'PROD-1' 'G' 1 1 2000 OIL /\n/\n"},
        {Code::NotAChoice, "Write one of the values of the item.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OLI /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\n"},
        {Code::AbbreviatedWord, "Write the full word. An abbreviation can become ambiguous.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 WATE /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 WATER /\n/\n"},
        {Code::DeprecatedWord, "Write the current name of the value.",
            "SCHEDULE\nWCONPROD\n 'P1' CLOSED /\n/\n", "SCHEDULE\nWCONPROD\n 'P1' SHUT /\n/\n"},
        {Code::ChoiceNotValid, "Choose a value that is valid for the simulator.",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN CRAT /\n/\n", "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT 100 /\n/\n",
            carrow},
        {Code::ChoiceUnsupported, "Choose another value, or accept that this one has no effect.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL 5* AVG /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\n", carrow},
        {Code::ItemNotValid, "Write 1* instead of the value.",
            "SOLUTION\nEQUIL\n 2000 200 2100 0 1500 0 0 0 0 1 /\n",
            "SOLUTION\nEQUIL\n 2000 200 2100 0 1500 0 0 0 0 1* /\n", dunmereBlackOil},
        {Code::ItemUnsupported, "Remove the value, or accept that it has no effect.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\nCOMPDAT\n 'P1' 1 1 1 1 OPEN 1* 1* 0.2 1* 0 "
            "0.01 /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\nCOMPDAT\n 'P1' 1 1 1 1 OPEN 1* 1* 0.2 1* 0 "
            "/\n/\n",
            carrow},
        {Code::UnknownName, "Correct the name.", "GRID\nRPTGRID\n POROSTY /\n", "GRID\nRPTGRID\n PORO /\n"},
        {Code::UnknownVariable, "Give the variable a value, or correct its name.",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT $PLATEAU /\n/\n",
            "SCHEDULE\nWCONPROD\n 'P1' OPEN ORAT 500 /\n/\n"},
        {Code::BadDate, "Correct the day, the month or the year.", "SCHEDULE\nDATES\n 31 FEB 2030 /\n/\n",
            "SCHEDULE\nDATES\n 28 FEB 2030 /\n/\n"},
        {Code::DateOrder, "Put the dates in order, after the start of the run.",
            "SCHEDULE\nDATES\n 1 JUN 2030 /\n 1 MAY 2030 /\n/\n",
            "SCHEDULE\nDATES\n 1 MAY 2030 /\n 1 JUN 2030 /\n/\n"},
        {Code::UnclosedData,
            "Add a slash after the last value of a record. A list of records also ends with a slash on a "
            "separate line.",
            "RUNSPEC\nDIMENS\n 2 2 1\nOIL\n", "RUNSPEC\nDIMENS\n 2 2 1 /\nOIL\n"},
        {Code::UnclosedQuote, "Close the quote on its line, with the same character that opens it.",
            "SCHEDULE\nWELOPEN\n 'P1\n /\n/\n", "SCHEDULE\nWELOPEN\n 'P1'\n /\n/\n"},
        {Code::UnclosedText, "Add the end word at the start of a line after the text.",
            "RUNSPEC\nNOTES\nA model of one well.\n", "RUNSPEC\nNOTES\nA model of one well.\nENDNOTES\n"},
        {Code::UnclosedSkip, "Add ENDSKIP after the block, in the same file.", "RUNSPEC\nSKIP\nOIL\n",
            "RUNSPEC\nSKIP\nOIL\nENDSKIP\n"},
        {Code::UnclosedScope, "Add the closing keyword in the same section.",
            "SCHEDULE\nACTIONX\n A 1 /\n FWCT > 0.9 /\n/\n",
            "SCHEDULE\nACTIONX\n A 1 /\n FWCT > 0.9 /\n/\nENDACTIO\n"},
        {Code::StrayEnd, "Remove the keyword, or add the opening keyword before it.", "SCHEDULE\nENDACTIO\n",
            "SCHEDULE\nACTIONX\n A 1 /\n FWCT > 0.9 /\n/\nENDACTIO\n"},
        {Code::StrayEndskip, "Remove the keyword, or add the start of the block before it, in the same file.",
            "RUNSPEC\nOIL\nENDSKIP\n", "RUNSPEC\nSKIP\nOIL\nENDSKIP\n"},
        {Code::StrayEndinc, "Remove the keyword. Use END to end a deck.", "RUNSPEC\nENDINC\n",
            "RUNSPEC\nEND\n"},
        {Code::IncludeName, "Write the name in quotes after INCLUDE, followed by a slash.",
            "RUNSPEC\nINCLUDE\n/\n", ""},
        {Code::IncludeMissing,
            "Correct the name, or add the file. A relative name starts from the folder of the deck, in an "
            "included file too.",
            "RUNSPEC\nINCLUDE\n 'no-such-file.inc' /\n", ""},
        {Code::IncludeLoop, "Remove the inclusion.", "", ""},
        {Code::IncludeDepth, "Include the files from the deck itself instead of from one another.", "", ""},
        {Code::IncludeCount, "Combine files, so that fewer are included.", "", ""},
        {Code::UnknownAlias, "Define the alias with PATHS before it is used, or correct its name.",
            "RUNSPEC\nINCLUDE\n '$GRIDS/a.inc' /\n", ""},
        {Code::Encoding, "Save the file as plain text or UTF-8.", "", ""},
        {Code::BadSilence,
            "Write '-- quor: off CODE', or '-- quor: begin-off CODE' and '-- quor: end-off CODE'.",
            "RUNSPEC\nOIL -- quor: off wrong-sektion\n", "RUNSPEC\nOIL -- quor: off wrong-section\n"},
        {Code::RemarkText, "Write '--' before the remark.", "RUNSPEC\nOIL is a phase\n",
            "RUNSPEC\nOIL -- is a phase\n"},
        {Code::ExtraSlash, "Remove the slash.", "RUNSPEC\nDIMENS\n 2 2 1 /\n/\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::IndentedKeyword, "Start the keyword in the first column.", "RUNSPEC\n  OIL\n",
            "RUNSPEC\nOIL\n"},
        {Code::PaddedText, "Remove the blanks.", "SCHEDULE\nWELSPECS\n 'P1  ' 'G' 1 1 2000 OIL /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\n"},
        {Code::BlankText, "Write '1*' for a default.", "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 ' ' OIL /\n/\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 1* OIL /\n/\n"},
        {Code::ExtraDefault, "Remove the defaults after the last item.", "RUNSPEC\nDIMENS\n 2 2 1 3* /\n",
            "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::OldForm, "Write the names of what is wanted.", "GRID\nRPTGRID\n 1 0 2*1 /\n",
            "GRID\nRPTGRID\n PORO /\n"},
        {Code::QuotedAssignment, "Remove the quotes.", "SCHEDULE\nRPTSCHED\n 'FIP = 1' /\n",
            "SCHEDULE\nRPTSCHED\n FIP=1 /\n"},
        {Code::ImplicitEnd, "Add the closing keyword.", "GRID\nBOX\n 1 1 1 1 1 1 /\n",
            "GRID\nBOX\n 1 1 1 1 1 1 /\nENDBOX\n"},
        {Code::UnclosedList, "Add a line with a slash after the last record.",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\nTSTEP\n 1 /\n",
            "SCHEDULE\nWELSPECS\n 'P1' 'G' 1 1 2000 OIL /\n/\nTSTEP\n 1 /\n"},
        {Code::LongKeyword, "Write the keyword with 8 characters.", "SCHEDULE\nWCONPRODS\n/\n",
            "SCHEDULE\nWCONPROD\n/\n"},
        {Code::CommaInNumber, "Write a decimal point, or a blank between two values.",
            "RUNSPEC\nDIMENS\n 2,2 2 1 /\n", "RUNSPEC\nDIMENS\n 2 2 1 /\n"},
        {Code::OddCharacter, "Write the plain character.", "SCHEDULE\nWELOPEN\n \xE2\x80\x98P1' /\n/\n",
            "SCHEDULE\nWELOPEN\n 'P1' /\n/\n"},
        {Code::TextAfterKeyword, "Write '--' before the remark, and data on the next line.",
            "RUNSPEC\nDIMENS of the grid\n 2 2 1 /\n", "RUNSPEC\nDIMENS -- of the grid\n 2 2 1 /\n"},
        {Code::RepeatedDate, "Remove the date, or correct it.",
            "SCHEDULE\nDATES\n 1 MAY 2030 /\n 1 MAY 2030 /\n/\n", "SCHEDULE\nDATES\n 1 MAY 2030 /\n/\n"},
    };
    assert(rows.size() == static_cast<std::size_t>(Code::Count) && "Remedies: a row is missing");
    return rows;
}

} // namespace

const Remedy& RemedyOf(Code code)
{
    const Remedy& remedy = Remedies()[static_cast<std::size_t>(code)];
    assert(remedy.code == code && "RemedyOf: a row is not in its place");
    return remedy;
}

} // namespace Veld::Quor::Core::Decks
