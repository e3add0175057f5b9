#ifndef IPSECIMPL_TESTS_SCHEMA_RULES_H
#define IPSECIMPL_TESTS_SCHEMA_RULES_H

/// \file
/// The rules of the written form, each with a change to the document with every element that breaks it.

#include <string>
#include <vector>

namespace ipsecimpl {

/// Whether ipsec.xsd says it, too.
enum class XSD { Refuses, Takes };

/// Neither valid nor readable.
struct RefusedByBoth {
    std::string rule;
    std::string from;
    std::string to;
    std::string message; ///< the reader's, without the open elements
    XSD         xsd = XSD::Refuses;
};

/// Readable all the same, and then stored in another way.
struct TakenByReader {
    std::string rule;
    std::string from;
    std::string to;
    std::string stored;
    XSD         xsd = XSD::Refuses;
};

/// Valid all the same.
struct TakenBySchema {
    std::string rule;
    std::string from;
    std::string to;
    std::string stored;  ///< or
    std::string message; ///< why it is not read
};

const std::vector<RefusedByBoth>& refusedByBoth();
const std::vector<TakenByReader>& takenByReader();
const std::vector<TakenBySchema>& takenBySchema();

/// In the written form, but no XML: texts, and what XML says against them.
struct NoXML {
    std::string rule;
    std::string text;
};

const std::vector<NoXML>& noXML();

} // namespace ipsecimpl

#endif
