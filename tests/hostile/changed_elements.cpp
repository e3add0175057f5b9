// Every element of every small document changed in every way that a reader could stumble over. What comes of it is
// kept, each result and each message whole, in golden/changed/*.txt.

#include "hostile/elements.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/golden.h"
#include "support/samples.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace ipsecimpl {
namespace {

/// On one line, in ASCII: 0xFF stands for the end of input.
std::string flat(const std::string& message)
{
    std::string text;
    for (const char c : message)
        text += c == '\n' ? " | " : c == '\xFF' ? "\\xFF" : std::string(1, c);
    return text;
}

/// The lines of `text` that are not in `other`, which has the others in the same order.
std::string linesBesides(const std::string& other, const std::string& text)
{
    std::istringstream lines(text);
    std::size_t        at = 0;
    std::string        besides;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t found = other.find(line + '\n', at);
        if (found == std::string::npos)
            besides += ' ' + line;
        else
            at = found + line.size() + 1;
    }
    return besides.empty() ? " nothing" : besides;
}

/// What became of a document, told in comparison with the one that nobody changed.
std::string told(const std::string& result, const std::string& original)
{
    if (result[0] != '<')
        return flat(result);
    if (result == original)
        return "read as the original";
    return "read with" + linesBesides(original, result) + " instead of" + linesBesides(result, original);
}

class ChangedElement : public ::testing::TestWithParam<SmallDocument> {};

std::vector<SmallDocument> writtenDocuments()
{
    std::vector<SmallDocument> documents = smallDocuments();
    documents.erase(std::remove_if(documents.begin(), documents.end(),
                                   [](const SmallDocument& document) { return !document.written; }),
                    documents.end());
    return documents;
}

INSTANTIATE_TEST_SUITE_P(Small, ChangedElement, ::testing::ValuesIn(writtenDocuments()),
                         [](const auto& document) { return testName(document.param.name); });

TEST_P(ChangedElement, IsReadOrRefusedAsItAlwaysWas)
{
    const SmallDocument&            document = GetParam();
    const std::vector<ElementPlace> all      = elementsIn(document.text);
    std::string                     table;
    std::size_t                     cases = 0;
    for (const ElementPlace& element : all) {
        table += element.path + '\n';
        for (const ElementChange& change : changesOf(document.text, all, element)) {
            table += "    " + change.name + ": " +
                     told(resultAlike(document.element, change.result, 1 + change.result.size() % 23), document.text) +
                     '\n';
            ++cases;
        }
    }
    expectGolden("changed/" + document.name + ".txt", table);
    reportCases(cases);
}

} // namespace
} // namespace ipsecimpl
