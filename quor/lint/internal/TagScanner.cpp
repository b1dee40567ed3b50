#include "quor/lint/internal/TagScanner.h"

#include <algorithm>

namespace Veld::Quor::Core::Lint {

bool TagScanner::Next(ScannedTag& tag)
{
    while ((at_ = std::min(text_.find('<', at_), text_.size())) < text_.size()) {
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("<!--"))
            SkipPast("-->");
        else if (rest.starts_with("<![CDATA["))
            SkipPast("]]>");
        else if (rest.starts_with("<?"))
            SkipPast("?>");
        else if (rest.starts_with("</"))
            SkipPast(">");
        else
            break;
    }
    if (at_ >= text_.size())
        return false;

    tag = {};
    tag.span.offset = at_++;
    const Span name = TakeUntil(" \t\r\n/>");
    tag.name = text_.substr(name.offset, name.length);
    tag.span.length = name.length + 1;
    for (;;) {
        at_ = std::min(text_.find_first_not_of(" \t\r\n/", at_), text_.size());
        if (at_ >= text_.size() || text_[at_] == '>')
            return true;
        tag.names.push_back(TakeUntil(" \t\r\n=>"));
        at_ = std::min(text_.find_first_of("\"'>", at_), text_.size());
        const std::string_view quote = text_.substr(at_, 1);
        at_ = std::min(at_ + 1, text_.size());
        tag.values.push_back(TakeUntil(quote));
        at_ = std::min(at_ + 1, text_.size());
    }
}

void TagScanner::SkipPast(std::string_view end)
{
    at_ = std::min(text_.find(end, at_), text_.size());
    at_ = std::min(at_ + end.size(), text_.size());
}

Span TagScanner::TakeUntil(std::string_view stops)
{
    const std::size_t begin = at_;
    at_ = std::min(text_.find_first_of(stops, at_), text_.size());
    return {begin, at_ - begin};
}

} // namespace Veld::Quor::Core::Lint
