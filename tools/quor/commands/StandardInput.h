#pragma once

#include "quor/deck/DeckSource.h"
#include "quor/deck/ReadOptions.h"

#include <memory>
#include <mutex>
#include <string>

namespace Veld::Quor::Tools {

/// The files of the system, and standard input as the text of a deck. It is read once, when it is asked for.
class StandardInput : public Core::Decks::DeckSource {
public:
    /// `name`: the path by which findings name it, and relative to which it includes files.
    explicit StandardInput(std::string name = "<stdin>");

    const std::string& GetName() const { return name_; }

    std::string Identify(const std::string& path) const override;
    std::shared_ptr<const Core::Decks::SourceText> Open(const std::string& path) const override;

private:
    std::string name_;
    Core::Decks::FileSource files_;
    mutable std::once_flag once_;
    mutable std::shared_ptr<const Core::Decks::SourceText> text_;
};

/// The path that stands for standard input on a command line.
constexpr const char* standardInputPath = "-";

/// The path by which a deck of the command line is read: of "-" the name that the options give it.
std::string NameOfDeck(const std::string& path, const Core::Decks::ReadOptions& options);

} // namespace Veld::Quor::Tools
