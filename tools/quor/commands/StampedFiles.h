#pragma once

#include "quor/deck/DeckSource.h"
#include "tools/quor/terminal/FileOutput.h"

#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace Veld::Quor::Tools {

/// The files of the system, and what they were like when they were read, so that a change of another program
/// isn't overwritten.
class StampedFiles : public Core::Decks::DeckSource {
public:
    std::string Identify(const std::string& path) const override { return files_.Identify(path); }
    std::shared_ptr<const Core::Decks::SourceText> Open(const std::string& path) const override;

    /// Of all files that were read.
    std::set<FileStamp> GetStamps() const;

private:
    Core::Decks::FileSource files_;
    mutable std::mutex mutex_;
    mutable std::set<FileStamp> stamps_;
};

} // namespace Veld::Quor::Tools
