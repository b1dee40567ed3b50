#include "benchmarks/deck/DeckGenerator.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace Veld::Quor::Benchmarks {

namespace {

/// Text on its way to a file, in large pieces.
class Output {
public:
    explicit Output(std::FILE* file)
        : file_(file)
    {
    }

    template <class... Values>
    void Write(fmt::format_string<Values...> format, Values&&... values)
    {
        fmt::format_to(std::back_inserter(buffer_), format, std::forward<Values>(values)...);
        if (buffer_.size() >= pieceSize)
            Flush();
    }

    void Flush()
    {
        if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()
            || std::fflush(file_) != 0)
            throw std::system_error(errno, std::generic_category());
        buffer_.clear();
    }

private:
    static constexpr std::size_t pieceSize = std::size_t(1) << 20;

    std::FILE* file_;
    fmt::memory_buffer buffer_;
};

/// Distributions of the standard library differ from one to the next; this doesn't.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : engine_(seed)
    {
    }

    std::uint64_t Between(std::uint64_t least, std::uint64_t most)
    {
        return least + engine_() % (most - least + 1);
    }

private:
    std::mt19937_64 engine_;
};

void RequireSize(std::uint64_t size, std::uint64_t most)
{
    if (size < leastDeck || size > most)
        throw std::invalid_argument(fmt::format("the size {} is not from {} to {}", size, leastDeck, most));
}

struct Box {
    std::uint64_t nx, ny, nz;

    std::uint64_t GetSize() const { return nx * ny * nz; }
};

std::uint64_t DivideUp(std::uint64_t count, std::uint64_t by)
{
    return (count + by - 1) / by;
}

/// A flat box that three arrays of the values fill but for the last part of the third.
Box BoxFor(std::uint64_t values)
{
    const std::uint64_t cells = DivideUp(values, 3);
    Box box{};
    box.nz =
        std::max<std::uint64_t>(1, static_cast<std::uint64_t>(std::cbrt(static_cast<double>(cells)) / 4));
    const std::uint64_t columns = DivideUp(cells, box.nz);
    box.nx = static_cast<std::uint64_t>(std::ceil(std::sqrt(static_cast<double>(columns))));
    box.ny = DivideUp(cells, box.nx * box.nz);
    return 2 * box.GetSize() <= values ? box : Box{cells, 1, 1};
}

template <class WriteOne>
void WriteArray(Output& output, const char* keyword, std::uint64_t count, WriteOne writeOne)
{
    constexpr std::uint64_t valuesInALine = 12;
    output.Write("{}\n", keyword);
    for (std::uint64_t i = 0; i < count; ++i) {
        writeOne();
        output.Write("{}", (i + 1) % valuesInALine == 0 ? "\n" : " ");
    }
}

void WriteMonth(Output& output, std::uint64_t month)
{
    static const char* const names[] = {
        "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    output.Write("DATES\n  1 {} {} /\n/\n\n", names[month % 12], 1980 + month / 12);
}

/// So many that the months are about those of a century, whatever the size.
std::uint64_t WellsFor(std::uint64_t records)
{
    return records / 1200 + 1;
}

void WriteWells(Output& output, std::uint64_t wells, std::uint64_t columns)
{
    output.Write("WELSPECS\n");
    for (std::uint64_t well = 0; well < wells; ++well)
        output.Write("  W{} G {} {} 2500 OIL /\n", well, well % columns + 1, well / columns + 1);
    output.Write("/\n\nCOMPDAT\n");
    for (std::uint64_t well = 0; well < wells; ++well)
        output.Write("  W{} 2* 1 10 OPEN 2* 0.216 /\n", well);
    output.Write("/\n\n");
}

void WriteRates(Output& output, Random& random, std::uint64_t wells, bool isMeasured)
{
    output.Write("{}\n", isMeasured ? "WCONHIST" : "WCONPROD");
    for (std::uint64_t well = 0; well < wells; ++well) {
        const std::uint64_t oil = random.Between(200, 9999);
        output.Write("  W{} OPEN ORAT {}.{} ", well, oil / 10, oil % 10);
        const std::uint64_t water = random.Between(0, 5000);
        if (isMeasured)
            output.Write("{}.{} {} /\n", water / 10, water % 10, oil * random.Between(8, 15));
        else
            output.Write("4* {} /\n", random.Between(50, 200));
    }
    output.Write("/\n");
}

} // namespace

void WriteCellDeck(std::FILE* file, std::uint64_t values, std::uint64_t seed)
{
    RequireSize(values, largestCellDeck);
    const Box box = BoxFor(values);
    const std::uint64_t cells = box.GetSize();
    Output output(file);
    Random random(seed);
    output.Write(
        "-- {} values of cells, none folded\n\nRUNSPEC\n\nDIMENS\n  {} {} {} /\nOIL\nWATER\nMETRIC\n\n"
        "GRID\n\nDXV\n  {}*50 /\nDYV\n  {}*50 /\nDZV\n  {}*2 /\nTOPS\n  {}*2400 /\n\n",
        values, box.nx, box.ny, box.nz, box.nx, box.ny, box.nz, box.nx * box.ny);
    WriteArray(output, "PORO", cells, [&] { output.Write("0.{:06}", random.Between(80'000, 320'000)); });
    output.Write("/\n\n");
    WriteArray(output, "PERMX", cells, [&] {
        const std::uint64_t digits = random.Between(1'000, 9'999);
        const std::uint64_t thousandths = digits * random.Between(1, 99);
        output.Write("{}.{:03}", thousandths / 1000, thousandths % 1000);
    });
    output.Write("/\n\n");
    const std::uint64_t given = values - 2 * cells;
    WriteArray(output, "NTG", given, [&] { output.Write("0.{:05}", random.Between(40'000, 99'999)); });
    if (given < cells)
        output.Write("{}* ", cells - given);
    output.Write("/\n\nEND\n");
    output.Flush();
}

void WriteRecordDeck(std::FILE* file, std::uint64_t records, std::uint64_t seed)
{
    RequireSize(records, largestRecordDeck);
    const std::uint64_t wells = WellsFor(records);
    const auto columns = static_cast<std::uint64_t>(std::ceil(std::sqrt(static_cast<double>(wells))));
    Output output(file);
    Random random(seed);
    output.Write("-- {} records of SCHEDULE\n\nRUNSPEC\n\nDIMENS\n  {} {} 10 /\nOIL\nWATER\nMETRIC\n"
                 "WELLDIMS\n  {} 10 1 {} /\nSTART\n  1 JAN 1980 /\n\nSCHEDULE\n\n",
        records, columns, columns, wells, wells);
    WriteWells(output, wells, columns);
    const std::uint64_t ofRates = records - 2 * wells;
    std::uint64_t month = 0;
    for (std::uint64_t left = ofRates; left > 0; --left) { // a date in each turn
        const std::uint64_t now = std::min(wells, left - 1);
        if (now > 0)
            WriteRates(output, random, now, left > ofRates / 4);
        WriteMonth(output, ++month);
        left -= now;
    }
    output.Write("END\n");
    output.Flush();
}

} // namespace Veld::Quor::Benchmarks
