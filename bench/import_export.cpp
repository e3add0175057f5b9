// Loads every document of a file, or loads and stores them, once: what a profiler counts.
//
//     import_export load|store|store-string FILE
//
// `store` goes to a buffer of one size, `store-string` to a string that grows.
//
// The work to count is inside the function `measured_load` or `measured_store`. The standard output is the number of
// bytes that it read or wrote.

#include "streams.h"

#include <ipsecimpl/config.h>

#include <cstddef>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

using ipsecimpl::IPsecConfig;
using ipsecimpl::XMLParser;

// With these names a profiler finds them.
extern "C" {
[[gnu::noinline]] void measured_load(std::istream& in, std::vector<IPsecConfig>& configs);
[[gnu::noinline]] void measured_store(std::ostream& out, IPsecConfig& config);
}

void measured_load(std::istream& in, std::vector<IPsecConfig>& configs)
{
    XMLParser parser(in);
    configs.push_back(IPsecConfig::importXML(parser));
}

void measured_store(std::ostream& out, IPsecConfig& config)
{
    config.exportXML(out);
}

namespace {

/// How many bytes the configuration took.
std::size_t store(IPsecConfig& config, bool toString)
{
    if (toString) {
        std::ostringstream out;
        measured_store(out, config);
        return out.str().size();
    }
    bench::Recycled buffer;
    std::ostream    out(&buffer);
    measured_store(out, config);
    return buffer.written();
}

} // namespace

int main(int argc, char** argv)
try {
    const std::string what = argc == 3 ? argv[1] : "";
    if (what != "load" && what != "store" && what != "store-string") {
        std::cerr << "usage: import_export load|store|store-string FILE\n";
        return 2;
    }

    std::stringstream text;
    text << std::ifstream(argv[2]).rdbuf();
    const std::size_t size = text.str().size();

    std::vector<IPsecConfig> configs;
    while (text >> std::ws && text.peek() != std::char_traits<char>::eof())
        measured_load(text, configs);

    if (what == "load") {
        std::cout << size << '\n';
        return 0;
    }
    std::size_t written = 0;
    for (IPsecConfig& config : configs)
        written += store(config, what == "store-string");
    std::cout << written << '\n';
    return 0;
} catch (const std::exception& e) {
    std::cerr << "import_export: " << e.what() << '\n';
    return 1;
}
