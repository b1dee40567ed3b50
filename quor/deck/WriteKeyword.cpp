#include "quor/deck/WriteKeyword.h"

#include "quor/data/IKeywordData.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/WritableValues.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/write/DataWriter.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

std::string WriteKeyword(const Keywords::IKeywordData& data, const Target& target)
{
    const std::string& name = data.GetSyntax()->GetName();
    if (data.GetMD() != data.GetSyntax()->GetDataMD())
        throw EditError(fmt::format("{}: expected the data of the whole keyword, not a part of them", name));
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
