#include "schema/documents.h"

#include "schema/validator.h"
#include "support/documents.h"

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace ipsecimpl {
namespace {

std::string collection(const std::string& plural, const std::string& singular, const std::string& element)
{
    const std::string entry = leaf(singular + "Entry", "\n" + leaf("id", "1") + "\n" + element) + "\n";
    const std::string next  = leaf("next" + singular, element.empty() ? "1" : "2") + "\n";
    return leaf(plural, "\n" + next + (element.empty() ? "" : entry)) + "\n";
}

std::string document(const std::string& hostGroup, const std::string& protocolGroup, const std::string& action)
{
    return leaf("ipsec", "\n" + collection("hostGroups", "hostGroup", hostGroup) +
                             collection("protocolGroups", "protocolGroup", protocolGroup) +
                             collection("actions", "action", action) + collection("policies", "policy", "")) +
           "\n";
}

const std::string TITLE = "<name>name</name>\n"
                          "<builtinName>0</builtinName>\n"
                          "<descr>descr</descr>\n"
                          "<builtinDescr>0</builtinDescr>\n";

std::string group(const std::string& name, const std::string& selector)
{
    return leaf(name, "\n" + TITLE + leaf("selectors", "\n" + selector) + "\n") + "\n";
}

/// The document with the selectors of each group in the order of their texts, and each once.
std::string withSortedSelectors(const std::string& document)
{
    std::vector<std::string> selectors;
    std::string              sorted;
    bool                     inside = false;
    for (const std::string& line : linesOf(document)) {
        if (line == "<hostSelector>" || line == "<protocolSelector>") {
            inside = true;
            selectors.emplace_back();
        }
        if (line == "</selectors>") {
            std::sort(selectors.begin(), selectors.end());
            selectors.erase(std::unique(selectors.begin(), selectors.end()), selectors.end());
            for (const std::string& selector : selectors)
                sorted += selector;
            selectors.clear();
        }
        (inside ? selectors.back() : sorted) += line + '\n';
        if (line == "</hostSelector>" || line == "</protocolSelector>")
            inside = false;
    }
    return sorted;
}

} // namespace

const std::string& everyElement()
{
    static const std::string document = [] {
        std::ifstream in(CORPUS_DIR "/all-elements.xml", std::ios::binary);
        return rewritten<IPsecConfig>(std::string(std::istreambuf_iterator<char>(in), {}));
    }();
    return document;
}

std::vector<std::string> linesOf(const std::string& document)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0, end = 0; begin < document.size(); begin = end + 1) {
        end = std::min(document.find('\n', begin), document.size());
        lines.push_back(document.substr(begin, end - begin));
    }
    return lines;
}

std::string joinedLines(const std::vector<std::string>& lines)
{
    std::string document;
    for (const std::string& line : lines)
        document += line + '\n';
    return document;
}

std::string elementIn(const std::string& line)
{
    return line[1] == '/' ? "" : line.substr(1, line.find('>') - 1);
}

bool isLeaf(const std::string& line)
{
    return line[1] != '/' && line.find("</") != std::string::npos;
}

std::string withHostSelector(const std::string& selector)
{
    return document(group("hostGroup", selector), "", "");
}

std::string withProtocolSelector(const std::string& selector)
{
    return document("", group("protocolGroup", selector), "");
}

std::string withAction(const std::string& mode)
{
    return document("", "",
                    "<action>\n<changeCount>0</changeCount>\n" + TITLE + "<type>0</type>\n<state>0</state>\n" + mode +
                        "</action>\n");
}

bool isWrittenForm(const std::string& document)
{
    try {
        return withSortedSelectors(rewritten<IPsecConfig>(document)) == withSortedSelectors(document);
    } catch (const ParseError&) {
        return false;
    }
}

void expectAgreement(const std::vector<std::string>& documents, std::size_t written)
{
    const std::vector<Verdict> verdicts = verdictsOf(Schema::RelaxNG, documents);
    std::vector<std::string>   known;
    for (std::size_t i = 0; i < documents.size(); ++i) {
        const bool isWritten = isWrittenForm(documents[i]);
        EXPECT_EQ(verdicts[i] == Verdict::Valid, isWritten) << "it is " << verdicts[i] << ":\n" << documents[i];
        if (isWritten)
            known.push_back(documents[i]);
    }
    EXPECT_EQ(known.size(), written);
    const std::vector<Verdict> xsd = verdictsOf(Schema::XMLSchema, known);
    for (std::size_t i = 0; i < known.size(); ++i)
        EXPECT_EQ(xsd[i], Verdict::Valid) << known[i];
}

} // namespace ipsecimpl
