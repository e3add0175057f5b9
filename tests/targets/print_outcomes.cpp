// Prints what comes of documents, so that this can be compared with what comes of them on another target.
//
//     target_outcomes FILE...          each one's store or message, whole
//     target_outcomes --damaged        one line for each of the documents that the tests damage
//     target_outcomes --damaged NAME NUMBER     that one, and what comes of it

#include "targets/outcome.h"
#include "targets/samples.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

using namespace ipsecimpl;

namespace {

void printWhole(const std::string& name, const std::string& document)
{
    const DocumentOutcome outcome = outcomeOf(document);
    std::cout << "== " << name << '\n' << outcome.store;
    if (outcome.store.empty())
        std::cout << printableLine(outcome.message, std::string::npos) << '\n';
    else
        std::cout << outcome.line() << '\n';
}

void printDamaged(const std::vector<std::string>& which)
{
    for (const DamagedSample& sample : damagedSamples())
        forEachDamaged(sample, [&](unsigned int number, const std::string& document) {
            const std::string name = sample.document.name + ' ' + std::to_string(number);
            if (which.empty())
                std::cout << name << ": " << outcomeOf(document).line() << '\n';
            else if (name == which[0] + ' ' + which[1]) {
                std::cout << document;
                printWhole(name, document);
            }
        });
}

} // namespace

int main(int argc, char** argv)
try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (!arguments.empty() && arguments[0] == "--damaged" && (argc == 2 || argc == 4)) {
        printDamaged({arguments.begin() + 1, arguments.end()});
    } else {
        for (const std::string& file : arguments)
            printWhole(file, documentIn(file).text);
    }
    return std::cout.flush() ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
