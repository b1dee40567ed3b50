#pragma once

#include "quor/deck/DeckSource.h"
#include "quor/deck/ReadOptions.h"

#include <memory>
#include <mutex>
#include <string>

namespace Veld::Quor::Tools {

/// How standard input is called without a name.
constexpr const char* standardInputName = "<stdin>";
/// The path that stands for standard input on a command line.
constexpr const char* standardInputPath = "-";

/// The files of the system, and standard input as the text of a deck. It is read once, when it is asked for.
class StandardInput : public Core::Decks::DeckSource {
public:
    /// `name`: the path by which findings name it, and relative to which it includes files.
    explicit StandardInput(std::string name = standardInputName);

    void SetName(const std::string& name) { name_ = name; }
    /// The folder that decks are taken to be in; empty: their own.
    void SetDeckFolder(const std::string& folder) { deckFolder_ = folder; }
    /// The path by which a deck of the command line is read.
    std::string NameOf(const std::string& path) const;

    std::string Identify(const std::string& path) const override;
    std::shared_ptr<const Core::Decks::SourceText> Open(const std::string& path) const override;

private:
    bool IsIt(const std::string& path) const;

    std::string name_;
    std::string deckFolder_;
    Core::Decks::FileSource files_;
    mutable std::once_flag once_;
    mutable std::shared_ptr<const Core::Decks::SourceText> text_;
};

/// The files of the system, and a deck that is taken to be elsewhere, so that its inclusions are found there.
class MovedDeck : public Core::Decks::DeckSource {
public:
    /// `name`: the path by which the deck is read; `path`: where it is.
    MovedDeck(std::string name, std::string path);

    std::string Identify(const std::string& path) const override;
    std::shared_ptr<const Core::Decks::SourceText> Open(const std::string& path) const override;

private:
    std::string name_;
    std::string path_;
    Core::Decks::FileSource files_;
};

/// The path by which a deck of the command line is read: of "-" the name that the options give it, in the
/// folder that they give.
std::string NameOfDeck(const std::string& path, const Core::Decks::ReadOptions& options);

} // namespace Veld::Quor::Tools
