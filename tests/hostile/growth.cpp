// Reads a document that is large in one direction, for a program that counts the instructions of measured_read().
//
//     growth                 prints the directions, one on a line
//     growth NUMBER BYTES    reads one, by its number in that list, from 0

#include "hostile/growth_cases.h"

#include <ipsecimpl/xml.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

extern "C" __attribute__((noinline)) void measured_read(const ipsecimpl::GrowthCase& growth, std::istream& in)
{
    try {
        growth.read(in);
    } catch (const ipsecimpl::ParseError&) {
    }
}

int main(int argc, char** argv)
{
    const auto& cases = ipsecimpl::growthCases();
    if (argc != 3) {
        for (const ipsecimpl::GrowthCase& growth : cases)
            std::cout << growth.name << '\n';
        return 0;
    }
    const ipsecimpl::GrowthCase& growth = cases.at(std::strtoul(argv[1], nullptr, 10));
    std::istringstream           in(growth.make(std::strtoul(argv[2], nullptr, 10)));
    measured_read(growth, in);
    return 0;
}
