// Every leaf with texts that are in the written form there, and with such as are not; and leaves and elements that are
// missing, doubled or in another place.

#include "generator.h"
#include "schema/documents.h"
#include "schema/validator.h"
#include "support/documents.h"
#include "support/number_forms.h"

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {
namespace {

/// As expectAgreement(), however many there are.
void expectAgreement(const std::vector<std::string>& documents)
{
    std::size_t written = 0;
    for (const std::string& document : documents)
        written += isWrittenForm(document) ? 1U : 0U;
    ASSERT_NE(written, 0U);
    ASSERT_NE(written, documents.size());
    ipsecimpl::expectAgreement(documents, written);
}

/// What a leaf holds in the document with every element.
enum class Holds { Number, Word, Text };

Holds contentOf(const std::string& line)
{
    const std::string text = textIn(line, elementIn(line));
    if (text.find_first_not_of("0123456789") == std::string::npos)
        return Holds::Number;
    return text.find_first_of("abcdefghijklmnopqrstuvwxyz.:") == std::string::npos ? Holds::Word : Holds::Text;
}

/// Is it an ID of an entry, or the next one? Which of them there can be depends on others.
bool isID(const std::string& tag)
{
    return tag == "id" || tag.compare(0, 4, "next") == 0;
}

/// The document with every element, with each text in place of that of each such leaf.
std::vector<std::string> withTextsInLeaves(Holds content, const std::vector<std::string>& texts)
{
    std::vector<std::string>       documents;
    const std::vector<std::string> lines = linesOf(everyElement());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string tag = elementIn(lines[i]);
        if (!isLeaf(lines[i]) || isID(tag) || contentOf(lines[i]) != content)
            continue;
        for (const std::string& text : texts) {
            std::vector<std::string> changed = lines;
            changed[i]                       = leaf(tag, text);
            documents.push_back(joinedLines(changed));
        }
    }
    return documents;
}

/// All words of all enumerations that documents have.
std::vector<std::string> allWords()
{
    std::set<std::string> words{"MIRRORED", "NOTMIRRORED"};
    for (const auto& [table, count] : {
             std::pair{__SPDActionNames__, __SPDActionNum__},
             std::pair{__IPsecKeyMgrNames__, __IPsecKeyMgrNum__},
             std::pair{__IPsecProtocolNames__, __IPsecProtocolNum__},
             std::pair{__IKEAuthTypeNames__, __IKEAuthTypeNum__},
             std::pair{__IKEPhase1TransformNames__, __IKEPhase1TransformNum__},
             std::pair{__DHGroupNames__, __DHGroupNum__},
             std::pair{__KeyLifetimeUnitsNames__, __KeyLifetimeUnitsNum__},
             std::pair{__AddressFamilyNames__, __AddressFamilyNum__},
             std::pair{__AddressTypeNames__, __AddressTypeNum__},
             std::pair{__DirectionNames__, __DirectionNum__},
         })
        words.insert(table, table + count);
    return {words.begin(), words.end()};
}

TEST(SchemaAndReader, AgreeOnEveryWordInEveryPlaceOfOne)
{
    expectAgreement(withTextsInLeaves(Holds::Word, allWords()));
}

TEST(SchemaAndReader, AgreeOnWhatIsAlmostAWord)
{
    const auto documents = withTextsInLeaves(Holds::Word, {"", "WORD", "none", "IN.", "AF_INET 6", "0"});
    ipsecimpl::expectAgreement(documents, 0);
}

TEST(SchemaAndReader, AgreeOnNumbersInEveryPlaceOfOne)
{
    expectAgreement(withTextsInLeaves(Holds::Number, {"", "0", "-0", "-1", "+1", "08", "0x10", " 77", "7 7", "65535",
                                                      "65536", "2147483648", "-2147483648", "-2147483649", "4294967295",
                                                      "4294967296", "number"}));
}

TEST(SchemaAndReader, AgreeOnTextsAndTheWhiteSpaceAroundThem)
{
    expectAgreement(withTextsInLeaves(Holds::Text, {"", "a b", "a\nb", "a\n", "\ta", " ", "a > b", "\"'", "\xC3\xA4",
                                                    "a\xC2\xA0", "x" + std::string(100000, ' ') + "x"}));
}

TEST(SchemaAndReader, AgreeOnEveryFormOfANumber)
{
    std::vector<std::string> documents;
    for (const char* line : {"<type>7</type>", "<hostGroupID>1</hostGroupID>", "<dstPort>80</dstPort>"})
        for (const NumberForm& form : numberForms())
            if (form.text != "&#49;") // of which XML makes a 1
                documents.push_back(changed(everyElement(), line, leaf(elementIn(line), form.text)));
    expectAgreement(documents);
}

TEST(SchemaAndReader, AgreeOnEveryFormOfAnID)
{
    const std::string greatest = changed(everyElement(), "<nextaction>9<", "<nextaction>2147483647<");
    const std::string beyond   = changed(everyElement(), "<nextaction>9<", "<nextaction>2147483648<");

    std::vector<std::string> documents{changed(beyond, "<id>5</id>", "<id>2147483647</id>")};
    for (const NumberForm& form : numberForms()) {
        // Of the first, XML makes a 1. The others are an ID that is in use, and one that makes the next one greater.
        const std::string& text = form.text;
        if (text != "&#49;" && text != "1" && text != "2147483647")
            documents.push_back(changed(greatest, "<id>5</id>", leaf("id", text)));
        // The first again, and two that others make greater.
        if (text != "&#49;" && text != "1" && text != "2147483648")
            documents.push_back(changed(everyElement(), "<nextpolicy>9</nextpolicy>", leaf("nextpolicy", text)));
    }
    expectAgreement(documents);
}

/// A mask, or nearly one.
std::string randomMask(bench::Random& random)
{
    static const char* const masks[]{"255.255.255.0",
                                     "ffff:ffff::",
                                     "::",
                                     "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff",
                                     "::255.255.0.0",
                                     "ffff:ffff:ffff:ffff:ffff:ffff:255.0.0.0",
                                     "1:2:3:4:5:6:7::",
                                     "ffff::1:2:3:4:5:6",
                                     "1:2:3::4:255.255.255.255"};
    static const char* const pieces[]{"255", "0", "256", "1", "f", "ffff", "FFFF0", ":", ":", ":", "::", ".", ".255"};

    std::string mask = random.oneOf(masks);
    for (unsigned int changes = random.below(3); changes > 0; --changes) {
        const unsigned int at     = random.below(static_cast<unsigned int>(mask.size()) + 1);
        const unsigned int length = random.below(3);
        mask.replace(at, length, random.oneOf(pieces));
    }
    return mask;
}

TEST(SchemaAndReader, AgreeOnMasks)
{
    bench::Random            random(1);
    std::vector<std::string> documents;
    for (int i = 0; i < 1000; ++i)
        for (const char* family : {"AF_INET", "AF_INET6"})
            documents.push_back(
                withHostSelector("<hostSelector>\n<family>" + std::string(family) +
                                 "</family>\n<selectorType>SUBNET_MASK</selectorType>\n<addr1></addr1>\n" +
                                 leaf("mask", randomMask(random)) + "\n</hostSelector>\n"));
    expectAgreement(documents);
}

/// Where the line's element ends: the index behind its last line.
std::size_t endOf(const std::vector<std::string>& lines, std::size_t begin)
{
    if (isLeaf(lines[begin]))
        return begin + 1;
    std::size_t end = begin;
    while (lines[end] != "</" + elementIn(lines[begin]) + ">")
        ++end;
    return end + 1;
}

/// May an element of this name stand twice as far as a schema can tell? The reader refuses the ID, or drops a selector.
bool isUnlikeItsEqual(const std::string& name)
{
    const std::string end = "Entry";
    return name == "hostSelector" || name == "protocolSelector" ||
           (name.size() > end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0);
}

using Lines = std::vector<std::string>;

Lines::const_iterator at(const Lines& lines, std::size_t i)
{
    return lines.begin() + static_cast<std::ptrdiff_t>(i);
}

TEST(SchemaAndReader, AgreeOnWhatIsMissingDoubledOrMisplaced)
{
    const Lines              lines = linesOf(everyElement());
    std::vector<std::string> documents;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (elementIn(lines[i]).empty())
            continue;
        const std::size_t end = endOf(lines, i);
        const Lines       element(at(lines, i), at(lines, end));

        Lines without = lines;
        without.erase(at(without, i), at(without, end));
        documents.push_back(joinedLines(without));

        Lines twice = lines;
        twice.insert(at(twice, i), element.begin(), element.end());
        if (!isUnlikeItsEqual(elementIn(lines[i])))
            documents.push_back(joinedLines(twice));

        if (elementIn(lines[end]).empty() || isUnlikeItsEqual(elementIn(lines[i])))
            continue;
        Lines later = without;
        later.insert(at(later, i + endOf(lines, end) - end), element.begin(), element.end());
        documents.push_back(joinedLines(later));
    }
    expectAgreement(documents);
}

} // namespace
} // namespace ipsecimpl
