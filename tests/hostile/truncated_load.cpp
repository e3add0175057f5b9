// Documents that break off, at every byte.
//
// A load that comes through yields the configuration of the whole document: it is written as the whole one is. That is
// so where nothing but white space is missing. Any other one is a ParseError, whose message is the same from every kind
// of buffer, and leaves the configuration that was to be replaced as it was.

#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/samples.h"

#include <string>

namespace ipsecimpl {
namespace {

/// Index behind the last tag.
std::size_t endOf(const std::string& text)
{
    return text.rfind('>') + 1;
}

TEST(TruncatedLoad, OfAnySmallElementAtAnyByteIsRefusedAlikeFromEveryBuffer)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        for (std::size_t size = 0; size <= document.text.size(); ++size, ++cases)
            EXPECT_EQ(expectAlike(document.element, document.text.substr(0, size), 1 + size % 23),
                      size >= endOf(document.text))
                << document.name << " cut at " << size;
    }
    reportCases(cases);
}

TEST(TruncatedLoad, UnderEveryExceptionMaskIsRefusedAlikeFromEveryBuffer)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        for (const std::size_t size : places(wholeSweeps() ? 0 : cases % 19, document.text.size(), 19)) {
            ++cases;
            for (const std::ios_base::iostate mask :
                 {std::ios_base::failbit, std::ios_base::eofbit, std::ios_base::badbit,
                  std::ios_base::failbit | std::ios_base::eofbit | std::ios_base::badbit})
                EXPECT_EQ(expectAlike(document.element, document.text.substr(0, size), 1 + size % 23, {mask}),
                          size >= endOf(document.text))
                    << document.name << " cut at " << size << " under mask " << mask;
        }
    }
    reportCases(cases);
}

class TruncatedSample : public ::testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Configs, TruncatedSample, ::testing::ValuesIn(sampleNames()),
                         [](const auto& sample) { return testName(sample.param); });

TEST_P(TruncatedSample, LoadsWholeOrIsRefusedAndReplacesNothing)
{
    const std::string text   = sampleText(GetParam());
    const std::string before = smallDocument("ipsec").text;
    IPsecConfig       config = read<IPsecConfig>(before);
    std::size_t       cases  = 0;
    for (const std::size_t size : places(0, endOf(text) - 1, 397)) {
        ++cases;
        const std::string cut     = text.substr(0, size);
        const std::string message = errorOf([&] { config = read<IPsecConfig>(cut); });
        ByteBuffer        bytes(cut);
        std::istream      in(&bytes);
        XMLParser         parser(in);
        ASSERT_EQ(message, errorOf([&] { IPsecConfig::importXML(parser); })) << size;
        ASSERT_TRUE(in.eof()) << size;
        ASSERT_EQ(written(config), before) << size;
    }
    for (std::size_t size = endOf(text); size <= text.size(); ++size, ++cases) {
        config = read<IPsecConfig>(text.substr(0, size));
        EXPECT_EQ(written(config), text);
    }
    reportCases(cases);
}

} // namespace
} // namespace ipsecimpl
