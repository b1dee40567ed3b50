#include "benchmarks/deck/DeckGenerator.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

using namespace Veld::Quor::Benchmarks;

namespace {

/// A file that has its name only once it is whole; what else there is of it goes.
class NewFile {
public:
    explicit NewFile(const std::string& path)
        : path_(path)
        , part_(path + ".part")
        , file_(std::fopen(part_.c_str(), "wb"))
    {
        if (!file_)
            throw std::system_error(errno, std::generic_category());
    }
    ~NewFile()
    {
        if (file_)
            std::fclose(file_);
        if (!hasName_)
            std::remove(part_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    std::FILE* Get() const { return file_; }
    void Finish()
    {
        const bool isClosed = std::fclose(std::exchange(file_, nullptr)) == 0;
        hasName_ = isClosed && std::rename(part_.c_str(), path_.c_str()) == 0;
        if (!hasName_)
            throw std::system_error(errno, std::generic_category());
    }

private:
    std::string path_;
    std::string part_;
    std::FILE* file_;
    bool hasName_ = false;
};

struct Options {
    std::string path;
    std::uint64_t cells = 0;
    std::uint64_t records = 0;
    std::uint64_t seed = 1;
};

void Add(CLI::App& app, Options& options)
{
    auto& size = *app.add_option_group("Size", "How large the deck is to be");
    size.add_option("--cells", options.cells, "Values of three arrays of cells altogether")
        ->check(CLI::Range(leastDeck, largestCellDeck));
    size.add_option("--records", options.records, "Records of the SCHEDULE section altogether")
        ->check(CLI::Range(leastDeck, largestRecordDeck));
    size.require_option(1);
    app.add_option("--seed", options.seed, "Another seed gives other numbers");
    app.add_option("FILE", options.path, "The deck")->required();
}

void MakeDeck(const Options& options)
try {
    NewFile file(options.path);
    if (options.cells > 0)
        WriteCellDeck(file.Get(), options.cells, options.seed);
    else
        WriteRecordDeck(file.Get(), options.records, options.seed);
    file.Finish();
} catch (const std::system_error& error) {
    throw std::runtime_error(fmt::format("can't write '{}': {}", options.path, error.what()));
}

} // namespace

int main(int argc, char** argv)
try {
    CLI::App app("Writes a deck of a given size that quor check has nothing to say about.");
    Options options;
    Add(app, options);
    CLI11_PARSE(app, argc, argv);
    MakeDeck(options);
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::fprintf(stderr, "make-deck: error: %s\n", error.what());
    return EXIT_FAILURE;
}
