#ifndef IPSECIMPL_XML_H
#define IPSECIMPL_XML_H

/// \file
/// The pull parser that every importXML() reads with, its exception, and the collections' tags.

#include <ipsecimpl/export.h>

#include <initializer_list>
#include <iosfwd>
#include <stack>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// The one exception of reading: what() says what is wrong and, where the parser found it, in which element.
///
/// The parser adds one line "\nfrom <name>" for each open element, the innermost first. A reader that does not
/// like a well-formed element's content throws the bare message.
///
/// The text quotes the document as it is: keys that stand in a wrong place may be in it, the end of input shows as the
/// byte 0xFF, and a NUL ends what() early. Do not show it to everybody.
class IPSECIMPL_API ParseError : public std::runtime_error {
  public:
    /// what() is `msg`, unchanged.
    explicit ParseError(const std::string& msg);

    /// what() is `where(msg, tags)`.
    ParseError(const std::string& msg, const std::stack<std::string>& tags);

    ParseError(const ParseError&)            = default;
    ParseError& operator=(const ParseError&) = default;
    ~ParseError() override;

    /// `msg` followed by "\nfrom <tag>" for each of `tags` from the top down; no newline ends the text.
    /// `tags` stays as it is. With an empty stack the result is `msg`.
    static std::string where(const std::string& msg, const std::stack<std::string>& tags);
};

/// \name What the token operations of XMLParser return
/// @{
inline constexpr int PARSE_CHILD   = 1; ///< a start tag is next
inline constexpr int PARSE_CONTENT = 4; ///< the start tag ended with `>`: content and an end tag follow
inline constexpr int PARSE_END     = 5; ///< the start tag ended with `/>`; from parse_body(): an end tag is next
inline constexpr int PARSE_DATA    = 6; ///< character data is next
/// @}

/// Reads elements, attributes and character data from a stream, one token at a call.
///
/// This is the subset of XML that the library writes, not all of XML: declarations, processing instructions,
/// comments, DOCTYPE and CDATA are refused ("parse_tag: unnamed tag"), and no entity is expanded while reading.
///
/// The parser remembers the names of the open elements and nothing else. It holds no look-ahead: what an operation
/// did not ask for is still in the stream, so the next document may follow at once. parse_tag() and parse_body() may
/// need the stream to take back one character, as `unget()` does.
///
/// Every failure is a ParseError with the open elements as context. A stream that fails, had failed before the call, or
/// whose buffer throws is a stream at its end: parse_name() and parse_attr() find no name there, all else throws. The
/// stream's state is that of its own functions; if its exception mask demands another exception, that is thrown. After
/// an exception neither parser nor stream is rolled back; do not go on with either.
///
/// White space is blank, \\t, \\n, \\v, \\f and \\r; letters and digits are those of ASCII. Neither depends on a
/// locale. To "skip white space" is to consume any number of such characters.
///
/// A document means the same on every stream: none of its settings (flags, width, fill, precision, locale, exception
/// mask, tied stream) decides what is read, and none is changed but `skipws`. A tied stream is flushed before anything
/// is read. gcount() tells nothing of what was read.
///
/// One thread at a time may use a parser; it shares nothing but the caller's stream.
class IPSECIMPL_API XMLParser {
  public:
    /// Reads nothing yet. `in` must outlive the parser; its `skipws` flag is switched off and stays off.
    explicit XMLParser(std::istream& in);

    XMLParser(const XMLParser&)            = delete;
    XMLParser& operator=(const XMLParser&) = delete;
    ~XMLParser();

    /// True for a letter, a digit, `.`, `-`, `_` and `:`. `c` is an `unsigned char` value or end of file.
    static bool isNameChar(int c);

    /// Removes white space from the end of `s`.
    static void trim(std::string& s);

    /// Reads the name characters that come next; `&` counts as one here. False if there is none. Skips nothing.
    bool parse_name(std::string& name);

    /// Skips white space and reads `<` and the name behind it; the element is open from then on. What follows the
    /// name is left to parse_attr() and parse_tag_end(). False, with an empty `name` and nothing consumed but white
    /// space, if an end tag is next.
    bool parse_tag(std::string& name);

    /// Skips white space and reads one attribute: a name, and if `=` follows, its value; else `value` is empty.
    /// False, with both empty, if there is no name.
    bool parse_attr(std::string& name, std::string& value);

    /// Reads an attribute's value: quoted, or all up to white space, which must follow. Expands no entity, skips
    /// nothing, always returns true.
    bool parse_value(std::string& value);

    /// Skips white space and reads the end of a start tag: PARSE_CONTENT for `>`; PARSE_END for `/>`, after which
    /// the element is no longer open.
    int parse_tag_end();

    /// Skips white space and tells what is next, without consuming it: PARSE_CHILD, PARSE_END or PARSE_DATA.
    int parse_body();

    /// Skips white space and reads the text up to the next `<`, without white space at its end. Taken as it
    /// stands: no entity is expanded. False if that leaves nothing.
    bool parse_data(std::string& data);

    /// Skips white space and reads the end tag of the innermost open element, which is then no longer open.
    void parse_end_tag();

    /// Reads the start tag `<name>` (PARSE_CONTENT) or `<name/>` (PARSE_END), without attributes.
    int parse_simple_tag(const std::string& name);

    /// Reads one whole leaf element and returns its text: `<name>text</name>`, `<name value="text"/>`,
    /// `<name value="text"></name>`, or `<name/>`, whose text is empty.
    std::string parse_tagged_value(const std::string& name);

    /// Reads up to the next `;` (or the end of input), consumes it, and returns expand_entity() of what came
    /// before it. For callers: the library itself expands no entities.
    std::string parse_entity();

    /// The character that an entity stands for: "&gt", "&lt", "&amp", "&apos", "&quot" (without `;`), or "&#N;" and
    /// "&#xN;" (with `;`), whose number is cut down to one byte. A ParseError for anything else.
    ///
    /// The asymmetry is deliberate. parse_entity() drops the `;`, so a numeric entity never comes out of it.
    std::string expand_entity(const std::string& entity);

  private:
    friend class ElementAccess; // the library's own readers

    std::string_view  innermost() const; // the name of the innermost open element, empty if none is open
    [[noreturn]] void fail(std::initializer_list<std::string_view> message) const;

    std::istream&           in_;
    std::stack<std::string> tags_; // names of the open elements, the innermost on top
};

#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier"
#endif

/// \name Tags of the collections and of the elements in them
/// Their addresses are template arguments of IndexedCollection and SelectorGroup.
/// @{
extern IPSECIMPL_API const char __hostGroupsTag[11];     ///< "hostGroups"
extern IPSECIMPL_API const char __hostGroupTag[10];      ///< "hostGroup"
extern IPSECIMPL_API const char __protocolGroupsTag[15]; ///< "protocolGroups"
extern IPSECIMPL_API const char __protocolGroupTag[14];  ///< "protocolGroup"
extern IPSECIMPL_API const char __actionsTag[8];         ///< "actions"
extern IPSECIMPL_API const char __actionTag[7];          ///< "action"
extern IPSECIMPL_API const char __policiesTag[9];        ///< "policies"
extern IPSECIMPL_API const char __policyTag[7];          ///< "policy"
/// @}

#ifdef __clang__
#pragma clang diagnostic pop
#endif

} // namespace ipsecimpl

#endif
