// Writes generated documents to the standard output, one after the other:
//
//     document [policies = 20000 [documents = 1]]
//     document tidy [policies = 20000]
//
// Document n is made with seed n. Many small documents together have the same mix of elements as one large document,
// which a single one of ten policies cannot have.

#include "generator.h"

#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    if (argc > 1 && argv[1] == std::string("tidy")) {
        const unsigned long policies = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 20000;
        std::cout << bench::stored(bench::makeTidyConfig(static_cast<unsigned int>(policies)));
        return std::cout.flush() ? 0 : 1;
    }
    const unsigned long policies  = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 20000;
    const unsigned long documents = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    for (unsigned long seed = 1; seed <= documents; ++seed)
        std::cout << bench::makeDocument(static_cast<unsigned int>(policies), seed);
    return std::cout.flush() ? 0 : 1;
}
