// Reads a large document that is made while it is read, and prints its bytes, the time, and the process's peak memory.
//
//     big_document load MEGABYTES     a configuration of which next to nothing is kept
//     big_document walk MEGABYTES     elements that no configuration has, with the parser's own operations
//     big_document piece MEGABYTES    a configuration's white space, held ready in one piece
//     big_document text MEGABYTES     a configuration with one text, which is kept

#include "hostile/big_buffers.h"
#include "hostile/growth_cases.h"

#include <ipsecimpl/ipsecimpl.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace ipsecimpl;

/// The most memory that the process has had so far, as the kernel tells it.
std::string peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, 6, "VmHWM:") == 0)
            return line.substr(line.find_first_not_of(" \t", 6));
    return "unknown";
}

std::string loaded(std::streambuf& buffer)
{
    std::istream       in(&buffer);
    XMLParser          parser(in);
    IPsecConfig        config = IPsecConfig::importXML(parser);
    std::ostringstream out;
    config.exportXML(out);
    return out.str();
}

void require(bool condition, const char* what)
{
    if (!condition)
        throw std::runtime_error(what);
}

std::uint64_t load(std::uint64_t bytes)
{
    GeneratedBuffer buffer(bigConfig(bytes));
    require(loaded(buffer) == bigConfigWritten(), "something else was loaded");
    return buffer.made();
}

std::uint64_t walk(std::uint64_t bytes)
{
    GeneratedBuffer buffer(bigElements(bytes));
    std::istream    in(&buffer);
    readAnything(in);
    require(in.good(), "the stream is not good");
    return buffer.made();
}

std::uint64_t piece(std::uint64_t bytes)
{
    OnePieceBuffer     buffer("<ipsec>", ' ', bytes, "<hostGroups/><protocolGroups/><actions/><policies/></ipsec>");
    const auto         size = static_cast<std::uint64_t>(buffer.in_avail());
    std::ostringstream out;
    IPsecConfig().exportXML(out);
    require(loaded(buffer) == out.str(), "something else was loaded");
    return size;
}

std::uint64_t text(std::uint64_t bytes)
{
    GeneratedBuffer buffer({{"<hostGroup><name>", 1},
                            {"text", bytes / 4},
                            {"</name><builtinName/><descr/><builtinDescr/><selectors/></hostGroup>", 1}});
    std::istream    in(&buffer);
    XMLParser       parser(in);
    require(HostGroup::importXML(parser).name.size() == bytes / 4 * 4, "another text was loaded");
    return buffer.made();
}

std::uint64_t read(const std::string& what, std::uint64_t bytes)
{
    if (what == "load")
        return load(bytes);
    if (what == "walk")
        return walk(bytes);
    if (what == "piece")
        return piece(bytes);
    if (what == "text")
        return text(bytes);
    throw std::invalid_argument("no such document: " + what);
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::cerr << "usage: big_document load|walk|piece|text MEGABYTES\n";
        return 2;
    }
    const auto                          begin   = std::chrono::steady_clock::now();
    const std::uint64_t                 bytes   = read(argv[1], std::strtoull(argv[2], nullptr, 10) << 20U);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::cout << argv[1] << ": " << bytes << " bytes, " << seconds.count() << " s, peak memory " << peakMemory()
              << '\n';
    return 0;
} catch (const std::exception& error) {
    std::cerr << "big_document: " << error.what() << '\n';
    return 1;
}
