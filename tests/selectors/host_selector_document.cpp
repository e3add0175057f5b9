#include "support/documents.h"
#include "support/number_forms.h"
#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// A selector's document in the written form: the family, the type, and the lines of its other children.
std::string documentOf(const std::string& family, const std::string& type, const std::string& lines = "")
{
    return "<hostSelector>\n" + leaf("family", family) + "\n" + leaf("selectorType", type) + "\n" + lines +
           "</hostSelector>\n";
}

struct Sample {
    HostSelector             selector;
    std::string              document;
    std::vector<std::string> leaves; // behind family and selectorType
};

const std::vector<Sample>& samples()
{
    // clang-format off
    static const std::vector<Sample> all = {
        {HostSelector(),
         documentOf("AF_INET", "NONE"), {}},
        {HostSelector(HOST_INET6, HOST_LOCAL, "", ""),
         documentOf("AF_INET6", "LOCAL"), {}},
        {HostSelector(HOST_INETANY, HOST_ANY, "", ""),
         documentOf("AF_ANY", "ANY"), {}},
        {HostSelector(HOST_INET, HOST_MCAST, "", ""),
         documentOf("AF_INET", "MCAST"), {}},
        {HostSelector(HOST_INET, HOST_SINGLE, "10.1.2.3", ""),
         documentOf("AF_INET", "SINGLE", "<addr1>10.1.2.3</addr1>\n"), {"addr1"}},
        {HostSelector(HOST_INETANY, HOST_SINGLE, "host.example", ""),
         documentOf("AF_ANY", "SINGLE", "<addr1>host.example</addr1>\n"), {"addr1"}},
        {HostSelector(HOST_INET6, HOST_RANGE, "fd00::1", "fd00::ff"),
         documentOf("AF_INET6", "RANGE", "<addr1>fd00::1</addr1>\n<addr2>fd00::ff</addr2>\n"), {"addr1", "addr2"}},
        {HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.1.2.0", 24),
         documentOf("AF_INET", "SUBNET_LENGTH", "<addr1>10.1.2.0</addr1>\n<length>24</length>\n"),
         {"addr1", "length"}},
        {HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "fd00::", -1),
         documentOf("AF_INET6", "SUBNET_LENGTH", "<addr1>fd00::</addr1>\n<length>-1</length>\n"), {"addr1", "length"}},
        {HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.255.0"),
         documentOf("AF_INET", "SUBNET_MASK", "<addr1>10.0.0.0</addr1>\n<mask>255.0.255.0</mask>\n"),
         {"addr1", "mask"}},
        {HostSelector(HOST_INET6, HOST_SUBNET_MASK, "fd00::", "FFFF::"),
         documentOf("AF_INET6", "SUBNET_MASK", "<addr1>fd00::</addr1>\n<mask>FFFF::</mask>\n"), {"addr1", "mask"}},
    };
    // clang-format on
    return all;
}

const std::string single = documentOf("AF_INET", "SINGLE", "<addr1>10.1.2.3</addr1>\n");
const std::string range  = documentOf("AF_INET", "RANGE", "<addr1>10.1.2.3</addr1>\n<addr2>10.1.2.9</addr2>\n");
const std::string prefix = documentOf("AF_INET", "SUBNET_LENGTH", "<addr1>10.1.2.0</addr1>\n<length>24</length>\n");
const std::string masked = documentOf("AF_INET", "SUBNET_MASK", "<addr1>10.0.0.0</addr1>\n<mask>255.0.0.0</mask>\n");
const std::string from   = "\nfrom <hostSelector>";
const char* const unknownWord = "to_int";

/// Why the reader refuses `text` with std::invalid_argument.
std::string wordRefusalOf(const std::string& text)
{
    return errorOf<std::invalid_argument>([&] { read<HostSelector>(text); });
}

TEST(HostSelectorDocument, WritesWhatItsTypeMeans)
{
    for (const Sample& sample : samples())
        EXPECT_EQ(written(sample.selector), sample.document);
}

