// One load and one store of the library against what else could be done with the same document: other parsers, alone
// and building the same configuration; the least that any loader must do; ready-made lines. First it makes sure that
// all build the same configuration, to the last stored byte, and fails otherwise. Then it measures all in turn, round
// by round, so that what disturbs the machine disturbs all alike, and compares the medians.
//
//     peers [policies = 20000 [rounds = 9]]
//
// The medians go to the standard error output, the rows of the table of goals to the standard output.

#include "generator.h"
#include "measure.h"
#include "peer.h"
#include "rebuild.h"
#include "report.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using ipsecimpl::IPsecConfig;
using ipsecimpl::XMLParser;

IPsecConfig loadConfig(std::istream& in)
{
    XMLParser parser(in);
    return IPsecConfig::importXML(parser);
}

void checkThatAllLoadTheSame(const std::string& document)
{
    const auto check = [&document](const std::string& name, IPsecConfig (*load)(std::istream&)) {
        std::istringstream in(document);
        if (bench::stored(load(in)) != document)
            throw std::runtime_error(name + " loads another configuration");
    };
    check("the library", loadConfig);
    for (const bench::Peer& peer : bench::peers())
        check(peer.name, peer.load);
    check("rebuild()", [](std::istream& in) { return bench::rebuild(loadConfig(in)); });
}

std::vector<std::string> linesOf(const std::string& document)
{
    std::vector<std::string> lines;
    std::istringstream       in(document);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// What is measured, by name: each call gives the milliseconds of one run. What a run leaves is destroyed outside.
class Measurements {
  public:
    void add(const std::string& name, std::function<double()> run) { all_.push_back({name, std::move(run), {}}); }

    /// Times `work(stream)` on a stream of its own.
    template <class Work>
    void addReader(const std::string& name, const std::string& document, Work work)
    {
        add(name, [&document, work] {
            std::istringstream                in(document);
            std::optional<decltype(work(in))> result;
            return bench::milliseconds([&] { result.emplace(work(in)); });
        });
    }

    void run(unsigned long rounds)
    {
        for (unsigned long round = 0; round < rounds; ++round)
            for (Measurement& measurement : all_)
                measurement.times.push_back(measurement.run());
    }

    bool has(const std::string& name) const { return find(name) != nullptr; }

    double medianOf(const std::string& name) const { return bench::median(find(name)->times); }

    void print() const
    {
        std::fprintf(stderr, "%-45s %10s %10s\n", "milliseconds", "minimum", "median");
        for (const Measurement& measurement : all_)
            std::fprintf(stderr, "%-45s %10.1f %10.1f\n", measurement.name.c_str(),
                         *std::min_element(measurement.times.begin(), measurement.times.end()),
                         bench::median(measurement.times));
    }

  private:
    struct Measurement {
        std::string             name;
        std::function<double()> run;
        std::vector<double>     times;
    };

    const Measurement* find(const std::string& name) const
    {
        const auto found = std::find_if(all_.begin(), all_.end(), [&](const auto& m) { return m.name == name; });
        return found == all_.end() ? nullptr : &*found;
    }

    std::vector<Measurement> all_;
};

std::string parses(const std::string& peer)
{
    return peer + " alone";
}

std::string builds(const std::string& peer)
{
    return peer + " building the configuration";
}

unsigned long sumOfBytes(std::istream& in)
{
    std::streambuf& buffer = *in.rdbuf();
    unsigned long   sum    = 0;
    for (int c = buffer.sbumpc(); c != std::char_traits<char>::eof(); c = buffer.sbumpc())
        sum += static_cast<unsigned long>(c);
    return sum;
}

void storeLines(std::ostream& out, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        out << line << std::endl;
}

template <class Store>
double storeTime(Store store)
{
    std::ostringstream out;
    return bench::milliseconds([&] { store(out); });
}

void printGoals(const Measurements& measured)
{
    const auto ratioTo = [&measured](const std::string& what, const std::string& of, double goal) {
        if (!measured.has(of))
            bench::printMissing(what, "not built");
        else if (goal > 0)
            bench::printGoal(what, measured.medianOf("load") / measured.medianOf(of), goal);
        else
            bench::printValue(what, measured.medianOf("load") / measured.medianOf(of));
    };
    ratioTo("load / pugixml alone", parses("pugixml"), 1.0);
    ratioTo("load / pugixml building the same", builds("pugixml"), 0.6);
    ratioTo("load / expat building the same", builds("expat"), 0.4);
    ratioTo("load / libxml2 SAX2 building the same", builds("libxml2 SAX2"), 0.4);
    ratioTo("load / tinyxml2 building the same", builds("tinyxml2"), 0);

    const double least = measured.medianOf("copy of the configuration") + measured.medianOf("bytes one at a time");
    bench::printGoal("load / (copy + bytes one at a time)", measured.medianOf("load") / least, 2.0);
    bench::printGoal("store / ready-made lines", measured.medianOf("store") / measured.medianOf("ready-made lines"),
                     1.2);
}

} // namespace

int main(int argc, char** argv)
try {
    const unsigned long policies = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 20000;
    const unsigned long rounds   = argc > 2 ? std::max(std::strtoul(argv[2], nullptr, 10), 1UL) : 9;

    const std::string document = bench::makeDocument(static_cast<unsigned int>(policies));
    checkThatAllLoadTheSame(document);

    const std::vector<std::string> lines = linesOf(document);
    std::istringstream             in(document);
    IPsecConfig                    config = loadConfig(in);

    Measurements measurements;
    measurements.addReader("load", document, loadConfig);
    measurements.addReader("bytes one at a time", document, sumOfBytes);
    measurements.addReader("copy of the configuration", document, [&config](std::istream&) { return config; });
    measurements.addReader("the configuration from ready values", document,
                           [&config](std::istream&) { return bench::rebuild(config); });
    for (const bench::Peer& peer : bench::peers()) {
        measurements.addReader(parses(peer.name), document, peer.parse);
        measurements.addReader(builds(peer.name), document, peer.load);
    }
    measurements.add("store", [&config] { return storeTime([&](std::ostream& out) { config.exportXML(out); }); });
    measurements.add("ready-made lines",
                     [&lines] { return storeTime([&](std::ostream& out) { storeLines(out, lines); }); });

    measurements.run(rounds);
    std::fprintf(stderr, "%lu policies, %zu bytes, %zu lines, %lu rounds\n", policies, document.size(), lines.size(),
                 rounds);
    measurements.print();
    printGoals(measurements);
    return 0;
} catch (const std::exception& e) {
    std::cerr << "peers: " << e.what() << '\n';
    return 1;
}
