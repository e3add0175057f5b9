// Loads from buffers that hold a document ready in pieces, with boundaries at every byte.
//
// A buffer that takes a byte back gives the same object wherever its pieces end: it is written as the document's own
// is. One that takes none back does so too, unless a piece ends behind a bracket that has to go back: then the message
// says that, and which elements are open there.

#include "hostile/faulty_buffers.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/samples.h"

#include <algorithm>
#include <map>
#include <stack>
#include <string>

namespace ipsecimpl {
namespace {

std::string readFrom(const Element& element, std::streambuf& buffer)
{
    std::istream in(&buffer);
    XMLParser    parser(in);
    return element.read(parser);
}

/// The elements that are open behind `text`, which is in the written form, as a message shows them.
std::string contextBehind(const std::string& text)
{
    std::stack<std::string> open;
    for (std::size_t at = 0; (at = text.find('<', at)) != std::string::npos; ++at) {
        if (text[at + 1] == '/')
            open.pop();
        else
            open.push(text.substr(at + 1, text.find('>', at) - at - 1));
    }
    return ParseError::where("", open);
}

TEST(ChunkedLoad, OfAnySmallElementIsTheSameWhateverTheSizeOfThePieces)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        std::stringbuf    whole(document.text);
        const std::string expected = readFrom(document.element, whole);
        for (const std::size_t size : places(1, document.text.size(), 3)) {
            ++cases;
            ChunkBuffer chunks(document.text, size);
            EXPECT_EQ(readFrom(document.element, chunks), expected) << document.name << " in pieces of " << size;
        }
    }
    reportCases(cases);
}

TEST(ChunkedLoad, WithoutPutBackIsTheSameUnlessAPieceEndsBehindABracketThatHasToGoBack)
{
    std::size_t cases   = 0;
    std::size_t refused = 0;
    for (const SmallDocument& document : smallDocuments()) {
        if (!document.written)
            continue;
        for (std::size_t boundary = 0; boundary <= document.text.size(); ++boundary, ++cases) {
            TwoPieceBuffer    pieces(document.text, boundary);
            const std::string result = readFrom(document.element, pieces);
            if (result == document.text)
                continue;
            const std::string before = document.text.substr(0, boundary);
            EXPECT_EQ(before.back(), '<') << document.name << " in pieces at " << boundary;
            const std::string context = contextBehind(before.substr(0, boundary - 1));
            EXPECT_TRUE(result == "ParseError: parse_tag: cannot put back '<'" + context ||
                        result == "ParseError: parse_body: cannot put back '<'" + context)
                << document.name << " in pieces at " << boundary << ": " << result;
            ++refused;
        }
    }
    EXPECT_EQ(refused, 30U); // the end of every list, and each of its elements
    reportCases(cases);
}

/// What each document needs put back first. Those that have no list need nothing.
TEST(ChunkedLoad, FromABufferThatTakesNothingBackIsWholeWhereThereIsNoList)
{
    const std::map<std::string, std::string> refusals = {
        // clang-format off
        {"protocolSelector",       "parse_tag: cannot put back '<'\nfrom <protocolSelector>"},
        {"protocolSelector-any",   "parse_tag: cannot put back '<'\nfrom <protocolSelector>"},
        {"protocolSelector-loose", "parse_tag: cannot put back '<'\nfrom <protocolSelector>"},
        {"hostGroup",              "parse_body: cannot put back '<'\nfrom <selectors>\nfrom <hostGroup>"},
        {"hostGroup-empty",        "parse_body: cannot put back '<'\nfrom <selectors>\nfrom <hostGroup>"},
        {"protocolGroup",          "parse_body: cannot put back '<'\nfrom <selectors>\nfrom <protocolGroup>"},
        {"proposal",               "parse_body: cannot put back '<'\nfrom <proposal>"},
        {"ikePhase1-psk",          "parse_body: cannot put back '<'\nfrom <proposal>\nfrom <ikePhase1>"},
        {"ikePhase1-rsa",          "parse_body: cannot put back '<'\nfrom <proposal>\nfrom <ikePhase1>"},
        {"ikePhase2",              "parse_body: cannot put back '<'\nfrom <ikePhase2>"},
        {"action-ike",             "parse_body: cannot put back '<'\nfrom <proposal>\nfrom <ikePhase1>\nfrom <action>"},
        {"hostGroups",             "parse_body: cannot put back '<'\nfrom <selectors>\nfrom <hostGroup>\n"
                                   "from <hostGroupEntry>\nfrom <hostGroups>"},
        {"protocolGroups",         "parse_body: cannot put back '<'\nfrom <selectors>\nfrom <protocolGroup>\n"
                                   "from <protocolGroupEntry>\nfrom <protocolGroups>"},
        {"actions",                "parse_tag: cannot put back '<'\nfrom <actions>"},
        {"policies",               "parse_tag: cannot put back '<'\nfrom <policies>"},
        {"policies-loose",         "parse_tag: cannot put back '<'\nfrom <policies>"},
        {"ipsec",                  "parse_tag: cannot put back '<'\nfrom <hostGroups>\nfrom <ipsec>"},
        {"ipsec-loose",            "parse_tag: cannot put back '<'\nfrom <protocolGroups>\nfrom <ipsec>"},
        // clang-format on
    };
    for (const SmallDocument& document : smallDocuments()) {
        OneWayBuffer      buffer(document.text);
        ByteBuffer        bytes(document.text);
        const auto        refusal = refusals.find(document.name);
        const std::string whole   = readFrom(document.element, bytes);
        EXPECT_EQ(readFrom(document.element, buffer),
                  refusal == refusals.end() ? whole : "ParseError: " + refusal->second)
            << document.name;
    }
}

class ChunkedSample : public ::testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Configs, ChunkedSample, ::testing::ValuesIn(sampleNames()),
                         [](const auto& sample) { return testName(sample.param); });

TEST_P(ChunkedSample, IsLoadedWholeWhateverTheSizeOfThePieces)
{
    const Element&    ipsec = smallDocument("ipsec").element;
    const std::string text  = sampleText(GetParam());
    std::size_t       cases = 0;
    for (const std::size_t size : places(1, text.size(), 499)) {
        ++cases;
        ChunkBuffer chunks(text, size);
        ASSERT_EQ(readFrom(ipsec, chunks), text) << "pieces of " << size;
    }
    reportCases(cases);
}

TEST_P(ChunkedSample, IsLoadedWholeFromTwoPiecesOrNotAtAllWhereABracketCannotGoBack)
{
    const Element&    ipsec   = smallDocument("ipsec").element;
    const std::string text    = sampleText(GetParam());
    std::size_t       cases   = 0;
    std::size_t       refused = 0;
    for (const std::size_t boundary : places(0, text.size(), 499)) {
        ++cases;
        TwoPieceBuffer    pieces(text, boundary);
        const std::string result = readFrom(ipsec, pieces);
        if (result == text)
            continue;
        const std::string before = text.substr(0, boundary);
        ASSERT_EQ(before.back(), '<') << boundary;
        const std::string context = contextBehind(before.substr(0, boundary - 1));
        ASSERT_TRUE(result == "ParseError: parse_tag: cannot put back '<'" + context ||
                    result == "ParseError: parse_body: cannot put back '<'" + context)
            << "in pieces at " << boundary << ": " << result;
        ++refused;
    }
    if (wholeSweeps()) {
        EXPECT_GT(refused, 20U);
    }
    reportCases(cases);
}

} // namespace
} // namespace ipsecimpl
