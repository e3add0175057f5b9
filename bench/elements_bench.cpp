// Reading and writing each kind of element. The samples of a kind are those of a generated configuration, a thousand
// different ones, so that neither texts nor branches repeat; they stand in one stream, read by one parser. The times
// are those of one element.

#include "generator.h"
#include "streams.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace ipsecimpl;

template <class Element>
void read(benchmark::State& state, const std::vector<Element>& samples)
{
    std::string text;
    for (const Element& sample : samples)
        text += bench::stored(sample);

    std::istringstream in(text);
    for (auto _ : state) {
        in.clear();
        in.seekg(0);
        XMLParser parser(in);
        for (std::size_t i = 0; i < samples.size(); ++i)
            benchmark::DoNotOptimize(Element::importXML(parser));
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(samples.size()) * state.iterations());
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

template <class Element>
void write(benchmark::State& state, const std::vector<Element>& samples)
{
    std::size_t bytes = 0;
    for (const Element& sample : samples)
        bytes += bench::stored(sample).size();

    bench::Nowhere buffer;
    std::ostream   out(&buffer);
    for (auto _ : state)
        for (const Element& sample : samples)
            sample.exportXML(out);
    state.SetItemsProcessed(static_cast<std::int64_t>(samples.size()) * state.iterations());
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

/// Registers both benchmarks of a kind. `make` makes a sample from random numbers and a running number.
template <class Make>
void add(const std::string& name, Make make)
{
    bench::Random random(1);
    std::vector   samples{make(random, 1U)};
    while (samples.size() < 1000)
        samples.push_back(make(random, static_cast<unsigned int>(samples.size()) + 1));

    benchmark::RegisterBenchmark(("Read/" + name).c_str(),
                                 [samples](benchmark::State& state) { read(state, samples); });
    benchmark::RegisterBenchmark(("Write/" + name).c_str(),
                                 [samples](benchmark::State& state) { write(state, samples); });
}

void addHostSelector(const std::string& name, const HostSelector& selector)
{
    add("hostSelector/" + name, [&selector](bench::Random& /*random*/, unsigned int /*number*/) { return selector; });
}

bool addAll()
{
    using bench::Random;

    addHostSelector("SINGLE", HostSelector(HOST_INET, HOST_SINGLE, "10.20.30.40", ""));
    addHostSelector("RANGE", HostSelector(HOST_INET, HOST_RANGE, "10.20.30.40", "10.20.30.90"));
    addHostSelector("SUBNET_LENGTH", HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.20.0.0", 16));
    addHostSelector("SUBNET_MASK", HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.20.0.0", "255.255.0.0"));
    addHostSelector("SUBNET_LENGTH_v6", HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "2001:db8:1::", 48));
    addHostSelector("ANY", HostSelector(HOST_INET, HOST_ANY, "", ""));

    add("hostSelector", [](Random& random, unsigned int /*number*/) { return bench::makeHostSelector(random); });
    add("protocolSelector",
        [](Random& random, unsigned int /*number*/) { return bench::makeProtocolSelector(random); });
    add("hostGroup", bench::makeHostGroup);
    add("protocolGroup", bench::makeProtocolGroup);

    add("action/plain", bench::makePlainAction);
    add("action/manual", bench::makeManualAction);
    add("action/PSK", [](Random& random, unsigned int n) { return bench::makeIKEAction(random, n, IKE_AUTH_PSK); });
    add("action/RSA", [](Random& random, unsigned int n) { return bench::makeIKEAction(random, n, IKE_AUTH_RSA); });
    add("manualKey", [](Random& random, unsigned int n) { return bench::makeManualAction(random, n).manualKeyGet(); });
    add("saProposal",
        [](Random& random, unsigned int n) { return bench::makeManualAction(random, n).manualKeyGet().saProposal; });

    const auto psk = [](Random& random, unsigned int n) { return bench::makeIKEAction(random, n, IKE_AUTH_PSK); };
    const auto rsa = [](Random& random, unsigned int n) { return bench::makeIKEAction(random, n, IKE_AUTH_RSA); };
    add("ikePhase1/PSK", [psk](Random& random, unsigned int n) { return psk(random, n).ikePhase1Get(); });
    add("ikePhase1/RSA", [rsa](Random& random, unsigned int n) { return rsa(random, n).ikePhase1Get(); });
    add("proposal", [psk](Random& random, unsigned int n) { return psk(random, n).ikePhase1Get().proposalGet(); });
    add("ikePhase2", [psk](Random& random, unsigned int n) { return psk(random, n).ikePhase2Get(); });

    add("policy", [](Random& random, unsigned int n) { return Policy{n, random.from(1, 500), random.from(1, 1000)}; });
    return true;
}

[[maybe_unused]] const bool added = addAll();

} // namespace
