// Reading looks at none of the stream's settings and changes none but skipws. Writing goes by the stream's base, sign,
// locale and width, and changes none but the width, which is used up, as by any insertion.

#include "hostile/locales.h"
#include "hostile/sweep.h"

#include "support/samples.h"
#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <functional>
#include <ios>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// The settings of a stream that stay until someone changes them.
struct Settings {
    explicit Settings(const std::ios& stream)
        : flags(stream.flags())
        , width(stream.width())
        , precision(stream.precision())
        , fill(stream.fill())
        , mask(stream.exceptions())
        , locale(stream.getloc())
        , tied(stream.tie())
    {
    }

    bool operator==(const Settings& other) const
    {
        return flags == other.flags && width == other.width && precision == other.precision && fill == other.fill &&
               mask == other.mask && locale == other.locale && tied == other.tied;
    }

    std::ios_base::fmtflags flags;
    std::streamsize         width;
    std::streamsize         precision;
    char                    fill;
    std::ios_base::iostate  mask;
    std::locale             locale;
    std::ostream*           tied;
};

std::ostream& tiedTo()
{
    static std::ostringstream out;
    return out;
}

/// The leaves in which a number of each type stands, as a stream with the setting writes them.
struct Numbers {
    const char* builtinName  = "-26";        ///< int
    const char* builtinDescr = "1234567";    ///< int
    const char* protocol     = "6";          ///< unsigned short
    const char* dstPort      = "1024";       ///< unsigned short
    const char* hostGroupID  = "4000000000"; ///< unsigned int
    const char* encryption   = "1000";       ///< unsigned long
};

struct Setting {
    const char*                    name;
    std::function<void(std::ios&)> set;
    Numbers                        numbers; ///< as they are written
};

const std::vector<Setting> settings{
    // clang-format off
    {"none",         [](std::ios&) {},                                        {}},
    {"hex",          [](std::ios& s) { s.setf(s.hex, s.basefield); },
                     {"ffffffe6", "12d687", "6", "400", "ee6b2800", "3e8"}},
    {"oct",          [](std::ios& s) { s.setf(s.oct, s.basefield); },
                     {"37777777746", "4553207", "6", "2000", "35632624000", "1750"}},
    {"no base",      [](std::ios& s) { s.unsetf(s.basefield); },              {}},
    {"two bases",    [](std::ios& s) { s.setf(s.hex); },                      {}},
    {"showbase",     [](std::ios& s) { s.setf(s.showbase); },                 {}},
    {"hex showbase", [](std::ios& s) { s.setf(s.hex, s.basefield); s.setf(s.showbase); },
                     {"0xffffffe6", "0x12d687", "0x6", "0x400", "0xee6b2800", "0x3e8"}},
    {"hex showbase uppercase",
                     [](std::ios& s) { s.setf(s.hex, s.basefield); s.setf(s.showbase | s.uppercase); },
                     {"0XFFFFFFE6", "0X12D687", "0X6", "0X400", "0XEE6B2800", "0X3E8"}},
    {"oct showbase", [](std::ios& s) { s.setf(s.oct, s.basefield); s.setf(s.showbase); },
                     {"037777777746", "04553207", "06", "02000", "035632624000", "01750"}},
    {"uppercase",    [](std::ios& s) { s.setf(s.uppercase); },                {}},
    {"showpos",      [](std::ios& s) { s.setf(s.showpos); },
                     {"-26", "+1234567", "6", "1024", "4000000000", "1000"}},
    {"boolalpha",    [](std::ios& s) { s.setf(s.boolalpha); },                {}},
    {"unitbuf",      [](std::ios& s) { s.setf(s.unitbuf); },                  {}},
    {"skipws",       [](std::ios& s) { s.setf(s.skipws); },                   {}},
    {"no skipws",    [](std::ios& s) { s.unsetf(s.skipws); },                 {}},
    {"left",         [](std::ios& s) { s.setf(s.left, s.adjustfield); },      {}},
    {"internal",     [](std::ios& s) { s.setf(s.internal, s.adjustfield); },  {}},
    {"scientific",   [](std::ios& s) { s.setf(s.scientific, s.floatfield); }, {}},
    {"precision",    [](std::ios& s) { s.precision(1); },                     {}},
    {"fill",         [](std::ios& s) { s.fill('0'); },                        {}},
    {"mask",         [](std::ios& s) { s.exceptions(s.badbit | s.failbit | s.eofbit); }, {}},
    {"tied",         [](std::ios& s) { s.tie(&tiedTo()); },                   {}},
    {"thousands",    [](std::ios& s) { s.imbue(std::locale(std::locale::classic(), new Thousands)); },
                     {"-26", "1.234.567", "6", "1.024", "4.000.000.000", "1.000"}},
    {"latin1",       [](std::ios& s) { s.imbue(std::locale(std::locale::classic(), new Latin1)); }, {}},
    // clang-format on
};

std::string expected(const Numbers& numbers)
{
    const auto leaf = [](const std::string& tag, const std::string& text) {
        return "<" + tag + ">" + text + "</" + tag + ">\n";
    };
    return "<hostGroup>\n" + leaf("name", "n") + leaf("builtinName", numbers.builtinName) + leaf("descr", "true") +
           leaf("builtinDescr", numbers.builtinDescr) + "<selectors>\n</selectors>\n</hostGroup>\n" +
           "<protocolSelector>\n" + leaf("protocol", numbers.protocol) + leaf("name", "p") +
           leaf("dstPort", numbers.dstPort) + leaf("srcPort", "0") + leaf("direction", "IN") +
           leaf("mirrored", "MIRRORED") + "</protocolSelector>\n" + "<policy>\n" +
           leaf("hostGroupID", numbers.hostGroupID) + leaf("protocolGroupID", "0") + leaf("actionID", "0") +
           "</policy>\n" + "<saProposal>\n" + leaf("protocol", "ESP") + leaf("encryption", numbers.encryption) +
           leaf("hash", "0") + "</saProposal>\n";
}