TEST(HostSelectorDocument, GivesBackEveryFieldThatItsTypeMeans)
{
    for (const Sample& sample : samples()) {
        const HostSelector loaded = read<HostSelector>(sample.document);
        EXPECT_EQ(fieldsOf(loaded), fieldsOf(sample.selector));
        EXPECT_TRUE(loaded == sample.selector);
        EXPECT_EQ(loaded.compare(sample.selector), 0);
    }
}

TEST(HostSelectorDocument, IsTheSameWrittenReadAndWrittenAgainForEveryFamilyAndType)
{
    for (const AddressFamily& family : {HOST_INET, HOST_INET6, HOST_INETANY})
        for (const AddressType& type : {HOST_NONE, HOST_SINGLE, HOST_RANGE, HOST_LOCAL, HOST_ANY, HOST_MCAST}) {
            const std::string document = written(HostSelector(family, type, "one", "two"));
            EXPECT_EQ(rewritten<HostSelector>(document), document);
        }
    for (const Sample& sample : samples())
        EXPECT_EQ(rewritten<HostSelector>(sample.document), sample.document);
}

TEST(HostSelectorDocument, DoesNotHoldWhatItsTypeDoesNotMean)
{
    for (const Sample& sample : samples()) {
        HostSelector selector = sample.selector;
        if (selector.selectorType != HOST_SUBNET_LENGTH)
            selector.length = 99;
        if (selector.selectorType != HOST_RANGE && selector.selectorType != HOST_SUBNET_MASK)
            selector.addr2 = "unused";
        if (sample.leaves.empty())
            selector.addr1 = "unused";
        EXPECT_EQ(written(selector), sample.document);
    }
}

TEST(HostSelectorDocument, HoldsTextsAsTheyAre)
{
    EXPECT_EQ(written(HostSelector(HOST_INET, HOST_RANGE, "a<b & \"c\"", "")),
              documentOf("AF_INET", "RANGE", "<addr1>a<b & \"c\"</addr1>\n<addr2></addr2>\n"));
    EXPECT_EQ(fieldsOf(read<HostSelector>(documentOf("AF_INET", "RANGE", "<addr1>a&lt;b > \"c\"</addr1><addr2/>"))),
              "AF_INET RANGE 'a&lt;b > \"c\"' '' 0");
}

TEST(HostSelectorDocument, ComesLineByLine)
{
    for (const Sample& sample : samples())
        expectWrittenByLines(sample.selector);
}

TEST(HostSelectorDocument, WritesTheLengthAsTheStreamWritesNumbers)
{
    std::ostringstream out;
    out << std::hex << std::showbase;
    HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.1.2.0", 24).exportXML(out);
    EXPECT_EQ(out.str(), changed(prefix, "<length>24<", "<length>0x18<"));
}

TEST(HostSelectorDocument, IsReadNoFurtherThanItsEndTag)
{
    for (const Sample& sample : samples())
        expectReadNoFurther<HostSelector>(sample.document);
}

TEST(HostSelectorDocument, IsRefusedInAnotherFrameOrCutShort)
{
    for (const std::string& document : {single, range, prefix, masked})
        expectFrameChecked<HostSelector>(document, "hostSelector");
}

TEST(HostSelectorDocument, NeedsItsLeavesInTheirOrder)
{
    expectLeavesChecked<HostSelector>(single, "hostSelector", {"family", "selectorType", "addr1"});
    expectLeavesChecked<HostSelector>(range, "hostSelector", {"family", "selectorType", "addr1", "addr2"});
    expectLeavesChecked<HostSelector>(prefix, "hostSelector", {"family", "selectorType", "addr1", "length"});
    expectLeavesChecked<HostSelector>(masked, "hostSelector", {"family", "selectorType", "addr1", "mask"});
}

TEST(HostSelectorDocument, MayHoldItsLeavesInEveryForm)
{
    for (const Sample& sample : samples()) {
        std::vector<std::string> tags = {"family", "selectorType"};
        tags.insert(tags.end(), sample.leaves.begin(), sample.leaves.end());
        expectLeafForms<HostSelector>(sample.document, tags);
    }
}

