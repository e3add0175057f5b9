#ifndef IPSEC_POLICY_COMMAND_WORDS_H
#define IPSEC_POLICY_COMMAND_WORDS_H

#include "edit_fields.h"
#include "edit_words.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The words of an edit command, to be taken one after the other. They stay in the line, which must outlive them.
class CommandWords {
  public:
    explicit CommandWords(std::string_view line)
        : text_(withoutComment(line))
        , words_(splitWords(text_))
    {
    }

    bool atEnd() const { return taken_ == words_.size(); }

    /// The next word, without its quotes. Throws a Failure that asks for `what` if there is none.
    std::string take(const char* what)
    {
        if (atEnd())
            throw commandFailure(what + std::string(" is missing"));
        return unquoted(words_[taken_++]);
    }

    /// The next word, which is a name, or what else an object is called. A word with an equals sign outside quotes is
    /// taken for a field, with a name in front forgotten, unless it begins with one of `prefixes` and the sign.
    std::string takeReference(const char* what, std::initializer_list<std::string_view> prefixes)
    {
        const auto field = atEnd() ? std::nullopt : assignmentIn(words_[taken_]);
        if (field && std::find(prefixes.begin(), prefixes.end(), field->name) == prefixes.end())
            throw commandFailure(what + std::string(" is missing (an '=' in a name must be in quotes)"));
        return take(what);
    }

    /// Takes the next word if it is `word`, spelt like that.
    bool takeIf(std::string_view word)
    {
        const bool is = !atEnd() && words_[taken_] == word;
        taken_ += is ? 1 : 0;
        return is;
    }

    /// Takes the rest, as it was spelt.
    std::string_view takeRest()
    {
        if (atEnd())
            return {};
        const char* const rest = words_[std::exchange(taken_, words_.size())].data();
        return text_.substr(static_cast<std::size_t>(rest - text_.data()));
    }

    /// Takes the rest, which is FIELD=VALUE words.
    GivenFields takeFields(const KnownFields& known, std::string owner, Secrets& secrets)
    {
        const std::size_t before = std::exchange(taken_, words_.size());
        return GivenFields({words_.begin() + static_cast<std::ptrdiff_t>(before), words_.end()}, before, known,
                           std::move(owner), secrets);
    }

    /// Throws a Failure if there is more.
    void requireEnd() const
    {
        if (!atEnd())
            throw commandFailure("word " + std::to_string(taken_ + 1) + " is one too many");
    }

  private:
    std::string_view              text_;
    std::vector<std::string_view> words_;
    std::size_t                   taken_ = 0;
};

#endif
