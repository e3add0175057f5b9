#ifndef IPSECIMPL_XML_ELEMENT_H
#define IPSECIMPL_XML_ELEMENT_H

#include <ipsecimpl/xml.h>

#include <iosfwd>
#include <string>
#include <string_view>

namespace ipsecimpl {

// The vocabulary of elements: every tag, number and line end of the document is read and written here.

// Writing. One element start, leaf or element end is one line, ended and flushed as by std::endl. Values come out as by
// the stream's own insertion, whatever its flags; nothing is escaped.

std::ostream& openTag(std::ostream& out, std::string_view name);
std::ostream& closeTag(std::ostream& out, std::string_view name);

std::ostream& writeLeaf(std::ostream& out, std::string_view name, std::string_view text);
std::ostream& writeLeaf(std::ostream& out, std::string_view name, int number);
std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned short number);
std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned int number);
std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned long number);

// Reading. What stands in the form that the library writes is taken from the stream's buffer in one step; everything
// else, and every error, is left to the parser's own operations.

/// The parser's parse_simple_tag(). `name` is a name that the parser could read.
int openElement(XMLParser& parser, std::string_view name);

/// The next leaf, by the parser's parse_tagged_value(). `name` is a name that the parser could read.
class Leaf {
  public:
    Leaf(XMLParser& parser, std::string_view name);

    /// Until something else is read.
    std::string_view text() const { return text_; }

  private:
    std::string      own_; // the text, if it is not in the stream's buffer
    std::string_view text_;
};

std::string readText(XMLParser& parser, std::string_view name);

/// The leaf as a signed 32-bit number: decimal, 0x hexadecimal or 0 octal; 0 if it is none.
int readInt(XMLParser& parser, std::string_view name);

/// The leaf as an unsigned 32-bit number: decimal, 0x hexadecimal or 0 octal; 0 if it is none.
unsigned int readUnsigned(XMLParser& parser, std::string_view name);

/// An element that comes again and again. A string with its name is lent to the parser while the element is open, so
/// that a long name is not allocated each time.
class RepeatedElement {
  public:
    explicit RepeatedElement(std::string name);

    const std::string& name() const { return name_; }

    /// Reads the start tag if it comes next, without attributes; else nothing.
    bool open(XMLParser& parser);

    /// Reads the end tag, whoever has read the start tag.
    void close(XMLParser& parser);

  private:
    std::string name_;
    std::string lent_; // in the parser's hands while the element is open
};

/// An element whose children are leaves in any order. As long as all is in the written form, the parser is not told
/// that it is open: its name is long. It is told before anything else happens.
class FlatElement {
  public:
    /// Reads the start tag, as openElement() does.
    FlatElement(XMLParser& parser, std::string_view name);

    FlatElement(const FlatElement&)            = delete;
    FlatElement& operator=(const FlatElement&) = delete;
    ~FlatElement();

    /// Reads the next leaf, whatever its name, if it has a text; else nothing. The views hold until the next reading.
    bool takeLeaf(std::string_view& name, std::string_view& text);

    /// Reads the end tag if it comes next; else nothing.
    bool takeEnd();

    /// For what the two did not take.
    XMLParser& parser();

  private:
    XMLParser&       parser_;
    std::string_view untold_; // the name, until the parser knows that the element is open, or that it has ended
};

} // namespace ipsecimpl

#endif