TEST(HostSelectorDocument, MayHoldEmptyAddresses)
{
    for (const char* empty :
         {"<addr1></addr1>", "<addr1/>", "<addr1 value=''/>", "<addr1 value/>", "<addr1> \n </addr1>"})
        EXPECT_EQ(fieldsOf(read<HostSelector>(changed(single, "<addr1>10.1.2.3</addr1>", empty))),
                  "AF_INET SINGLE '' '' 0")
            << empty;
}

TEST(HostSelectorDocument, KeepsBlanksAroundAnAddressOnlyInTheAttribute)
{
    EXPECT_EQ(fieldsOf(read<HostSelector>(changed(single, "<addr1>10.1.2.3</addr1>", "<addr1> a  b </addr1>"))),
              "AF_INET SINGLE 'a  b' '' 0");
    EXPECT_EQ(fieldsOf(read<HostSelector>(changed(single, "<addr1>10.1.2.3</addr1>", "<addr1 value=' a  b '/>"))),
              "AF_INET SINGLE ' a  b ' '' 0");
}

TEST(HostSelectorDocument, HasNoMoreChildrenThanItsTypeMeans)
{
    for (const Sample& sample : samples())
        for (const char* tag : {"addr1", "addr2", "length", "mask", "family", "x"}) {
            const std::string more =
                changed(sample.document, "</hostSelector>", "<" + std::string(tag) + ">1</" + tag + "></hostSelector>");
            EXPECT_EQ(refusalOf<HostSelector>(more),
                      std::string("parse_end_tag: expected '/', got '") + tag[0] + "'" + from)
                << more;
        }
}

TEST(HostSelectorDocument, NeedsTheChildrenOfItsType)
{
    const std::string wrong = "parse_tagged_value: wrong tag; expected ";
    // clang-format off
    expectRefused<HostSelector>({
        {documentOf("AF_INET", "SINGLE"),        "parse_tagged_value: missing tag; expected <addr1>" + from},
        {documentOf("AF_INET", "RANGE"),         "parse_tagged_value: missing tag; expected <addr1>" + from},
        {documentOf("AF_INET", "SUBNET_LENGTH"), "parse_tagged_value: missing tag; expected <addr1>" + from},
        {documentOf("AF_INET", "SUBNET_MASK"),   "parse_tagged_value: missing tag; expected <addr1>" + from},
        {changed(single, "SINGLE", "RANGE"),     "parse_tagged_value: missing tag; expected <addr2>" + from},
        {changed(range, "RANGE", "SUBNET_MASK"),   wrong + "<mask>, found <addr2>\nfrom <addr2>" + from},
        {changed(range, "RANGE", "SUBNET_LENGTH"), wrong + "<length>, found <addr2>\nfrom <addr2>" + from},
        {changed(prefix, "SUBNET_LENGTH", "SUBNET_MASK"), wrong + "<mask>, found <length>\nfrom <length>" + from},
        {changed(masked, "SUBNET_MASK", "SUBNET_LENGTH"), wrong + "<length>, found <mask>\nfrom <mask>" + from},
    });
    // clang-format on
}

TEST(HostSelectorDocument, RefusesUnknownWordsAsTheEnumerationsDo)
{
    for (const char* family : {"af_inet", "INET", "AF_INET4", "0", "ANY", "AF_INET\v6"})
        EXPECT_EQ(wordRefusalOf(withText(single, "family", family)), unknownWord) << family;
    for (const char* type : {"single", "SUBNET", "SUBNET_LEN", "1", "AF_ANY", "SINGLE RANGE"})
        EXPECT_EQ(wordRefusalOf(withText(single, "selectorType", type)), unknownWord) << type;
}

TEST(HostSelectorDocument, RefusesEmptyWordsAsTheEnumerationsDo)
{
    EXPECT_EQ(wordRefusalOf(withText(single, "family", "")), unknownWord);
    EXPECT_EQ(wordRefusalOf(changed(single, "<family>AF_INET</family>", "<family/>")), unknownWord);
    EXPECT_EQ(wordRefusalOf(changed(single, "<family>AF_INET</family>", "<family value=' AF_INET'/>")), unknownWord);
    EXPECT_EQ(wordRefusalOf(withText(single, "selectorType", " ")), unknownWord);
}

