#include "tools/quor/check/DeckFixes.h"

#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckSource.h"
#include "tools/quor/commands/StampedFiles.h"
#include "tools/quor/commands/WriteFiles.h"

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

using EditsByFile = std::map<std::uint32_t, std::vector<Decks::TextEdit>>;

bool Overlap(const Decks::TextRange& a, const Decks::TextRange& b)
{
    return a.offset <= b.offset + b.length && b.offset <= a.offset + a.length; // also if they touch
}

/// Whether the fix can be made beside the others.
bool IsApart(const std::vector<Decks::TextEdit>& fix, const EditsByFile& edits)
{
    return std::all_of(fix.begin(), fix.end(), [&edits](const Decks::TextEdit& edit) {
        const auto others = edits.find(edit.range.file);
        return others == edits.end()
            || std::none_of(others->second.begin(), others->second.end(),
                [&edit](const Decks::TextEdit& other) { return Overlap(edit.range, other.range); });
    });
}

/// A keyword that is near another one may be one that the language doesn't have.
bool IsGuess(const Decks::Finding& finding)
{
    return finding.code == "unknown-keyword";
}

/// The changes of a deck's files, in memory until all are known.
class Fixer {
public:
    Fixer(const Decks::ReadOptions& options, const Decks::DeckLanguage& language)
        : files_(std::make_shared<StampedFiles>())
        , source_(std::make_shared<Decks::MemorySource>(files_))
        , options_(Decks::ReadOptions(options).SetSource(source_))
        , language_(language)
    {
    }

    DeckFixes Run(const std::string& path)
    {
        constexpr int mostRounds = 10; // a fix may show what else is to be fixed
        for (int round = 0; round < mostRounds; ++round) {
            const Decks::Deck deck = Decks::Deck::Read(path, language_, options_);
            const std::size_t errors = deck.GetFindings().GetCount(Decks::Severity::Error);
            if (errors > errors_) // Wanted: what is certain is checked all the same
                throw std::runtime_error("the fixed deck '" + path + "' has new errors; nothing was written");
            errors_ = errors;
            if (!FixOnce(deck))
                break;
        }
        Write();
        return {findings_, texts_.size()};
    }

private:
    bool FixOnce(const Decks::Deck& deck)
    {
        EditsByFile edits;
        for (const Decks::Finding& finding : deck.GetFindings()) {
            const bool isOutside = deck.GetFiles().Get(finding.range.file).isOutside;
            if (finding.fix.empty() || isOutside || IsGuess(finding) || !IsApart(finding.fix, edits))
                continue;
            ++findings_;
            for (const Decks::TextEdit& edit : finding.fix)
                edits[edit.range.file].push_back(edit);
        }
        for (auto& [index, ofFile] : edits) {
            const Decks::DeckFile& file = deck.GetFiles().Get(index);
            std::string text(file.text->GetMark());
            text += Decks::ApplyEdits(file.text->GetText(), std::move(ofFile));
            source_->Set(file.name, text);
            texts_.insert_or_assign(file.name, std::move(text));
        }
        return !edits.empty();
    }

    void Write() const
    {
        std::vector<FileText> files;
        for (const auto& [path, text] : texts_)
            files.push_back({path, text});
        if (!ReplaceFilesOrReport(files, files_->GetStamps()))
            throw std::runtime_error("not all fixes were written");
    }

    std::shared_ptr<StampedFiles> files_;
    std::shared_ptr<Decks::MemorySource> source_; // those and what was changed of them
    Decks::ReadOptions options_;
    const Decks::DeckLanguage& language_;
    std::map<std::string, std::string> texts_; // by path
    std::size_t findings_ = 0;
    std::size_t errors_ = static_cast<std::size_t>(-1);
};

} // namespace

DeckFixes FixDeck(
    const std::string& path, const Decks::ReadOptions& options, const Decks::DeckLanguage& language)
{
    return Fixer(options, language).Run(path);
}

} // namespace Veld::Quor::Tools
