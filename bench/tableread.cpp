// SPDX-License-Identifier: MIT
// What a read of the bad pixel table costs beside its floor: decoding a full table and putting
// working copy and backup in place, against writing the same bytes plainly to two files.
#include "bpr/files.h"
#include "bpr/table.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace bpr = tavrel::bpr;

namespace {

/// A folder for the files, the current one of the bench: so the disk is the caller's choice.
const QTemporaryDir& folder()
{
    static const QTemporaryDir directory(QStringLiteral("bench-"));
    return directory;
}

std::array<std::string, 2> files()
{
    const std::string path = folder().path().toStdString();
    return {path + "/working", path + "/backup"};
}

/// A table that is full: 1024 records, spread over the whole map.
bpr::Region fullTable()
{
    bpr::Region region{};
    for (std::uint64_t record = 0; record < region.size() / bpr::recordSize; ++record) {
        const std::uint64_t word = (record * 299 + 1) << 43U;
        for (std::size_t byte = 0; byte < bpr::recordSize; ++byte) {
            region.at(record * bpr::recordSize + byte) =
                static_cast<std::uint8_t>(word >> (8 * byte));
        }
    }
    return region;
}

void decode(benchmark::State& state)
{
    const bpr::Region region = fullTable();
    for (const auto _ : state) {
        benchmark::DoNotOptimize(bpr::decodeTable(region));
    }
}
BENCHMARK(decode)->Unit(benchmark::kMicrosecond);

void decodeAndWriteBoth(benchmark::State& state)
{
    const bpr::Region region = fullTable();
    for (const auto _ : state) {
        const bpr::DecodedTable table = bpr::decodeTable(region);
        for (const std::string& file : files()) {
            bpr::writeMap(table.map, file);
        }
    }
}
BENCHMARK(decodeAndWriteBoth)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The floor: the same bytes into the same two files, with or without waiting for the disk.
void writePlainly(benchmark::State& state, bool untilOnDisk)
{
    const bpr::DecodedTable table = bpr::decodeTable(fullTable());
    const std::size_t size = table.map.total();
    for (const auto _ : state) {
        for (const std::string& file : files()) {
            const int handle = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
            const bool written =
                ::write(handle, table.map.data, size) == static_cast<ssize_t>(size) &&
                (!untilOnDisk || ::fsync(handle) == 0);
            if (::close(handle) != 0 || !written) {
                state.SkipWithError("the plain file cannot be written");
            }
        }
    }
}
BENCHMARK_CAPTURE(writePlainly, untilOnDisk, true)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(writePlainly, unsynced, false)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The usual table, and the ratio of the figures below it.
class WithRatios : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if (median || (run.run_type == Run::RT_Iteration && run.repetitions <= 1)) {
                times[run.run_name.function_name + run.run_name.args] = run.GetAdjustedRealTime();
            }
        }
    }
    std::map<std::string, double> times; ///< microseconds
};

} // namespace

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    WithRatios reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const char* const floor : {"writePlainly/untilOnDisk", "writePlainly/unsynced"}) {
        if (reporter.times.count("decodeAndWriteBoth") != 0 && reporter.times.count(floor) != 0) {
            std::cout << "decodeAndWriteBoth / " << floor << " = "
                      << reporter.times["decodeAndWriteBoth"] / reporter.times[floor] << '\n';
        }
    }
    return 0;
}
