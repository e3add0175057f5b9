// Reads a document that is large in one direction, or does something with a large configuration, for a program that
// counts the instructions of measured().
//
//     growth                prints what there is to do, one on a line: documents to read, then operations
//     growth NUMBER SIZE    does one, by its number in that list, from 0

#include "hostile/growth_cases.h"
#include "hostile/growth_operations.h"

#include <ipsecimpl/xml.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <sstream>

extern "C" __attribute__((noinline)) void measured(const std::function<void()>& work)
{
    work();
}

int main(int argc, char** argv)
{
    const auto& cases      = ipsecimpl::growthCases();
    const auto& operations = ipsecimpl::growthOperations();
    if (argc != 3) {
        for (const ipsecimpl::GrowthCase& growth : cases)
            std::cout << "reading " << growth.name << '\n';
        for (const ipsecimpl::GrowthOperation& growth : operations)
            std::cout << growth.name << '\n';
        return 0;
    }
    const std::size_t number = std::strtoul(argv[1], nullptr, 10);
    const std::size_t size   = std::strtoul(argv[2], nullptr, 10);
    if (number >= cases.size()) {
        measured(operations.at(number - cases.size()).prepare(size));
        return 0;
    }
    const ipsecimpl::GrowthCase& growth = cases[number];
    std::istringstream           in(growth.make(size));
    measured([&growth, &in] {
        try {
            growth.read(in);
        } catch (const ipsecimpl::ParseError&) {
        }
    });
    return 0;
}