void write(std::ostream& out)
{
    HostGroup("n", -26, "true", 1234567).exportXML(out);
    ProtocolSelector("p", 6, 1024, 0, PROTO_IN, true).exportXML(out);
    Policy(4000000000U, 0, 0).exportXML(out);
    IPsecProposal(IPSEC_ESP, 1000, 0).exportXML(out);
}

TEST(StreamSettings, DecideHowNumbersAreWrittenAndNothingElse)
{
    for (const Setting& setting : settings) {
        std::ostringstream out;
        setting.set(out);
        const Settings before(out);
        write(out);
        EXPECT_EQ(out.str(), expected(setting.numbers)) << setting.name;
        EXPECT_TRUE(Settings(out) == before) << setting.name;
        EXPECT_TRUE(out.good()) << setting.name;
    }
    reportCases(settings.size());
}

TEST(StreamSettings, OfTheInputAreNotLookedAtAndStayButSkipws)
{
    const std::string text = sampleText("branch-office");
    for (const Setting& setting : settings) {
        std::istringstream in(text);
        setting.set(in);
        Settings  before(in);
        XMLParser parser(in);
        EXPECT_EQ(written(IPsecConfig::importXML(parser)), text) << setting.name;
        before.flags &= ~std::ios_base::skipws;
        EXPECT_TRUE(Settings(in) == before) << setting.name;
        EXPECT_TRUE(in.good()) << setting.name;
    }
}

TEST(StreamSettings, OfTheInputHaveNoPartInAMessage)
{
    for (const Setting& setting : settings) {
        std::istringstream in("<policy><hostGroupID>1</hostGroupID>\xA0");
        setting.set(in);
        XMLParser parser(in);
        EXPECT_EQ(errorOf([&] { Policy::importXML(parser); }), "parse_tag: expected '<', found '\xA0'\nfrom <policy>")
            << setting.name;
    }
}

TEST(StreamSettings, WithAWidthReadAlikeAndTheWidthStays)
{
    std::istringstream in("<policy><hostGroupID>123456</hostGroupID><protocolGroupID/><actionID/></policy>");
    in.width(3); // would cut a text that is extracted
    XMLParser parser(in);
    EXPECT_EQ(Policy::importXML(parser).hostGroupID, 123456U);
    EXPECT_EQ(in.width(), 3);
}

TEST(StreamSettings, WithAWidthPadTheFirstCharacterThatIsWrittenAndNoOther)
{
    const std::string behind = "policy>\n<hostGroupID>1</hostGroupID>\n<protocolGroupID>2</protocolGroupID>\n"
                               "<actionID>3</actionID>\n</policy>\n";
    const std::pair<std::ios_base::fmtflags, std::string> rows[] = {
        {std::ios_base::fmtflags(), "****<"},
        {std::ios_base::right, "****<"},
        {std::ios_base::internal, "****<"},
        {std::ios_base::left, "<****"},
    };
    for (const auto& [adjustment, begin] : rows) {
        std::ostringstream out;
        out.setf(adjustment, std::ios_base::adjustfield);
        out.fill('*');
        out.width(5);
        Policy(1, 2, 3).exportXML(out);
        EXPECT_EQ(out.str(), begin + behind);
        EXPECT_EQ(out.width(), 0);
        EXPECT_EQ(out.fill(), '*');
    }
}

TEST(StreamSettings, WithAWidthOfBlanksWriteADocumentThatIsReadAlike)
{
    std::ostringstream out;
    out.width(100);
    Policy(1, 2, 3).exportXML(out);
    EXPECT_EQ(rewritten<Policy>(out.str()), written(Policy(1, 2, 3)));
}

/// Which of the settings write documents that come back, and which do not.
TEST(StreamSettings, ThatAreNotDecimalOrGroupDigitsWriteADocumentThatReadsAsAnother)
{
    const Policy policy(4000000000U, 10, 3);
    for (const Setting& setting : settings) {
        std::ostringstream out;
        setting.set(out);
        policy.exportXML(out);
        const std::string back  = rewritten<Policy>(out.str());
        const std::string name  = setting.name;
        const bool        other = name == "hex" || name == "oct" || name == "thousands";
        EXPECT_EQ(back == written(policy), !other) << name;
    }
    // With showbase the base is told, but IDs of entries, protocols and ports are decimal whatever they look like.
    Policies           policies = read<Policies>("<policies><nextpolicy>26</nextpolicy></policies>");
    std::ostringstream out;
    out << std::hex << std::showbase;
    policies.exportXML(out);
    EXPECT_EQ(refusalOf<Policies>(out.str()), "invalid value for nextpolicy");
}

TEST(StreamSettings, WithATiedStreamFlushItBeforeAnythingIsRead)
{
    struct Tied : std::stringbuf {
        int flushes = 0;
        int sync() override { return ++flushes, 0; }
    } buffer;
    std::ostream       prompt(&buffer);
    std::istringstream in("<policy><hostGroupID/><protocolGroupID/><actionID/></policy>");
    in.tie(&prompt);
    prompt << "document: ";
    XMLParser parser(in);
    EXPECT_EQ(buffer.flushes, 0);
    Policy::importXML(parser);
    EXPECT_GT(buffer.flushes, 0);
}

} // namespace
} // namespace ipsecimpl
