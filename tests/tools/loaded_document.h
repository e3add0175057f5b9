#ifndef IPSECIMPL_TESTS_TOOLS_LOADED_DOCUMENT_H
#define IPSECIMPL_TESTS_TOOLS_LOADED_DOCUMENT_H

/// \file
/// A document, what it loads as, and what stands where in it.

#include "place_finder.h"
#include "source.h"

#include <ipsecimpl/config.h>

#include <string>

ipsecimpl::IPsecConfig loadedFrom(const std::string& text);

/// As the library stores it. (A copy would be without the actions' `type` and `state`.)
std::string storedText(const ipsecimpl::IPsecConfig& config);

struct LoadedDocument {
    explicit LoadedDocument(std::string document)
        : text(std::move(document))
        , config(loadedFrom(text))
        , source(text, config)
        , finder(source)
    {
    }

    std::string textAt(Span span) const { return text.substr(span.offset, span.length); }

    Span place(const ObjectPath& path) const { return finder.find(path); }

    /// The text to which the path leads.
    std::string find(Kind kind, unsigned int id, const std::string& field) const
    {
        return textAt(place({kind, id, field}));
    }

    const std::string            text;
    const ipsecimpl::IPsecConfig config;
    const Source                 source;
    mutable PlaceFinder          finder;
};

#endif
