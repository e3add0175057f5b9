// A document means the same whatever locale the program has set. Numbers are written by the stream's own locale, which
// is the program's unless the caller says otherwise.

#include "hostile/locales.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/number_forms.h"
#include "support/samples.h"

#include <clocale>
#include <cstdlib>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

// The C library's newlocale() loses what it makes of LOCPATH. Read by the leak sanitizer, where there is one.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:argz_add_sep\n"; // with underscores where the C library has no debug symbols
}

namespace ipsecimpl {
namespace {

struct ProgramLocale {
    const char* name; ///< as the machine knows it, or empty for one that is made of facets
    const char* title;
    const char* million; ///< 1000000 as it writes it
};

/// The German one in Latin-1 is made for this test, where the machine has what it takes.
const std::vector<ProgramLocale> programLocales{
    {"C", "C", "1000000"},
    {"C.UTF-8", "UTF8", "1000000"},
    {"de_DE.ISO-8859-1", "GermanLatin1", "1.000.000"},
    {"", "OfFacets", "1.000.000"},
};

class GlobalLocale : public ::testing::TestWithParam<ProgramLocale> {
  protected:
    void SetUp() override
    {
        setenv("LOCPATH", LOCALES_DIR, 1);
        const std::string name = GetParam().name;
        try {
            std::locale::global(name.empty() ? latin1WithThousands() : std::locale(name));
        } catch (const std::runtime_error&) {
            unsetenv("LOCPATH"); // what is made for another machine's libc is no locale here
            try {
                std::locale::global(std::locale(name));
            } catch (const std::runtime_error&) {
                GTEST_SKIP() << "there is no locale " << name;
            }
        }
    }

    void TearDown() override
    {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }
};

INSTANTIATE_TEST_SUITE_P(Programs, GlobalLocale, ::testing::ValuesIn(programLocales),
                         [](const auto& locale) { return std::string(locale.param.title); });

/// What comes of damaged documents, as long as it does not depend on how numbers are written.
std::vector<std::string> outcomesOfDamage()
{
    std::vector<std::string> results;
    for (const SmallDocument& document : smallDocuments()) {
        for (const std::size_t pair : places(results.size() % 1999, document.text.size() * 256 - 1, 1999)) {
            std::string text = document.text;
            text[pair / 256] = static_cast<char>(pair % 256);
            std::istringstream in(text);
            XMLParser          parser(in);
            results.push_back(document.element.read(parser));
        }
    }
    return results;
}

TEST_P(GlobalLocale, IsInForceInNewStreams)
{
    std::ostringstream out;
    out << 1000000;
    EXPECT_EQ(out.str(), GetParam().million);
}

TEST_P(GlobalLocale, ChangesNothingInWhatASampleIsLoadedAs)
{
    for (const std::string& name : sampleNames()) {
        const std::string text = sampleText(name);
        EXPECT_EQ(rewritten<IPsecConfig>(text), text) << name;
    }
}

TEST_P(GlobalLocale, ChangesNothingInWhatIsReadAndWhatIsRefused)
{
    const std::vector<std::string> here   = outcomesOfDamage();
    const std::locale              global = std::locale::global(std::locale::classic());
    const std::string              c      = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(here, outcomesOfDamage());
    std::locale::global(global);
    std::setlocale(LC_ALL, c.c_str());
    reportCases(here.size());
}

TEST_P(GlobalLocale, ChangesNothingInWhatBytesTheParserTakesForWhiteSpaceAndNames)
{
    for (int byte = 0; byte < 256; ++byte) {
        const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        const bool digit  = byte >= '0' && byte <= '9';
        const bool other  = byte == '.' || byte == '-' || byte == '_' || byte == ':';
        EXPECT_EQ(XMLParser::isNameChar(byte), letter || digit || other) << byte;

        std::string text = std::string("x") + static_cast<char>(byte);
        XMLParser::trim(text);
        EXPECT_EQ(text.size() == 1, byte == ' ' || (byte >= '\t' && byte <= '\r')) << byte;
    }
}

TEST_P(GlobalLocale, ChangesNothingInANumber)
{
    const SmallDocument& document = smallDocument("policy");
    for (const NumberForm& form : numberForms())
        EXPECT_EQ(read<Policy>(withText(document.text, "hostGroupID", form.text)).hostGroupID, form.unsignedValue)
            << form.text;
    for (const char* text : {"1.000", "1,000", "1'000", "1 000",
                             "1\xA0"
                             "000"})
        EXPECT_EQ(read<Policy>(withText(document.text, "actionID", text)).actionID, 1U) << text;
}

TEST_P(GlobalLocale, ChangesNothingInAMask)
{
    EXPECT_EQ(HostSelector::len2mask(HOST_INET, 25), "255.255.255.128");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 1000), "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff");
    EXPECT_EQ(HostSelector::mask2len(HOST_INET, "255.255.254.0"), 23);
    EXPECT_EQ(errorOf<std::invalid_argument>([] { HostSelector::mask2len(HOST_INET, "255,255,254,0"); }),
              "invalid mask");
}

TEST_P(GlobalLocale, ChangesNothingInAMessage)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Policies().at(1000000); }), "no policy with ID 1000000");
    EXPECT_EQ(refusalOf<Policy>("<policy>\xA0<hostGroupID>"), "parse_tag: expected '<', found '\xA0'\nfrom <policy>");
    EXPECT_EQ(refusalOf<Policy>("<policy\xE9>"), "parse_tag_end: invalid attribute or missing '>'\nfrom <policy>");
}

TEST_P(GlobalLocale, GroupsTheDigitsThatAreWrittenToAStreamThatHasIt)
{
    std::ostringstream out;
    Policy(1000000, 1, 1).exportXML(out);
    EXPECT_EQ(out.str(), std::string("<policy>\n<hostGroupID>") + GetParam().million +
                             "</hostGroupID>\n<protocolGroupID>1</protocolGroupID>\n<actionID>1</actionID>\n"
                             "</policy>\n");
}

TEST_P(GlobalLocale, IsReplacedByTheLocaleThatTheCallerGivesTheStream)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    Policy(1000000, 1, 1).exportXML(out);
    EXPECT_EQ(read<Policy>(out.str()).hostGroupID, 1000000U);
}

} // namespace
} // namespace ipsecimpl
