#include "quor/metadata/NumericFormatting.h"

#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"

#include <map>
#include <optional>

namespace Veld::Quor::Core::Keywords {

namespace {

/// The formats from before the first change, by item; empty where the item had none.
std::map<const void*, std::optional<std::string>>& EarlierFormats()
{
    static auto& formats = *new std::map<const void*, std::optional<std::string>>;
    return formats;
}

template <class Impl, class Interface>
void SetFormat(const Interface& item, const std::string& format)
{
    const auto* const found = dynamic_cast<const Impl*>(&item);
    if (!found)
        throw KeywordException("setCustomFormattingTmpl: unhandled type");
    Impl& impl = const_cast<Impl&>(*found); // Wanted: metadata are read-only but for this.
    auto& formats = EarlierFormats();
    if (!format.empty()) {
        const std::string* const current = impl.GetFormatting();
        formats.try_emplace(&impl, current ? std::optional<std::string>(*current) : std::nullopt);
        impl.SetFormatting(format);
        return;
    }
    const auto at = formats.find(&impl);
    if (at == formats.end())
        return;
    if (at->second)
        impl.SetFormatting(*at->second);
    else
        impl.ResetFormatting();
    formats.erase(at);
}

} // namespace

const std::string* NumericFormatting::GetFormatting(const IKeywordNumericMD& item)
{
    return item.GetFormatting();
}

void NumericFormatting::SetCustomFormatting(const IKeywordIntegerMD& item, const std::string& format)
{
    SetFormat<KeywordIntegerMDImpl>(item, format);
}

void NumericFormatting::SetCustomFormatting(const IKeywordRealMD& item, const std::string& format)
{
    SetFormat<KeywordRealMDImpl>(item, format);
}

} // namespace Veld::Quor::Core::Keywords
