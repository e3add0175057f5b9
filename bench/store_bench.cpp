// Storing whole configurations: by size, into a string, into a file, and into a buffer that throws everything away,
// where only the work of writing is left. Each line is flushed, which a file feels.

#include "generator.h"
#include "streams.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using ipsecimpl::IPsecConfig;

void setBytes(benchmark::State& state, IPsecConfig& config)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(bench::stored(config).size()) * state.iterations());
}

void StoreIntoString(benchmark::State& state)
{
    IPsecConfig config = bench::makeConfig(static_cast<unsigned int>(state.range(0)));
    for (auto _ : state) {
        std::ostringstream out;
        config.exportXML(out);
        benchmark::DoNotOptimize(out);
    }
    setBytes(state, config);
}
BENCHMARK(StoreIntoString)->Arg(10)->Arg(100)->Arg(1000)->Arg(20000);

void StoreIntoFile(benchmark::State& state)
{
    const char* const path   = "store_bench.xml";
    IPsecConfig       config = bench::makeConfig(static_cast<unsigned int>(state.range(0)));
    for (auto _ : state) {
        std::ofstream out(path);
        if (!config.exportXML(out))
            state.SkipWithError("cannot write the file");
    }
    std::remove(path);
    setBytes(state, config);
}
BENCHMARK(StoreIntoFile)->Arg(1000);

void StoreNowhere(benchmark::State& state)
{
    IPsecConfig    config = bench::makeConfig(static_cast<unsigned int>(state.range(0)));
    bench::Nowhere buffer;
    for (auto _ : state) {
        std::ostream out(&buffer);
        config.exportXML(out);
    }
    setBytes(state, config);
}
BENCHMARK(StoreNowhere)->Arg(20000);

} // namespace
