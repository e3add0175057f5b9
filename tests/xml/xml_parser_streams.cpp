// Streams that end, fail, throw or take nothing back: everything has to end in a ParseError with its usual message.

#include "document.h"
#include "samples.h"

#include <functional>
#include <ios>

namespace ipsecimpl {
namespace {

struct Operation {
    const char*                            name;
    std::function<std::string(XMLParser&)> call;  ///< what it returned
    std::string                            atEnd; ///< what is returned, or the message, where nothing can be read
};

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = {
        // clang-format off
        {"parse_name",         [](auto& p) { std::string n; return p.parse_name(n) ? "true" : "false"; },
                               "false"},
        {"parse_tag",          [](auto& p) { std::string n; return p.parse_tag(n) ? "true" : "false"; },
                               "parse_tag: expected '<', found '\xFF'"},
        {"parse_attr",         [](auto& p) { std::string n, v; return p.parse_attr(n, v) ? "true" : "false"; },
                               "false"},
        {"parse_value",        [](auto& p) { std::string v; return p.parse_value(v) ? "true" : "false"; },
                               "parse_value: unterminated attribute value"},
        {"parse_tag_end",      [](auto& p) { return std::to_string(p.parse_tag_end()); },
                               "parse_tag_end: invalid attribute or missing '>'"},
        {"parse_body",         [](auto& p) { return std::to_string(p.parse_body()); },
                               "parse_body: unmatched name ''"},
        {"parse_data",         [](auto& p) { std::string d; return p.parse_data(d) ? "true" : "false"; },
                               "parse_data: unmatched tag ''"},
        {"parse_end_tag",      [](auto& p) { p.parse_end_tag(); return "true"; },
                               "parse_end_tag: expected '<', got '\xFF'"},
        {"parse_simple_tag",   [](auto& p) { return std::to_string(p.parse_simple_tag("a")); },
                               "parse_tag: expected '<', found '\xFF'"},
        {"parse_tagged_value", [](auto& p) { return p.parse_tagged_value("a"); },
                               "parse_tag: expected '<', found '\xFF'"},
        {"parse_entity",       [](auto& p) { return p.parse_entity(); },
                               "expand_entity: invalid character entity ''"},
        // clang-format on
    };
    return all;
}

/// What the operation returns, or why it refuses.
std::string outcome(const Operation& operation, XMLParser& parser)
{
    try {
        return operation.call(parser);
    } catch (const ParseError& error) {
        return error.what();
    }
}

TEST(Stream, AtItsEndIsRefusedByEveryOperationThatNeedsMore)
{
    for (const Operation& operation : operations()) {
        Document document("");
        EXPECT_EQ(outcome(operation, document.parser), operation.atEnd) << operation.name;
        EXPECT_TRUE(document.in.eof()) << operation.name;
    }
}

TEST(Stream, AtItsEndStaysThereHoweverOftenItIsAsked)
{
    for (const Operation& operation : operations()) {
        Document document(" ");
        document.in.get();
        document.in.get();
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(outcome(operation, document.parser), operation.atEnd) << operation.name;
    }
}

TEST(Stream, ThatFailedBeforeTheCallReadsAsEmptyAndLosesNothing)
{
    for (const std::ios_base::iostate state : {std::ios_base::failbit, std::ios_base::badbit, std::ios_base::eofbit}) {
        for (const Operation& operation : operations()) {
            Document document("<a/>x;");
            document.in.setstate(state);
            EXPECT_EQ(outcome(operation, document.parser), operation.atEnd) << operation.name << ", state " << state;
            EXPECT_EQ(document.in.rdstate() & state, state) << operation.name;
            EXPECT_EQ(document.rest(), "<a/>x;") << operation.name << ", state " << state;
        }
    }
}

TEST(Stream, WithoutABufferReadsAsEmpty)
{
    for (const Operation& operation : operations()) {
        std::istream in(nullptr);
        XMLParser    parser(in);
        EXPECT_EQ(outcome(operation, parser), operation.atEnd) << operation.name;
    }
}

TEST(Stream, WhoseBufferThrowsAtOnceReadsAsEmptyAndIsBad)
{
    for (const Operation& operation : operations()) {
        ThrowingBuffer buffer("<a/>", 0);
        std::istream   in(&buffer);
        XMLParser      parser(in);
        EXPECT_EQ(outcome(operation, parser), operation.atEnd) << operation.name;
        EXPECT_TRUE(in.bad()) << operation.name;
    }
}

TEST(Stream, IsGoodBehindACompleteDocumentEvenAtItsVeryEnd)
{
    for (const Sample& sample : {plain, looked}) {
        Document document(sample.text);
        document.in.exceptions(std::ios_base::failbit | std::ios_base::badbit | std::ios_base::eofbit);
        sample.load(document.parser);
        EXPECT_TRUE(document.in.good()) << sample.text;
        EXPECT_EQ(document.rest(), "") << sample.text;
    }
}

/// The message with which loading `text` from a stream on `buffer` fails.
std::string failure(std::streambuf& buffer, void (*load)(XMLParser&))
{
    std::istream in(&buffer);
    XMLParser    parser(in);
    return errorOf([&] { load(parser); });
}

TEST(Stream, ThatEndsAnywhereInADocumentIsRefused)
{
    for (const Sample& sample : {plain, looked}) {
        for (std::size_t size = 0; size < sample.text.size(); ++size) {
            SCOPED_TRACE("size " + std::to_string(size) + " of " + sample.text);
            std::stringbuf    whole(sample.text.substr(0, size));
            OneByteBuffer     oneByOne(sample.text.substr(0, size));
            ByteBuffer        unready(sample.text.substr(0, size));
            const std::string message = failure(whole, sample.load);
            EXPECT_EQ(message.substr(0, 6), "parse_");
            EXPECT_EQ(failure(oneByOne, sample.load), message);
            EXPECT_EQ(failure(unready, sample.load), message);
        }
    }
}

TEST(Stream, WhoseBufferThrowsAnywhereIsRefusedAsIfItEndedThere)
{
    for (std::size_t fault = 0; fault < plain.text.size(); ++fault) {
        SCOPED_TRACE("fault at " + std::to_string(fault));
        ByteBuffer     ending(plain.text.substr(0, fault));
        ThrowingBuffer throwing(plain.text, fault);
        EXPECT_EQ(failure(throwing, plain.load), failure(ending, plain.load));
        EXPECT_EQ(throwing.position(), fault);
    }
}

TEST(Stream, WhoseBufferThrowsBehindABracketCannotTakeItBack)
{
    int cannotPutBack = 0;
    for (std::size_t fault = 0; fault < looked.text.size(); ++fault) {
        SCOPED_TRACE("fault at " + std::to_string(fault));
        ByteBuffer        ending(looked.text.substr(0, fault));
        ThrowingBuffer    throwing(looked.text, fault);
        const std::string message = failure(throwing, looked.load);
        if (message == "parse_body: cannot put back '<'\nfrom <a>") {
            EXPECT_EQ(looked.text[fault - 1], '<');
            ++cannotPutBack;
        } else {
            EXPECT_EQ(message, failure(ending, looked.load));
        }
    }
    EXPECT_EQ(cannotPutBack, 4); // three children and the end tag of <a>
}

TEST(Stream, LoadsWhateverNeedsNoPutBackFromABufferThatTakesNone)
{
    OneWayBuffer buffer(plain.text + "x");
    std::istream in(&buffer);
    XMLParser    parser(in);
    plain.load(parser);
    EXPECT_EQ(buffer.rest(), "x");
}

TEST(Stream, ThatTakesNothingBackIsRefusedByParseTagAtAnEndTag)
{
    OneWayBuffer buffer("<a></a>");
    std::istream in(&buffer);
    XMLParser    parser(in);
    parser.parse_simple_tag("a");
    std::string name = "old";
    EXPECT_EQ(errorOf([&] { parser.parse_tag(name); }), "parse_tag: cannot put back '<'\nfrom <a>");
    EXPECT_EQ(name, "");
}

TEST(Stream, ThatTakesNothingBackIsRefusedByTheReadersOfTagsAtAnEndTag)
{
    OneWayBuffer first("</a>");
    OneWayBuffer second("</a>");
    EXPECT_EQ(failure(first, [](XMLParser& parser) { parser.parse_simple_tag("a"); }),
              "parse_tag: cannot put back '<'");
    EXPECT_EQ(failure(second, [](XMLParser& parser) { parser.parse_tagged_value("a"); }),
              "parse_tag: cannot put back '<'");
}

TEST(Stream, ThatTakesNothingBackIsRefusedByParseBodyAtEveryTag)
{
    for (const char* text : {"<a><b/>", "<a></a>", "<a> <", "<a><!"}) {
        OneWayBuffer buffer(text);
        std::istream in(&buffer);
        XMLParser    parser(in);
        parser.parse_simple_tag("a");
        EXPECT_EQ(errorOf([&] { parser.parse_body(); }), "parse_body: cannot put back '<'\nfrom <a>") << text;
    }
}

TEST(Stream, ThatTakesNothingBackStillTellsDataFromTheEnd)
{
    OneWayBuffer buffer("<a> x");
    std::istream in(&buffer);
    XMLParser    parser(in);
    parser.parse_simple_tag("a");
    EXPECT_EQ(parser.parse_body(), PARSE_DATA);
    EXPECT_EQ(buffer.rest(), "x");
    EXPECT_EQ(in.get(), 'x');
    EXPECT_EQ(errorOf([&] { parser.parse_body(); }), "parse_body: unmatched name 'a'\nfrom <a>");
}

TEST(Stream, IsAsGoodAsBeforeWhenTheEndIsSeenBehindABracketThatWentBack)
{
    Document document("<");
    EXPECT_EQ(document.parser.parse_body(), PARSE_CHILD);
    EXPECT_TRUE(document.in.good());
    EXPECT_EQ(document.rest(), "<");
}

} // namespace
} // namespace ipsecimpl
