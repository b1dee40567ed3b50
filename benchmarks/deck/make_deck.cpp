#include "benchmarks/deck/DeckGenerator.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
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

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Writes a deck of a given size that quor check has nothing to say about.");
    std::string path;
    std::uint64_t cells = 0;
    std::uint64_t records = 0;
    std::uint64_t seed = 1;
    auto& size = *app.add_option_group("Size", "One of these");
    size.add_option("--cells", cells, "Values of three arrays of cells altogether")
        ->check(CLI::Range(leastDeck, largestCellDeck));
    size.add_option("--records", records, "Records of the SCHEDULE section altogether")
        ->check(CLI::Range(leastDeck, largestRecordDeck));
    size.require_option(1);
    app.add_option("--seed", seed, "Another seed gives other numbers");
    app.add_option("FILE", path, "The deck")->required();
    CLI11_PARSE(app, argc, argv);

    try {
        NewFile file(path);
        if (cells > 0)
            WriteCellDeck(file.Get(), cells, seed);
        else
            WriteRecordDeck(file.Get(), records, seed);
        file.Finish();
    } catch (const std::exception& error) {
        fmt::print(stderr, "make-deck: error: can't write '{}': {}\n", path, error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
