#ifndef IPSEC_POLICY_DOT_H
#define IPSEC_POLICY_DOT_H

/// \file
/// Texts in the language of Graphviz.

#include "lines.h"

#include <string>
#include <string_view>

/// A printable text in quotes, which is drawn as it is.
std::string dotText(std::string_view text);

/// The lines as a label in quotes, one below the other. Long ones are broken.
std::string dotLabel(const Lines& lines);

#endif
