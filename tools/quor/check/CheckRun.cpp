#include "tools/quor/check/CheckRun.h"

#include "tools/quor/check/DeckChecker.h"
#include "tools/quor/check/DeckWorkers.h"
#include "tools/quor/check/ResumeFile.h"
#include "tools/quor/terminal/ProgressBar.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace Veld::Quor::Tools {

namespace {

/// Hands results over in order.
class InOrder {
public:
    explicit InOrder(const std::function<void(DeckResult)>& take)
        : take_(take)
    {
    }

    void Add(std::size_t index, DeckResult result)
    {
        waiting_.emplace(index, std::move(result));
        for (auto first = waiting_.begin(); first != waiting_.end() && first->first == next_;
             first = waiting_.erase(first), ++next_)
            take_(std::move(first->second));
    }

private:
    const std::function<void(DeckResult)>& take_;
    std::map<std::size_t, DeckResult> waiting_;
    std::size_t next_ = 0;
};

} // namespace

void CheckDecks(LoadedLanguage& language, const CheckOptions& options, const std::vector<std::string>& decks,
    const std::function<void(DeckResult)>& take)
{
    DeckChecker checker(language, options);
    if (options.isFixing || (decks.size() == 1 && options.resumeFile.empty())) {
        for (const std::string& deck : decks) // Wanted: decks that are fixed one by one may share files
            take(checker.Check(deck));
        return;
    }
    std::optional<ResumeFile> file;
    if (!options.resumeFile.empty())
        file.emplace(options.resumeFile, options);
    InOrder inOrder(take);
    std::vector<std::size_t> left;
    for (std::size_t i = 0; i < decks.size(); ++i) {
        std::optional<DeckResult> known = file ? file->Take(decks[i]) : std::nullopt;
        if (known)
            inOrder.Add(i, std::move(*known));
        else
            left.push_back(i);
    }
    ProgressBar bar;
    std::size_t done = 0;
    DeckWorkers workers(std::min(options.jobs, left.size()),
        [&checker](const std::string& deck) { return checker.Check(deck, false); });
    workers.Run(
        decks, left,
        [&](std::size_t index, DeckResult result) {
            ++done;
            bar.Hide();
            if (file)
                file->Add(decks[index], result);
            inOrder.Add(index, std::move(result));
        },
        [&] { bar.ShowDecks(done, left.size()); });
    if (file)
        file->Remove();
}

} // namespace Veld::Quor::Tools
