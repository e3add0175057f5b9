#ifndef IPSECIMPL_TESTS_XML_DOCUMENT_H
#define IPSECIMPL_TESTS_XML_DOCUMENT_H

/// \file
/// A text under a parser, and tables of what one operation makes of many texts.

#include <support/streams.h>
#include <support/xml.h>

#include <gtest/gtest.h>

#include <istream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {

/// A parser on a text, with a look at what it leaves behind.
///
/// `Buffer` is the kind of stream buffer that the text lies in.
template <class Buffer>
class BufferedDocument {
  public:
    explicit BufferedDocument(const std::string& text)
        : buffer_(text)
        , in(&buffer_)
        , parser(in)
    {
    }

    /// What is left in the stream, whatever its state. Takes it out.
    std::string rest() { return {std::istreambuf_iterator<char>(&buffer_), std::istreambuf_iterator<char>()}; }

    /// The open elements as an error's text lists them: "\nfrom <inner>\nfrom <outer>". Reads nothing.
    std::string open()
    {
        const std::string message = "expand_entity: invalid character entity ''";
        const std::string text    = errorOf([this] { parser.expand_entity(""); });
        EXPECT_EQ(text.substr(0, message.size()), message);
        return text.substr(message.size());
    }

  private:
    Buffer buffer_;

  public:
    std::istream in;
    XMLParser    parser;
};

/// The ordinary case: the whole text is ready in memory.
using Document = BufferedDocument<std::stringbuf>;

/// What one operation makes of a text that it accepts. The text stands inside an open element <out>.
struct Accepted {
    std::string input;
    std::string result;                ///< as the table's own function words it
    std::string rest;                  ///< what is left in the stream
    std::string open = "\nfrom <out>"; ///< the open elements, as BufferedDocument::open() gives them
};

/// Why one operation refuses a text. The text stands inside an open element <out>.
struct Refused {
    std::string input;
    std::string message; ///< all of it, with the open elements
    std::string rest;    ///< what is left in the stream where the error was found
};

template <class Buffer, class Call>
void expectRow(const Accepted& row, Call call)
{
    BufferedDocument<Buffer> document("<out>" + row.input);
    ASSERT_EQ(document.parser.parse_simple_tag("out"), PARSE_CONTENT);
    EXPECT_EQ(call(document.parser), row.result);
    EXPECT_EQ(document.open(), row.open);
    EXPECT_EQ(document.rest(), row.rest);
}

template <class Buffer, class Call>
void expectRow(const Refused& row, Call call)
{
    BufferedDocument<Buffer> document("<out>" + row.input);
    ASSERT_EQ(document.parser.parse_simple_tag("out"), PARSE_CONTENT);
    EXPECT_EQ(errorOf([&] { call(document.parser); }), row.message);
    EXPECT_EQ(document.rest(), row.rest);
}

/// Runs `call(parser)` on every row, from each kind of stream buffer: how the bytes arrive must make no difference.
template <class Row, class Call>
void expectEach(const std::vector<Row>& rows, Call call)
{
    for (const Row& row : rows) {
        SCOPED_TRACE("input: " + testing::PrintToString(row.input));
        expectRow<std::stringbuf>(row, call);
        expectRow<OneByteBuffer>(row, call);
        expectRow<ByteBuffer>(row, call);
    }
}

} // namespace ipsecimpl

#endif
