#ifndef IPSEC_POLICY_JSON_LIST_H
#define IPSEC_POLICY_JSON_LIST_H

#include "json.h"
#include "standard_output.h"

#include <string>

/// Writes the members of a JSON list one by one, so that no list of findings is too long for a small node's memory.
class JsonList {
  public:
    /// The list stands `depth` levels deep in the document. What comes before it, up to ": ", is written already.
    JsonList(StandardOutput& out, std::size_t depth)
        : out_(out)
        , depth_(depth)
    {
    }

    void add(const Json& member);

    /// Ends the list, which without members is "[]".
    void finish();

  private:
    StandardOutput& out_;
    std::size_t     depth_;
    bool            isEmpty_ = true;
};

/// The value in lines, as textOf(), for a place `depth` levels deep in a document: all but the first line are indented,
/// and no newline ends it.
std::string nestedText(const Json& value, std::size_t depth);

#endif
