#include "tools/quor/commands/StampedFiles.h"

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

std::shared_ptr<const Decks::SourceText> StampedFiles::Open(const std::string& path) const
{
    const FileStamp stamp = StampOf(path);
    auto text = files_.Open(path);
    const std::lock_guard lock(mutex_);
    stamps_.insert(stamp);
    return text;
}

std::set<FileStamp> StampedFiles::GetStamps() const
{
    const std::lock_guard lock(mutex_);
    return stamps_;
}

} // namespace Veld::Quor::Tools
