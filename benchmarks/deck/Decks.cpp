// The program on decks, beside what goes over the same bytes: the conversion of their numbers and nothing
// else.

#include "benchmarks/deck/DeckGenerator.h"
#include "benchmarks/support/Comparison.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace Veld::Quor::Benchmarks {

namespace {

using WriteDeck = void (*)(std::FILE*, std::uint64_t, std::uint64_t);

/// A deck in the folder for temporary files, which must have room for it, for as long as the object lives.
class DeckOnDisk {
public:
    DeckOnDisk(WriteDeck write, std::uint64_t size)
        : path_(
            std::filesystem::temp_directory_path() / ("quor-deck-" + std::to_string(::getpid()) + ".data"))
    {
        std::FILE* const file = std::fopen(path_.c_str(), "w");
        if (!file)
            throw std::runtime_error("can't write '" + path_.string() + "'");
        write(file, size, 1);
        std::fclose(file);
    }
    ~DeckOnDisk() { std::filesystem::remove(path_); }
    DeckOnDisk(const DeckOnDisk&) = delete;
    DeckOnDisk& operator=(const DeckOnDisk&) = delete;

    std::string Path() const { return path_.string(); }
    double Megabytes() const { return static_cast<double>(std::filesystem::file_size(path_)) * 1e-6; }

private:
    std::filesystem::path path_;
};

/// The conversion of all numbers of the file, whose values are kept. What begins with a letter is none.
void ConvertNumbers(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text(std::filesystem::file_size(path), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    std::vector<double> values;
    const char* const end = text.data() + text.size();
    for (const char* position = text.data(); position < end;) {
        double value = 0;
        const auto [stop, error] = fast_float::from_chars(position, end, value);
        if (error == std::errc())
            values.push_back(value);
        position = std::max(stop, position) + 1;
    }
    Keep(values.data());
}

/// A command on a deck, and the ratio that is wanted.
struct Command {
    const char* path;
    const char* words;
    double goal;
};

void CompareCommands(
    const std::string& program, WriteDeck write, std::uint64_t size, const std::vector<Command>& commands)
{
    std::optional<DeckOnDisk> deck; // made for the first row that is wanted
    for (const Command& command : commands) {
        if (!IsWanted({command.path}))
            continue;
        if (!deck)
            deck.emplace(write, size);
        const std::string line = "exec " + program + " " + command.words + " " + deck->Path()
            + (std::string(command.words) == "diff" ? " " + deck->Path() : "") + " >/dev/null 2>&1";
        Compare({command.path, "fast_float on its numbers", command.goal, "ms", deck->Megabytes(),
            [&] { return SecondsOfCommand(line); },
            [&] { return SecondsOf([&] { ConvertNumbers(deck->Path()); }); }, 3});
    }
}

} // namespace

void CompareDecks(const std::string& program)
{
    const std::string tiny = QUOR_SOURCE_DIR "/examples/decks/faulty/three-mistakes.data";
    Compare({"tiny deck: check", "/bin/true", 8, "ms", 1,
        [&] { return SecondsOfCommand("exec " + program + " check " + tiny + " >/dev/null 2>&1"); },
        [] { return SecondsOfCommand("exec /bin/true"); }});
    CompareCommands(program, WriteRecordDeck, 300'000,
        {{"300,000 records: check, a MB", "check", 2.6}, {"300,000 records: info, a MB", "info", 3.2},
            {"300,000 records: format, a MB", "format", 3.8},
            {"300,000 records: diff with itself, a MB", "diff", 4.8}});
    CompareCommands(program, WriteCellDeck, 10'000'000,
        {{"10 million cells: check, a MB", "check", 0.72}, {"10 million cells: info, a MB", "info", 1.3},
            {"10 million cells: format, a MB", "format", 2.6},
            {"10 million cells: diff with itself, a MB", "diff", 1.3}});
}

} // namespace Veld::Quor::Benchmarks
