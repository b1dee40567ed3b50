#pragma once

#include "tools/quor/check/DeckResult.h"
#include "tools/quor/findings/FindingFormat.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// What the report in a format says of one deck. `isQuiet`: findings alone.
nlohmann::ordered_json PartOf(const CheckedDeck& deck, FindingFormat format, bool isQuiet);

/// The report on all decks: made of their parts, in the order in which they are added. What a format can say
/// deck by deck is printed at once. Failures are printed on standard error too.
class CheckReport {
public:
    CheckReport(FindingFormat format, bool isQuiet);

    void Add(DeckResult result);
    /// What is wrong with the run, not with a deck.
    void AddFailure(const std::string& message);
    /// Prints the end. The formats for programs are never without a text.
    void End();

    /// Of the program: a failure before errors before warnings.
    ExitStatus GetStatus() const { return status_; }

private:
    struct FailureRow {
        std::string deck; // empty: of the run
        std::string message;
    };

    void PrintJson() const;
    void PrintSarif();
    void PrintJUnit() const;
    void PrintTotal() const;
    void PrintFailure(const FailureRow& failure) const;

    FindingFormat format_;
    bool isQuiet_;
    ExitStatus status_ = Success;
    std::size_t decks_ = 0;
    nlohmann::ordered_json counts_; // of all decks
    std::vector<nlohmann::ordered_json> parts_; // of formats that are printed at the end
    std::vector<FailureRow> failures_;
};

} // namespace Veld::Quor::Tools
