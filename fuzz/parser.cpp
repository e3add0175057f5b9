// Operations of the parser in any order on any text: on a buffer that holds the whole text and on one that holds
// nothing ready, they must do and say what the plain parser does and says, and leave the same behind.
//
// The first byte is a number of operations, a byte for each follows, and the rest is the text.

#include "input.h"
#include "plain_parser.h"

#include <exception>

namespace ipsecimpl {
namespace {

/// What one operation came to.
struct Result {
    std::string error;
    std::string name;
    std::string value;
    int         number = 0;
};

/// The first byte, or what stands for the end of a text.
int first(const std::string& text)
{
    return text.empty() ? std::char_traits<char>::eof() : static_cast<unsigned char>(text.front());
}

template <class Parser>
void operate(Parser& parser, unsigned int operation, const std::string& tag, Result& result)
{
    // clang-format off
    switch (operation) {
    case 0:  result.number = parser.parse_name(result.name); break;
    case 1:  result.number = parser.parse_tag(result.name); break;
    case 2:  result.number = parser.parse_attr(result.name, result.value); break;
    case 3:  result.number = parser.parse_value(result.value); break;
    case 4:  result.number = parser.parse_tag_end(); break;
    case 5:  result.number = parser.parse_body(); break;
    case 6:  result.number = parser.parse_data(result.value); break;
    case 7:  parser.parse_end_tag(); break;
    case 8:  result.number = parser.parse_simple_tag(tag); break;
    case 9:  result.value = parser.parse_tagged_value(tag); break;
    case 10: result.value = parser.parse_entity(); break;
    case 11: result.value = parser.expand_entity(result.value); break;
    case 12: result.value = parser.expand_entity("&#" + result.value + ';'); break;
    case 13: result.number = parser.isNameChar(first(result.value)); break;
    default: parser.trim(result.value); break;
    }
    // clang-format on
}

/// False if the operation failed.
template <class Parser>
bool attempt(Parser& parser, unsigned int operation, const std::string& tag, Result& result)
{
    try {
        operate(parser, operation, tag, result);
        return true;
    } catch (const ParseError& error) {
        result.error = error.what();
        return false;
    }
}

void compare(const Result& expected, std::size_t expectedPosition, const Result& found, std::size_t position)
{
    require("message", expected.error, found.error);
    require("name", expected.name, found.name);
    require("value", expected.value, found.value);
    if (found.number != expected.number)
        fault("result", std::to_string(expected.number), std::to_string(found.number));
    if (position != expectedPosition)
        fault("position", std::to_string(expectedPosition), std::to_string(position));
}

void run(Program program)
{
    static const std::string tags[] = {"a",   "b", "ab", "value", "a:b",       "&",    "id", "policyEntry",
                                       "x&y", "-", "z",  "0",     "hostGroup", "name", "_",  ""};

    Program     operations = program.part(program.take() % 32);
    WholeBuffer whole(program.rest());
    ByteBuffer  bytes{std::string(program.rest())};
    XMLParser   parser(streamOn<0>(whole));
    XMLParser   bytewise(streamOn<1>(bytes));
    PlainParser plain(program.rest());
    Result      results[3];
    while (!operations.empty()) {
        const unsigned int byte = operations.take(), operation = byte % 16;
        const std::string& tag    = tags[byte / 16];
        const bool         passed = attempt(plain, operation, tag, results[0]);
        attempt(parser, operation, tag, results[1]);
        attempt(bytewise, operation, tag, results[2]);
        compare(results[0], plain.position(), results[1], whole.position());
        compare(results[0], plain.position(), results[2], bytes.position());
        if (!passed)
            break; // what a parser does after a failure is not settled
    }
}

} // namespace
} // namespace ipsecimpl

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ipsecimpl::run({data, size});
    return 0;
}
