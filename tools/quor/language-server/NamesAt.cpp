#include "tools/quor/language-server/NamesAt.h"

#include <set>

namespace Veld::Quor::Tools::LanguageServer {

std::vector<std::uint32_t> NamesAt(const View& view, std::size_t offset)
{
    const auto then = view.ToThen(offset);
    if (!then)
        return {};
    const NameIndex& index = view.GetState().GetNames();
    std::set<std::uint32_t> names;
    for (const std::uint32_t use : index.FindAt(view.file, *then)) {
        if (!view.ToNow(index.GetUses()[use].range))
            return {}; // the word was changed since
        for (const std::uint32_t name : index.FindSame(use))
            names.insert(name);
    }
    return {names.begin(), names.end()};
}

} // namespace Veld::Quor::Tools::LanguageServer
