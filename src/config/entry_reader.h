#ifndef IPSECIMPL_CONFIG_ENTRY_READER_H
#define IPSECIMPL_CONFIG_ENTRY_READER_H

#include "xml/element.h"

#include <ipsecimpl/xml.h>

#include <string>

namespace ipsecimpl {

/// Reads everything of a collection's element but the elements in its entries.
///
///     EntryReader reader(parser, "policies", "policy");
///     while (reader.next()) {
///         ... read the element and store it under reader.id() ...
///         reader.endEntry();
///     }
class EntryReader {
  public:
    /// Reads the start tag. The entries and the next-ID element are called after `singular`.
    EntryReader(XMLParser& parser, const char* plural, const char* singular);

    /// Reads up to the element of the next entry, or the end of the collection; then there is none.
    bool next();

    /// Reads the end tag of the entry.
    void endEntry() { entry_.close(parser_); }

    /// The entry's ID, 1 to 2147483647.
    unsigned int id() const { return id_; }

    /// Greater than every ID so far, and at least what the document says.
    unsigned int nextID() const { return nextID_; }

  private:
    void readID();
    void readNextID();

    XMLParser&      parser_;
    std::string     singular_;
    std::string     nextTag_;
    RepeatedElement entry_;
    std::string     tag_;
    bool            hasContent_;
    unsigned int    id_     = 0;
    unsigned int    nextID_ = 1;
};

} // namespace ipsecimpl

#endif
