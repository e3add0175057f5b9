#include "algorithms.h"

#include "failure.h"
#include "files.h"
#include "json.h"
#include "text.h"

#include <initializer_list>
#include <set>
#include <string_view>
#include <vector>

namespace {

struct StatusName {
    const char* name;
    Status      status;
};

const StatusName STATUS_NAMES[] = {
    {"MUST", Status::FINE},
    {"MUST-", Status::OUTGOING},
    {"SHOULD+", Status::FINE},
    {"SHOULD", Status::FINE},
    {"SHOULD-", Status::OUTGOING},
    {"MAY", Status::FINE},
    {"SHOULD NOT", Status::SHOULD_NOT},
    {"MUST NOT", Status::MUST_NOT},
};

/// `path` is that of the member which is wrong, empty for the whole.
[[noreturn]] void fail(const std::string& path, const std::string& message)
{
    throw Failure(ExitStatus::TROUBLE, (path.empty() ? "" : printable(path) + ": ") + message);
}

std::string below(const std::string& path, const std::string& member)
{
    return path.empty() ? member : path + '/' + member;
}

/// Looks for members that occur twice, of which the JSON library would keep the last in silence.
class Uniqueness {
  public:
    bool operator()(int /*depth*/, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start) {
            open_.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            open_.pop_back();
        } else if (event == Json::parse_event_t::key) {
            open_.back().last = parsed.get<std::string>();
            if (!open_.back().seen.insert(open_.back().last).second)
                fail(path(), "this member occurs twice");
        }
        return true;
    }

  private:
    struct Object {
        std::set<std::string> seen;
        std::string           last;
    };

    std::string path() const
    {
        std::string text;
        for (const Object& object : open_)
            text = below(text, object.last);
        return text;
    }

    std::vector<Object> open_;
};

/// What the JSON library says, without its own classification, and without the text at fault: that may be anything.
std::string syntaxMessage(std::string_view what)
{
    const std::string_view start = "parse error at ";
    if (const std::size_t at = what.find(start); at != std::string_view::npos)
        what.remove_prefix(at + start.size());
    return printable(what.substr(0, what.find("; last read:")));
}

Json parsed(const std::string& text)
{
    try {
        return Json::parse(text, Uniqueness());
    } catch (const Json::parse_error& error) {
        fail("", syntaxMessage(error.what()));
    } catch (const Json::exception&) {
        fail("", "a number is out of range");
    }
}

void requireObject(const std::string& path, const Json& value)
{
    if (!value.is_object())
        fail(path, "this must be an object, { ... }");
}

void refuseOthers(const std::string& path, const Json& object, std::initializer_list<const char*> known)
{
    for (const auto& member : object.items()) {
        bool        isKnown = false;
        std::string list;
        for (const char* const name : known) {
            isKnown = isKnown || member.key() == name;
            list += (list.empty() ? "" : ", ") + std::string(name);
        }
        if (!isKnown)
            fail(below(path, member.key()), "no such member; there are: " + list);
    }
}

const Json& required(const std::string& path, const Json& object, const char* member)
{
    const auto found = object.find(member);
    if (found == object.end())
        fail(below(path, member), "this member is missing");
    return *found;
}

std::string textIn(const std::string& path, const Json& object, const char* member)
{
    const Json& value = required(path, object, member);
    if (!value.is_string() || value.get_ref<const std::string&>().empty())
        fail(below(path, member), "this must be a text that is not empty");
    return value.get<std::string>();
}

bool flagIn(const std::string& path, const Json& object, const char* member)
{
    const auto found = object.find(member);
    if (found == object.end())
        return false;
    if (!found->is_boolean())
        fail(below(path, member), "this must be true or false");
    return found->get<bool>();
}

Status statusIn(const std::string& path, const std::string& name)
{
    std::string list;
    for (const StatusName& entry : STATUS_NAMES) {
        if (name == entry.name)
            return entry.status;
        list += (list.empty() ? "" : ", ") + std::string(entry.name);
    }
    fail(below(path, "status"), "this must be one of: " + list);
}

/// 32 bits are what a document can carry.
unsigned long numberIn(const std::string& path, const std::string& key)
{
    const bool plain = !key.empty() && key.size() <= 10 && key.find_first_not_of("0123456789") == std::string::npos &&
                       (key == "0" || key.front() != '0');
    const unsigned long long number = plain ? std::stoull(key) : 0;
    if (!plain || number > 4294967295U)
        fail(below(path, key), "this must be a decimal number from 0 to 4294967295");
    return static_cast<unsigned long>(number);
}

Algorithm encryptionIn(const std::string& path, const Json& value)
{
    requireObject(path, value);
    refuseOthers(path, value, {"name", "status", "aead", "counter"});
    const std::string status = textIn(path, value, "status");
    return {textIn(path, value, "name"), status, statusIn(path, status), flagIn(path, value, "aead"),
            flagIn(path, value, "counter")};
}

Algorithm hashIn(const std::string& path, const Json& value)
{
    requireObject(path, value);
    refuseOthers(path, value, {"name", "status"});
    const std::string status = textIn(path, value, "status");
    return {textIn(path, value, "name"), status, statusIn(path, status), false, false};
}

template <class Read>
std::map<unsigned long, Algorithm> tableIn(const Json& root, const char* member, const Read& read)
{
    const Json& table = required("", root, member);
    requireObject(member, table);

    std::map<unsigned long, Algorithm> result;
    for (const auto& entry : table.items()) {
        const unsigned long number = numberIn(member, entry.key());
        result.emplace(number, read(below(member, entry.key()), entry.value()));
    }
    return result;
}

} // namespace

Algorithms Algorithms::parse(const std::string& json)
{
    const Json root = parsed(json);
    requireObject("", root);
    refuseOthers("", root, {"encryption", "hash"});

    Algorithms algorithms;
    algorithms.encryption_ = tableIn(root, "encryption", encryptionIn);
    algorithms.hash_       = tableIn(root, "hash", hashIn);
    return algorithms;
}

Algorithms Algorithms::read(const std::string& fileName)
{
    const std::string text = readFileBeside(fileName, "list of algorithms");
    try {
        return parse(text);
    } catch (const Failure& failure) {
        const std::string shown = isStandardStream(fileName) ? "standard input" : printable(fileName);
        throw Failure(failure.status, shown + ": " + failure.what());
    }
}
