// The main program of the Google Benchmark programs: repeats each benchmark and prints the minimum and the median over
// the repetitions. The usual options work (--benchmark_filter=..., --benchmark_repetitions=...).

#include "measure.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

/// Prints one line for a benchmark. Where it counts items the times are those of one item, else of one iteration.
class MinAndMedian : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override
    {
        std::printf("%-40s %14s %14s %10s\n", "", "minimum", "median", "MB/s");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<double> nanoseconds;
        std::vector<double> megabytes;
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            if (run.error_occurred) {
                std::printf("%-40s %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                failed_ = true;
                return;
            }
            const double items = counter(run, "items_per_second");
            nanoseconds.push_back(items > 0 ? 1e9 / items
                                            : run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9);
            megabytes.push_back(counter(run, "bytes_per_second") / 1e6);
        }
        if (nanoseconds.empty()) // the library's own statistics over the repetitions
            return;
        std::printf("%-40s %11.0f ns %11.0f ns %10.1f\n", runs.front().run_name.str().c_str(),
                    *std::min_element(nanoseconds.begin(), nanoseconds.end()), bench::median(nanoseconds),
                    bench::median(megabytes));
        std::fflush(stdout);
    }

    bool failed() const { return failed_; }

  private:
    static double counter(const Run& run, const std::string& name)
    {
        const auto found = run.counters.find(name);
        return found == run.counters.end() ? 0 : found->second.value;
    }

    bool failed_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    std::string repetitions = "--benchmark_repetitions=7";
    std::string time        = "--benchmark_min_time=0.05";

    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, {repetitions.data(), time.data()}); // what the caller says comes later
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    MinAndMedian reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.failed() ? 1 : 0;
}
