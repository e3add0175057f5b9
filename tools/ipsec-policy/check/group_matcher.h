#ifndef IPSEC_POLICY_GROUP_MATCHER_H
#define IPSEC_POLICY_GROUP_MATCHER_H

#include "matcher.h"
#include "selector_lines.h"
#include "text_buffer.h"

#include <ipsecimpl/xml.h>

#include <cstddef>
#include <istream>
#include <map>
#include <string_view>
#include <vector>

/// Where the selectors of a group stand that are not stored as the document has them.
struct SelectorPlaces {
    std::vector<std::size_t> offsets; ///< of those that are stored, in their order
    std::vector<std::size_t> numbers; ///< under which those in the document are stored, from 1, in its order
};

using PlacesByGroup = std::map<unsigned int, SelectorPlaces>;

/// Reads selectors again, one at a time, as the library does.
class SelectorReader {
  public:
    explicit SelectorReader(std::string_view document)
        : text_(document)
        , in_(&text_)
        , parser_(in_)
    {
    }

    template <class Selector>
    Selector read(std::size_t offset)
    {
        text_.seek(offset);
        return Selector::importXML(parser_);
    }

  private:
    TextBuffer           text_;
    std::istream         in_;
    ipsecimpl::XMLParser parser_;
};

/// A matcher for groups. In which order selectors are stored, and which are taken for the same, is for the library to
/// say: they are read again, and looked up in their group.
template <class Groups>
class GroupMatcher : public Matcher {
  public:
    GroupMatcher(std::string_view document, std::size_t offset, Kind kind, const Groups& groups,
                 Misreadings& misreadings, PlacesByGroup& places);

  protected:
    std::size_t matchSelectors(unsigned int id, std::size_t offset) final;

  private:
    const Groups&  groups_;
    PlacesByGroup& places_;
    SelectorReader reader_;
    SelectorLines  lines_;
};

extern template class GroupMatcher<ipsecimpl::HostGroups>;
extern template class GroupMatcher<ipsecimpl::ProtocolGroups>;

#endif
