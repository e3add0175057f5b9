// The heap of a load: how many blocks, and how much at most at any time, against what the loaded configuration itself
// needs. The stream and its text belong to the caller and do not count.
//
//     memory [policies = 20000]

#include "counting_heap.h"
#include "generator.h"
#include "report.h"

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using ipsecimpl::IPsecConfig;
using ipsecimpl::XMLParser;

/// What the heap did while something was made.
struct Cost {
    std::size_t blocks; ///< allocated, also those that are gone again
    std::size_t bytes;  ///< that stay
    std::size_t peak;   ///< the most at any time
};

template <class Work>
Cost cost(Work work)
{
    bench::resetPeak();
    const bench::Heap before = bench::heap();
    work();
    const bench::Heap after = bench::heap();
    return {after.blocks - before.blocks, after.bytes - before.bytes, after.peak - before.bytes};
}

double ratio(std::size_t a, std::size_t b)
{
    return static_cast<double>(a) / static_cast<double>(b);
}

} // namespace

int main(int argc, char** argv)
try {
    const unsigned long policies = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 20000;
    std::istringstream  in(bench::makeDocument(static_cast<unsigned int>(policies)));

    std::optional<IPsecConfig> config;
    std::optional<IPsecConfig> twin;
    const Cost                 load = cost([&] {
        XMLParser parser(in);
        config.emplace(IPsecConfig::importXML(parser));
    });
    const Cost                 copy = cost([&] { twin.emplace(*config); });
    if (copy.blocks == 0 || load.bytes == 0)
        throw std::runtime_error("nothing was counted");

    std::cerr << "load: " << load.blocks << " blocks, " << load.bytes << " bytes stay, " << load.peak << " at most\n"
              << "copy: " << copy.blocks << " blocks, " << copy.bytes << " bytes stay, " << copy.peak << " at most\n";
    bench::printGoal("heap blocks of a load / of a copy", ratio(load.blocks, copy.blocks), 1.02);
    bench::printGoal("peak heap of a load / the loaded configuration's own", ratio(load.peak, load.bytes), 1.02);
    bench::printValue("the loaded configuration's heap / its copy's", ratio(load.bytes, copy.bytes));
    return 0;
} catch (const std::exception& e) {
    std::cerr << "memory: " << e.what() << '\n';
    return 1;
}
