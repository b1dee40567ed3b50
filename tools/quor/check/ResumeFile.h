#pragma once

#include "tools/quor/check/CheckOptions.h"
#include "tools/quor/check/DeckResult.h"

#include <map>
#include <optional>
#include <string>

namespace Veld::Quor::Tools {

/// The results of a run so far, in a file, so that another run of the same command continues where this one
/// was ended. A result that was cut short when the program was killed is dropped.
class ResumeFile {
public:
    /// Reads the file if there is one. Throws `std::runtime_error` if it can't be read or written, or is of a
    /// check with other options.
    ResumeFile(const std::string& path, const CheckOptions& options);
    ~ResumeFile();
    ResumeFile(const ResumeFile&) = delete;
    ResumeFile& operator=(const ResumeFile&) = delete;

    /// The result of a deck whose main file has not changed since; empty if it is to be checked.
    std::optional<DeckResult> Take(const std::string& deck);
    void Add(const std::string& deck, const DeckResult& result);
    /// The run is complete.
    void Remove();

private:
    void Load(const std::string& header);
    [[noreturn]] void FailOn(const std::string& what) const;

    std::string path_;
    int file_ = -1;
    std::map<std::string, DeckResult> results_; // by deck and what is known of its file
};

} // namespace Veld::Quor::Tools
