#include "line_secrets.h"

#include "hidden.h"
#include "leaf_words.h"
#include "lexer.h"
#include "number_text.h"

#include <algorithm>
#include <string_view>

namespace {

enum class LineKind { TAG, LEAF, OTHER };

bool isInName(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// A line, of which it is not known yet whether what looks like a tag in it is one.
class Line {
  public:
    Line(std::string_view document, Span line)
        : text_(line.in(document))
        , offset_(line.offset)
    {
        while (begin_ < text_.size() && isWhiteSpace(text_[begin_]))
            ++begin_;
        if (begin_ == text_.size() || text_[begin_] != '<')
            return;
        std::size_t end = begin_ + 1;
        while (end < text_.size() && isInName(text_[end]))
            ++end;
        if (end == text_.size() || text_[end] != '>')
            return;
        name_ = text_.substr(begin_ + 1, end - begin_ - 1);
        body_ = end + 1;
    }

    /// The name in the tag at its start, if there is one and it is no more than that.
    std::string_view name() const { return name_; }

    LineKind kindWith(Span what) const
    {
        if (name_.empty())
            return LineKind::OTHER;
        // No attribute's value begins so: with a quote before it, it is behind that, and without it has no '>'.
        if (what.offset == offset_ + begin_)
            return body_ == text_.size() || endsAt(body_) ? LineKind::TAG : LineKind::OTHER;
        // Behind a '>' there is no value, and of the pieces of a text that can stand there only '&' begins one.
        const bool isWhole = what.offset == offset_ + body_ && what.length > 0 && endsAt(what.end() - offset_);
        return isWhole && text_[body_] != '&' ? LineKind::LEAF : LineKind::OTHER;
    }

  private:
    /// Is this the end tag, and the end of the line? It may be behind the line where that is clipped.
    bool endsAt(std::size_t place) const
    {
        const std::string_view rest = text_.substr(std::min(place, text_.size()));
        return rest.size() == name_.size() + 3 && rest.substr(0, 2) == "</" && rest.back() == '>' &&
               rest.substr(2, name_.size()) == name_;
    }

    std::string_view text_;
    std::size_t      offset_;
    std::size_t      begin_ = 0; ///< of the tag
    std::size_t      body_  = 0; ///< what comes behind it
    std::string_view name_;
};

} // namespace

const std::vector<Span>& LineSecrets::in(Span line, Span what)
{
    if (all_)
        return *all_;
    const std::string_view document = source_.document();
    const Line             start(document, line);
    const LineKind         kind = start.kindWith(what);
    if (kind == LineKind::OTHER) {
        all_ = secretsOf(source_);
        return *all_;
    }
    ownOfLine_.clear();
    if (kind == LineKind::LEAF && (isSecretTag(start.name()) || (isNumberTag(start.name()) && isStrayNumber(what))))
        ownOfLine_.push_back(what);
    return ownOfLine_;
}

/// Whether `what`, the text of a leaf that can hold a number, is something else: then it can be a key.
bool LineSecrets::isStrayNumber(Span what)
{
    if (isPrintableNumber(what.in(source_.document())))
        return false;
    // Some have a name that another leaf has, too, which holds a word.
    if (!strayNumbers_)
        strayNumbers_ = strayNumbersOf(source_);
    const auto isBefore = [](Span stray, std::size_t offset) { return stray.offset < offset; };
    const auto place    = std::lower_bound(strayNumbers_->begin(), strayNumbers_->end(), what.offset, isBefore);
    return place != strayNumbers_->end() && place->offset == what.offset;
}
