#ifndef IPSEC_POLICY_LINE_SECRETS_H
#define IPSEC_POLICY_LINE_SECRETS_H

#include "source.h"
#include "span.h"

#include <optional>
#include <vector>

/// What must not be shown of the lines that findings are about, in a document that loads.
///
/// Nearly all of them are a tag or a leaf alone, and tell by themselves, or with what is known of misread numbers. The
/// secrets of the whole document are looked up for the first line that does not: what such a line is can depend on any
/// before it.
class LineSecrets {
  public:
    /// The source must outlive the object.
    explicit LineSecrets(const Source& source)
        : source_(source)
    {
    }

    /// Those of secretsOf() in `line`, perhaps with others, in ascending order. They hold until the next call.
    ///
    /// REQUIRES: `what`, which begins in the line, is what Source::find() or a misreading has for its place, or as much
    /// of that as the line has of it; or it begins with '&'.
    const std::vector<Span>& in(Span line, Span what);

  private:
    bool isStrayNumber(Span what);

    const Source&                    source_;
    std::optional<std::vector<Span>> strayNumbers_;
    std::optional<std::vector<Span>> all_;
    std::vector<Span>                ownOfLine_;
};

#endif
