#include "quor/deck/WriteKeyword.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordData.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/WritableValues.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/DataWriter.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

namespace {

/// A text that nobody parses, up to a line with the word that ends it.
std::string WriteRaw(const std::string& name, const Keywords::IKeywordRawData& data)
{
    const std::string& end =
        static_cast<const Keywords::IKeywordRawMD&>(*data.GetMD()).GetTerminationString();
    std::string text = data.GetData();
    if (!text.empty() && !text.ends_with('\n'))
        text += '\n';
    LineReader lines(text);
    for (Line line; lines.Next(line);) {
        if (ToUpper(FindLeadingWord(line.text)) == ToUpper(end))
            throw EditError(fmt::format("{}: a line of the text is '{}', which ends it", name, end));
    }
    return fmt::format("{}\n{}{}\n", name, text, end);
}

} // namespace

std::string WriteKeyword(const Keywords::IKeywordData& data, const Target& target)
{
    const std::string& name = data.GetSyntax()->GetName();
    if (data.GetMD() != data.GetSyntax()->GetDataMD())
        throw EditError(fmt::format("{}: expected the data of the whole keyword, not a part of them", name));
    if (data.GetMD()->GetType() == Keywords::IKeywordDataMD::MDType::Raw)
        return WriteRaw(name, Keywords::AsRaw(data));
    DataPlans plans(target);
    const DataPlan& plan = plans.Get(*data.GetMD());
    const DeckFiles noFiles;
    try {
        CheckValues(plan, data);
        return DataWriter(plan, nullptr, noFiles).Write(name, data, false) + '\n';
    } catch (const std::invalid_argument& error) {
        throw EditError(fmt::format("{}: {}", name, error.what()));
    }
}

} // namespace Veld::Quor::Core::Decks
