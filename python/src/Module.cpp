#include "python/src/Binding.h"

#include "quor/foundation/LibProperties.h"

namespace Veld::Quor::Python {

PYBIND11_MODULE(_core, module)
{
    module.doc() = "The classes of decks, for the package around them.";
    BindErrors(module);
    BindReading(module);
    BindRecords(module);
    BindKeywords(module);
    BindDeck(module);
    BindColumns(module);
    BindEditing(module);
    BindBuilding(module);
    BindComparing(module);
    BindLanguage(module);
}

} // namespace Veld::Quor::Python
