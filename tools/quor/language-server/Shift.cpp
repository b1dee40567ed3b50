#include "tools/quor/language-server/Shift.h"

#include <algorithm>

namespace Veld::Quor::Tools::LanguageServer {

std::optional<ByteRange> Shift::ToNow(ByteRange range) const
{
    if (!isKnown_)
        return std::nullopt;
    for (const ByteEdit& edit : edits_) {
        if (edit.offset >= range.GetEnd())
            continue;
        if (edit.offset + edit.removed > range.offset)
            return std::nullopt;
        range.offset = range.offset - edit.removed + edit.inserted;
    }
    return range;
}

std::optional<ByteRange> Shift::ToNowAround(ByteRange range) const
{
    if (!isKnown_)
        return std::nullopt;
    for (const ByteEdit& edit : edits_) {
        const std::size_t end = edit.offset + edit.removed;
        if (edit.offset >= range.GetEnd())
            continue;
        if (end <= range.offset)
            range.offset = range.offset - edit.removed + edit.inserted;
        else if (edit.offset >= range.offset && end <= range.GetEnd())
            range.length = range.length - edit.removed + edit.inserted;
        else
            return std::nullopt;
    }
    return range;
}

std::optional<std::size_t> Shift::ToThen(std::size_t offset) const
{
    if (!isKnown_)
        return std::nullopt;
    for (auto edit = edits_.rbegin(); edit != edits_.rend(); ++edit) {
        if (offset >= edit->offset + edit->inserted)
            offset = offset - edit->inserted + edit->removed;
        else if (offset > edit->offset)
            offset = edit->offset;
    }
    return offset;
}

} // namespace Veld::Quor::Tools::LanguageServer
