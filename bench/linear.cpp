// Does the time of a load grow with its size alone? Each case is loaded at half its size and at its whole size; what is
// printed is by how much the time per unit grows from one to the other: 1 is linear, 2 quadratic.
//
//     linear [divisor = 1]     with 10, each case has a tenth of its size

#include "measure.h"
#include "report.h"

#include <ipsecimpl/config.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace ipsecimpl;

constexpr double linearEnough = 1.25; // caches and the depth of the trees may cost a little; quadratic would be 2

std::string stored(IPsecConfig& config)
{
    std::ostringstream out;
    config.exportXML(out);
    return out.str();
}

/// A configuration with one action, whose description is `leaf` as a whole.
std::string withDescription(const std::string& leaf)
{
    IPsecConfig config;
    config.actions.add(IPsecAction(SPD_DISCARD, "Long", 0, "", 0, KEYMGR_NONE));
    std::string       document = stored(config);
    const std::string empty    = "<descr></descr>";
    return document.replace(document.find(empty), empty.size(), leaf);
}

std::string longText(std::size_t size)
{
    return withDescription("<descr>" + std::string(size, 'x') + "</descr>");
}

std::string longAttributeValue(std::size_t size)
{
    return withDescription("<descr value=\"" + std::string(size, 'x') + "\"/>");
}

/// No element of a configuration has such a name, so the parser is asked alone.
std::string longName(std::size_t size)
{
    const std::string name(size, 'x');
    return '<' + name + "></" + name + '>';
}

std::string manyEntries(std::size_t count)
{
    IPsecConfig config;
    for (std::size_t i = 0; i < count; ++i)
        config.policies.add(Policy(1, 1, 1));
    return stored(config);
}

/// In no order, so that each selector has to look for its place.
std::string manyShuffledSelectors(std::size_t count)
{
    std::string selectors;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t mixed = i * 7919 % 16777216; // odd and a power of two: no two are equal
        selectors += "<hostSelector>\n<family>AF_INET</family>\n<selectorType>SINGLE</selectorType>\n<addr1>10." +
                     std::to_string(mixed >> 16U) + '.' + std::to_string((mixed >> 8U) % 256) + '.' +
                     std::to_string(mixed % 256) + "</addr1>\n</hostSelector>\n";
    }
    IPsecConfig config;
    config.hostGroups.add(HostGroup("Large", 0, "", 0));
    std::string       document = stored(config);
    const std::string open     = "<selectors>\n";
    return document.insert(document.find(open) + open.size(), selectors);
}

/// Selectors in their own order, as every stored document has them.
std::string manyStoredSelectors(std::size_t count)
{
    std::istringstream in(manyShuffledSelectors(count));
    XMLParser          parser(in);
    IPsecConfig        config = IPsecConfig::importXML(parser);
    if (config.hostGroups.at(1).selectors.size() != count)
        throw std::runtime_error("selectors are missing");
    return stored(config);
}

void readConfig(std::istream& in, std::optional<IPsecConfig>& config)
{
    XMLParser parser(in);
    config.emplace(IPsecConfig::importXML(parser));
}

void readTag(std::istream& in, std::optional<IPsecConfig>& /*config*/)
{
    XMLParser   parser(in);
    std::string name;
    parser.parse_tag(name);
    parser.parse_tag_end();
    parser.parse_end_tag();
}

struct Case {
    const char* what;
    std::size_t size;
    std::string (*make)(std::size_t size);
    void (*read)(std::istream& in, std::optional<IPsecConfig>& config);
    bool linear; ///< or else not even the best container could be
};

double time(const Case& test, const std::string& document)
{
    std::istringstream         in(document);
    std::optional<IPsecConfig> config;
    return bench::milliseconds([&] { test.read(in, config); });
}

/// The least time at half the size and at the whole size: the work is always the same, what is more comes from outside.
struct Times {
    double half;
    double whole;
};

Times measure(const Case& test, std::size_t size)
{
    const std::string half  = test.make(size / 2);
    const std::string whole = test.make(size);

    Times least{time(test, half), time(test, whole)};
    for (int round = 1; round < 9; ++round) {
        least.half  = std::min(least.half, time(test, half));
        least.whole = std::min(least.whole, time(test, whole));
    }
    return least;
}

const Case cases[] = {
    {"one text of 100 MB", 100'000'000, longText, readConfig, true},
    {"one attribute value of 100 MB", 100'000'000, longAttributeValue, readConfig, true},
    {"one name of 100 MB", 100'000'000, longName, readTag, true},
    {"1,000,000 entries", 1'000'000, manyEntries, readConfig, true},
    {"a group of 200,000 selectors in stored order", 200'000, manyStoredSelectors, readConfig, true},
    {"the same in no order", 200'000, manyShuffledSelectors, readConfig, false},
};

} // namespace

int main(int argc, char** argv)
try {
    const std::size_t divisor = argc > 1 ? std::max(std::strtoul(argv[1], nullptr, 10), 1UL) : 1;
    for (const Case& test : cases) {
        const Times  times  = measure(test, test.size / divisor);
        const double growth = times.whole / times.half / 2;
        std::cerr << test.what << ": " << times.half << " ms at half the size, " << times.whole << " ms at the whole\n";
        const std::string what = std::string("time per unit, whole size / half: ") + test.what;
        if (test.linear)
            bench::printGoal(what, growth, linearEnough);
        else
            bench::printValue(what, growth);
    }
    return 0;
} catch (const std::exception& e) {
    std::cerr << "linear: " << e.what() << '\n';
    return 1;
}
