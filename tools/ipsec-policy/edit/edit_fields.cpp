#include "edit_fields.h"

#include "edited_config.h"
#include "hex_digit.h"
#include "load_message.h"
#include "nearest.h"
#include "plain_number.h"
#include "secrets.h"
#include "storable.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

const std::int64_t GREATEST_32 = 0xFFFFFFFF;

/// The number in a text such as "0x1000"; nothing if it is none of at most 32 bits.
std::optional<unsigned long> hexadecimalNumber(std::string_view text)
{
    if (text.size() < 3 || text.size() > 10 || text.substr(0, 2) != "0x")
        return std::nullopt;
    unsigned long number = 0;
    for (const char c : text.substr(2)) {
        const unsigned int digit = hexDigit(c);
        if (digit > 15)
            return std::nullopt;
        number = number * 16 + digit;
    }
    return number;
}

/// Whether the name consists of tags. What does not may be a piece of a key, such as one that ends in '='.
bool isOfFormat(std::string_view name)
{
    while (!name.empty()) {
        const std::size_t slash = std::min(name.find('/'), name.size());
        if (!isWordOfFormat(name.substr(0, slash)))
            return false;
        name.remove_prefix(std::min(slash + 1, name.size()));
    }
    return true;
}

std::string_view lastTag(std::string_view path)
{
    return path.substr(path.rfind('/') + 1); // all of it if there is no slash
}

/// The fields whose names `isMeant` picks, at most a handful.
template <class IsMeant>
std::string listOf(const KnownFields& known, const IsMeant& isMeant)
{
    const std::ptrdiff_t MOST = 4;
    if (std::count_if(known.begin(), known.end(), [&](const KnownField& field) { return isMeant(field.path); }) > MOST)
        return "";
    std::string paths;
    for (const KnownField& field : known)
        if (isMeant(field.path))
            paths += (paths.empty() ? "'" : " or '") + std::string(field.path) + '\'';
    return paths;
}

/// The fields that were probably meant by a name that is none, such as " (did you mean 'ikePhase1/presharedKey'?)":
/// those below it; else those that end in its last tag or, if there are none, in one like it.
std::string hintFor(std::string_view name, const KnownFields& known)
{
    const std::string        below = std::string(name) + '/';
    std::string              meant(lastTag(name));
    std::vector<std::string> tags;
    for (const KnownField& field : known)
        tags.emplace_back(lastTag(field.path));
    if (std::find(tags.begin(), tags.end(), meant) == tags.end())
        meant = nearest(meant, tags);

    std::string list = listOf(known, [&](std::string_view path) { return path.compare(0, below.size(), below) == 0; });
    if (list.empty() && !meant.empty())
        list = listOf(known, [&](std::string_view path) { return lastTag(path) == meant; });
    return list.empty() ? "" : " (did you mean " + list + "?)";
}

} // namespace

void requireStorable(std::string_view text, const std::string& what)
{
    if (const char* const obstacle = obstacleToStoring(text))
        throw commandFailure(what + ": " + obstacle);
}

unsigned int givenID(std::string_view text)
{
    const auto id = plainNumber(text);
    if (!id || *id < 1 || *id > LAST_ID)
        throw commandFailure('\'' + printable(text) + "' is no ID (1 to 2147483647)");
    return static_cast<unsigned int>(*id);
}

std::string GivenValue::text() const
{
    std::string text = plain();
    requireStorable(text, std::string(field_));
    return text;
}

std::string GivenValue::secret() const
{
    std::string text = secrets_->read(spelt_, std::string(field_), *owner_);
    requireStorable(text, std::string(field_));
    return text;
}

std::string GivenValue::shown(const std::string& text) const
{
    const bool isAlone  = field_.find('/') == std::string_view::npos;
    const bool isNumber = plainNumber(text) || hexadecimalNumber(text); // of ten digits at most
    return isAlone || isNumber ? '\'' + printable(text) + '\'' : "what is given";
}

std::int64_t GivenValue::numberWithin(std::int64_t least, std::int64_t greatest) const
{
    const std::string text   = plain();
    const auto        number = plainNumber(text);
    if (!number || *number < least || *number > greatest)
        throw commandFailure(shown(text) + " is no " + std::string(field_) + " (" + std::to_string(least) + " to " +
                             std::to_string(greatest) + ')');
    return *number;
}

int GivenValue::integer() const
{
    return static_cast<int>(numberWithin(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

unsigned long GivenValue::number() const
{
    return static_cast<unsigned long>(numberWithin(0, GREATEST_32));
}

unsigned long GivenValue::spi() const
{
    const auto number = hexadecimalNumber(plain());
    return number ? *number : GivenValue::number();
}

std::vector<std::string_view> GivenValue::members(std::string& text) const
{
    text = plain();
    return splitList(text);
}

GivenFields::GivenFields(const std::vector<std::string_view>& words, std::size_t before, const KnownFields& known,
                         std::string owner, Secrets& secrets)
    : owner_(std::move(owner))
{
    bool mayQuote = true;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string position   = "word " + std::to_string(before + i + 1);
        const auto        assignment = assignmentIn(words[i]);
        if (!assignment)
            throw commandFailure(position + (isQuoted(words[i])
                                                 ? " is not FIELD=VALUE (quotes stand around the VALUE alone)"
                                                 : " is not FIELD=VALUE (a value with blanks must be in quotes)"));

        const std::string_view name  = assignment->name;
        const auto             field = std::find_if(known.begin(), known.end(),
                                                    [name](const KnownField& candidate) { return candidate.path == name; });
        if (field == known.end() && mayQuote)
            throw commandFailure(position + (isOfFormat(name) ? " ('" + std::string(name) + "')" : "") +
                                 " names no field that can be set here" + hintFor(name, known));
        if (field == known.end())
            throw commandFailure(position + " names no field that can be set here");
        if (find(name) != nullptr)
            throw commandFailure(position + " gives " + std::string(field->path) + " once more");
        values_.emplace_back(field->path, assignment->value, owner_, secrets);
        mayQuote = mayQuote && !field->isSecret;
    }
}

const GivenValue* GivenFields::find(std::string_view field) const
{
    const auto value = std::find_if(values_.begin(), values_.end(),
                                    [field](const GivenValue& candidate) { return candidate.field() == field; });
    return value == values_.end() ? nullptr : &*value;
}