TEST(HostSelectorDocument, RefusesAWordBeforeItReadsOn)
{
    EXPECT_EQ(wordRefusalOf("<hostSelector><family>x</family>"), unknownWord);
    EXPECT_EQ(wordRefusalOf("<hostSelector><family>AF_INET</family><selectorType>x</selectorType>"), unknownWord);
    EXPECT_EQ(wordRefusalOf("<hostSelector><family>x</family><selectorType>y</selectorType></z>"), unknownWord);
}

TEST(HostSelectorDocument, HoldsTheLengthInEveryFormOfANumber)
{
    expectNumberForms<HostSelector>(prefix, "length", Sign::Signed);
}

TEST(HostSelectorDocument, GivesEveryLengthItsMask)
{
    // clang-format off
    const struct { const char* text; const char* fields; } rows[] = {
        {"abc",        "'0.0.0.0' 0"},
        {"",           "'0.0.0.0' 0"},
        {"0x18",       "'255.255.255.0' 24"},
        {"030",        "'255.255.255.0' 24"},
        {"08",         "'0.0.0.0' 0"},
        {"25 bits",    "'255.255.255.128' 25"},
        {"33",         "'255.255.255.255' 33"},
        {"-1",         "'255.255.255.255' -1"},
        {"4294967296", "'255.255.255.255' 2147483647"},
        {"-4294967296", "'255.255.255.255' -2147483648"},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(fieldsOf(read<HostSelector>(withText(prefix, "length", row.text))),
                  "AF_INET SUBNET_LENGTH '10.1.2.0' " + std::string(row.fields));
}

TEST(HostSelectorDocument, RefusesAMaskThatIsNoAddressOfItsFamily)
{
    const std::string bad = "bad value in <hostSelector>";
    for (const char* mask : {"", "x", "24", "255.255.255", "255.0.0.0/8", "ffff::", "256.0.0.0"})
        EXPECT_EQ(refusalOf<HostSelector>(withText(masked, "mask", mask)), bad) << mask;
    EXPECT_EQ(refusalOf<HostSelector>(withText(masked, "family", "AF_INET6")), bad);
    EXPECT_EQ(refusalOf<HostSelector>(changed(masked, "<mask>255.0.0.0</mask>", "<mask/>")), bad);
    EXPECT_EQ(refusalOf<HostSelector>(changed(masked, "<mask>255.0.0.0</mask>", "<mask value=' 255.0.0.0'/>")), bad);
}

TEST(HostSelectorDocument, RefusesSubnetsOfAnyFamily)
{
    EXPECT_EQ(refusalOf<HostSelector>(withText(masked, "family", "AF_ANY")), "bad value in <hostSelector>");
    EXPECT_EQ(refusalOf<HostSelector>(withText(prefix, "family", "AF_ANY")), "bad value in <hostSelector>");
}

TEST(HostSelectorDocument, RefusesABadValueBeforeItReadsTheEndTag)
{
    EXPECT_EQ(refusalOf<HostSelector>(changed(withText(masked, "mask", "x"), "</hostSelector>", "<more/>")),
              "bad value in <hostSelector>");
    EXPECT_EQ(refusalOf<HostSelector>(changed(withText(prefix, "family", "AF_ANY"), "</hostSelector>", "")),
              "bad value in <hostSelector>");
    EXPECT_EQ(refusalOf<HostSelector>(changed(withText(masked, "mask", "x"), "</mask>", "</m>")),
              "parse_end_tag: begin/end tags don't match\nfrom <mask>" + from);
}

TEST(HostSelectorDocument, MayHoldAMaskWithANulOfWhichTheRestIsIgnored)
{
    const std::string  mask("255.240.0.0\0x", 13);
    const HostSelector selector = read<HostSelector>(withText(masked, "mask", mask));
    EXPECT_EQ(selector.addr2, mask);
    EXPECT_EQ(selector.length, 12);
}

} // namespace
} // namespace ipsecimpl
