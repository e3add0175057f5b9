#ifndef IPSEC_POLICY_LEXER_H
#define IPSEC_POLICY_LEXER_H

/// \file
/// The elements of a document that loads, where they stand.

#include "span.h"
#include "white_space.h"

#include <cstddef>
#include <string_view>

struct StartTag {
    std::size_t      offset = 0; ///< of the '<'
    std::string_view name;
    Span             value; ///< of the attribute, without its quotes; where it would stand if it has none
    bool             hasAttribute    = false; ///< which is called "value" wherever a document loads
    bool             attributeIsBare = false; ///< no '=' follows it, which makes it empty
    bool             isClosed        = false; ///< `<name/>`
};

/// An element without children.
struct Leaf {
    StartTag    tag;
    Span        text;              ///< as the library reads it: of data without white space around it
    bool        isTrimmed = false; ///< there is such white space
    std::size_t end       = 0;     ///< behind the element
};

/// Goes through a document from a place between two tags on. White space there is skipped.
///
/// Nothing is checked again that the library has checked in loading the document; but where a document is not what it
/// should be, std::logic_error is thrown, and nothing is read that is not in it.
class Lexer {
  public:
    explicit Lexer(std::string_view document, std::size_t offset = 0)
        : document_(document)
        , offset_(offset)
    {
    }

    /// Behind what was read, or if skipSpace() was called last, at the next tag.
    std::size_t offset() const { return offset_; }

    std::size_t skipSpace();

    /// Does an end tag come next?
    bool atEndTag();

    StartTag startTag();
    void     endTag();

    /// Reads a whole leaf.
    Leaf leaf() { return rest(startTag()); }

    /// Reads the rest of a leaf, whose start tag was read last.
    Leaf rest(const StartTag& tag);

    /// Reads an element with all that is in it.
    void skipElement();

    /// Reads the rest of an element, whose start tag was read last.
    void skipRest(const StartTag& tag);

    /// Has the element, whose start tag was read last, no children? It is not read.
    bool isLeaf(const StartTag& tag);

    /// Reads the rest of an element, whose start tag was read last, if it has no children; else nothing.
    bool skipLeaf(const StartTag& tag);

    /// Goes to the next tag, inside or behind what was read last, but not into it. False if there is none before
    /// `limit`.
    bool toNextTag(std::size_t limit);

    /// Goes to the next start tag, inside or behind what was read last, and reads it. False if there is none before
    /// `limit`.
    bool nextStartTag(std::size_t limit, StartTag& tag);

  private:
    char at(std::size_t offset) const { return offset < document_.size() ? document_[offset] : '\0'; }

    std::size_t              find(char c, std::size_t from) const;
    std::string_view         name();
    void                     endTag(std::string_view name);
    void                     attribute(StartTag& tag);
    [[noreturn]] static void fail();

    std::string_view document_;
    std::size_t      offset_;
};

#endif
