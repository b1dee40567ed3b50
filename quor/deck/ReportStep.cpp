#include "quor/deck/ReportStep.h"

#include <string_view>

namespace Veld::Quor::Core::Decks {

std::string DateText(const Service::Time& time)
{
    std::string text = time.GetAsString();
    for (const std::string_view nothing : {".000", " 00:00:00"}) {
        if (text.ends_with(nothing))
            text.resize(text.size() - nothing.size());
    }
    return text;
}

} // namespace Veld::Quor::Core::Decks
