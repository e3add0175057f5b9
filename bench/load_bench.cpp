// Loading whole documents: by size, from a string, from a file, and from a stream buffer that holds nothing ready.
// A management program loads at its start, so the configuration is fresh each time; its destruction is not measured.

#include "generator.h"
#include "streams.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace {

using ipsecimpl::IPsecConfig;
using ipsecimpl::XMLParser;

/// Loads from what `open()` gives, a pointer to a stream at its start.
template <class Open>
void load(benchmark::State& state, std::size_t bytes, Open open)
{
    for (auto _ : state) {
        state.PauseTiming();
        const auto                 in = open();
        std::optional<IPsecConfig> config;
        state.ResumeTiming();

        XMLParser parser(*in);
        config.emplace(IPsecConfig::importXML(parser));
        benchmark::DoNotOptimize(config);

        state.PauseTiming();
        config.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

void LoadFromString(benchmark::State& state)
{
    const std::string document = bench::makeDocument(static_cast<unsigned int>(state.range(0)));
    load(state, document.size(), [&document] { return std::make_unique<std::istringstream>(document); });
}
BENCHMARK(LoadFromString)->Arg(10)->Arg(100)->Arg(1000)->Arg(20000);

void LoadFromFile(benchmark::State& state)
{
    const std::string document = bench::makeDocument(static_cast<unsigned int>(state.range(0)));
    const std::string path     = "load_bench.xml";
    std::ofstream(path) << document;
    load(state, document.size(), [&path] { return std::make_unique<std::ifstream>(path); });
    std::remove(path.c_str());
}
BENCHMARK(LoadFromFile)->Arg(1000)->Arg(20000);

void LoadFromSingleCharacters(benchmark::State& state)
{
    const std::string                        document = bench::makeDocument(static_cast<unsigned int>(state.range(0)));
    std::unique_ptr<bench::SingleCharacters> buffer;
    load(state, document.size(), [&document, &buffer] {
        buffer = std::make_unique<bench::SingleCharacters>(document);
        return std::make_unique<std::istream>(buffer.get());
    });
}
BENCHMARK(LoadFromSingleCharacters)->Arg(1000);

} // namespace
