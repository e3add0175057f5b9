#include "config/entry_reader.h"

#include "xml/joined.h"
#include "xml/number.h"

#include <algorithm>

namespace ipsecimpl {

EntryReader::EntryReader(XMLParser& parser, const char* plural, const char* singular)
    : parser_(parser)
    , singular_(singular)
    , nextTag_(joined({"next", singular}))
    , entry_(joined({singular, "Entry"}))
    , hasContent_(openElement(parser, plural) == PARSE_CONTENT)
{
}

bool EntryReader::next()
{
    while (hasContent_) {
        if (entry_.open(parser_)) {
            readID();
            return true;
        }
        if (!parser_.parse_tag(tag_)) {
            parser_.parse_end_tag();
            return false;
        }
        if (tag_ != entry_.name() && tag_ != nextTag_)
            throw ParseError(joined({"unknown tag: ", tag_}));
        // A self-closed next-ID element is named after the element that the collection holds, on purpose.
        if (parser_.parse_tag_end() != PARSE_CONTENT)
            throw ParseError(joined({singular_, " missing required data"}));
        if (tag_ == entry_.name()) {
            readID();
            return true;
        }
        readNextID();
    }
    return false;
}

void EntryReader::readID()
{
    const int number = strtol32(Leaf(parser_, "id").text(), 10);
    if (number < 1)
        throw ParseError(joined({"invalid ID for ", singular_}));
    id_     = static_cast<unsigned int>(number);
    nextID_ = std::max(nextID_, id_ + 1);
}

void EntryReader::readNextID()
{
    std::string text;
    if (!parser_.parse_data(text))
        throw ParseError(joined({nextTag_, " missing required data"}));
    const int number = strtol32(text, 10);
    if (number < 1)
        throw ParseError(joined({"invalid value for ", nextTag_}));
    nextID_ = std::max(nextID_, static_cast<unsigned int>(number));
    parser_.parse_end_tag();
}

} // namespace ipsecimpl
