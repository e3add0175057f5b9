#ifndef IPSEC_POLICY_EDIT_FIELDS_H
#define IPSEC_POLICY_EDIT_FIELDS_H

/// \file
/// What commands give the fields of objects: `FIELD=VALUE ...`.

#include "edit_words.h"
#include "enum_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class Secrets;

/// Throws a Failure if a document cannot hold the text so that it comes back. The message calls it `what` and does not
/// quote it.
void requireStorable(std::string_view text, const std::string& what);

/// The ID in a text of digits, 1 to 2147483647. Throws a Failure for anything else.
unsigned int givenID(std::string_view text);

/// What a command gives a field. Its functions turn that into what the field is, and throw a Failure that names the
/// field if it cannot be that.
class GivenValue {
  public:
    /// `spelt` as in the command; `owner` is whose field it is, such as "action 'x'", fit for a terminal.
    GivenValue(std::string_view field, std::string_view spelt, const std::string& owner, Secrets& secrets)
        : field_(field)
        , spelt_(spelt)
        , owner_(&owner)
        , secrets_(&secrets)
    {
    }

    std::string_view field() const { return field_; }

    std::string plain() const { return unquoted(spelt_); } ///< anything
    std::string text() const;                              ///< what a document can hold
    std::string secret() const;                            ///< the same, also from a file or the terminal

    int           integer() const;
    unsigned long number() const; ///< 0 to 4294967295
    unsigned long spi() const;    ///< the same, perhaps hexadecimal

    template <class E>
    E word() const
    {
        return word<E>(plain());
    }

    /// The word in a member of a list.
    template <class E>
    E word(const std::string& text) const
    {
        return readEnum<E>(text, std::string(field_), shown(text));
    }

    /// The members of a list, as they were spelt. `text` keeps what they stand in.
    std::vector<std::string_view> members(std::string& text) const;

    /// How a message shows what the field cannot be. Beside keys, anything but a number could be one that went astray.
    std::string shown(const std::string& text) const;

  private:
    std::int64_t numberWithin(std::int64_t least, std::int64_t greatest) const;

    std::string_view   field_;
    std::string_view   spelt_;
    const std::string* owner_;
    Secrets*           secrets_;
};

/// A field that a kind of object has, and how to set it.
template <class Object>
struct FieldSetter {
    const char* path; ///< tags of the document below the object's own
    void (*set)(Object& object, const GivenValue& value);
    bool isSecret = false;
};

/// All fields that a command may give.
struct KnownField {
    std::string_view path;
    bool             isSecret;
};

using KnownFields = std::vector<KnownField>;

template <class Setters>
void append(KnownFields& known, const Setters& setters)
{
    for (const auto& setter : setters)
        known.push_back({setter.path, setter.isSecret});
}

/// The FIELD=VALUE words of a command.
class GivenFields {
  public:
    /// Throws a Failure for a word that is none, names no field in `known` or one that was given before. It tells the
    /// number of the word, counted from 1 for the command's first; `words` are those behind the first `before`. What
    /// could be a piece of a secret is not quoted.
    GivenFields(const std::vector<std::string_view>& words, std::size_t before, const KnownFields& known,
                std::string owner, Secrets& secrets);

    GivenFields(const GivenFields&)            = delete; // the values refer to the owner
    GivenFields& operator=(const GivenFields&) = delete;
    ~GivenFields()                             = default;

    bool empty() const { return values_.empty(); }

    const GivenValue* find(std::string_view field) const;

    /// Sets the fields for which there are setters, in the setters' order.
    template <class Setters, class Object>
    void apply(const Setters& setters, Object& object) const
    {
        for (const auto& setter : setters)
            if (const GivenValue* const value = find(setter.path))
                setter.set(object, *value);
    }

    template <class Setters>
    bool hasAny(const Setters& setters) const
    {
        return std::any_of(std::begin(setters), std::end(setters),
                           [this](const auto& setter) { return find(setter.path) != nullptr; });
    }

  private:
    std::string             owner_;
    std::vector<GivenValue> values_;
};

#endif
