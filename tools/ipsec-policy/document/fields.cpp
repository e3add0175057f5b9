#include "fields.h"

#include "enum_text.h"
#include "field_walk.h"
#include "selector_text.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

using namespace ipsecimpl;

namespace {

/// Collects the fields of one object.
class FieldList {
  public:
    explicit FieldList(std::size_t expected) { fields_.reserve(expected); }

    void text(const char* path, const std::string& value) { fields_.push_back({path, std::string_view(value)}); }
    void secret(const char* path, const std::string& value)
    {
        fields_.push_back({path, std::string_view(value), true});
    }

    // What a document can carry fits.
    void number(const char* path, long long value) { fields_.push_back({path, value}); }
    void number(const char* path, unsigned long value) { number(path, static_cast<long long>(value)); }
    void number(const char* path, int value) { number(path, static_cast<long long>(value)); }

    void reference(const char* path, Kind kind, unsigned int id)
    {
        fields_.push_back({path, static_cast<long long>(id), false, kind});
    }

    template <int Num, auto Names>
    void word(const char* path, const Enum<Num, Names>& value)
    {
        fields_.push_back({path, Word{wordOf(value)}});
    }

    template <class List>
    void list(const char* path, const List& value)
    {
        fields_.push_back({path, &value});
    }

    void begin(const char*) {} // the paths tell
    void end() {}

    std::vector<Field> take() { return std::move(fields_); }

  private:
    std::vector<Field> fields_;
};

template <class Object>
std::vector<Field> walkedFields(const Object& object, std::size_t expected)
{
    FieldList fields(expected);
    walkFields(object, fields);
    return fields.take();
}

/// Equality of what stands in lists: all of it that a document carries, which the library's own need not look at.
bool isSameMember(const IKEPhase1Transform& a, const IKEPhase1Transform& b)
{
    return a == b;
}

bool isSameMember(const IPsecProposal& a, const IPsecProposal& b)
{
    return a.protocol == b.protocol && a.encryption == b.encryption && a.hash == b.hash;
}

bool isSameMember(const HostSelector& a, const HostSelector& b)
{
    return a.compare(b) == 0;
}

bool isSameMember(const ProtocolSelector& a, const ProtocolSelector& b)
{
    return a.compare(b) == 0 && a.name == b.name;
}

template <class List>
bool isSameList(const List& a, const List& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const auto& one, const auto& other) {
               return isSameMember(one, other);
           });
}

template <class Selector>
std::vector<std::string> onlyIn(const std::set<Selector>& selectors, const std::set<Selector>* others)
{
    std::vector<std::string> texts;
    for (const Selector& selector : selectors) {
        const auto same = others == nullptr ? typename std::set<Selector>::const_iterator() : others->find(selector);
        if (others == nullptr || same == others->end() || !isSameMember(selector, *same))
            texts.push_back(textOf(selector));
    }
    return texts;
}

} // namespace

std::vector<Field> fieldsOf(const HostGroup& group)
{
    return walkedFields(group, 5);
}

std::vector<Field> fieldsOf(const ProtocolGroup& group)
{
    return walkedFields(group, 5);
}

std::vector<Field> fieldsOf(const IPsecAction& action)
{
    return walkedFields(action, 24);
}

std::vector<Field> fieldsOf(const Policy& policy)
{
    return walkedFields(policy, 3);
}

bool isSame(const FieldValue& a, const FieldValue& b)
{
    if (a.index() != b.index())
        return false;
    return std::visit(
        [&b](const auto& value) {
            using Value        = std::decay_t<decltype(value)>;
            const Value& other = std::get<Value>(b);
            if constexpr (std::is_pointer_v<Value>)
                return isSameList(*value, *other);
            else if constexpr (std::is_same_v<Value, Word>)
                return std::strcmp(value.text, other.text) == 0;
            else
                return value == other;
        },
        a);
}

bool isSame(const Field& a, const Field& b)
{
    return std::strcmp(a.path, b.path) == 0 && isSame(a.value, b.value);
}

std::string textOf(const IPsecProposal& proposal)
{
    return std::string(wordOf(proposal.protocol)) + ", encryption " + std::to_string(proposal.encryption) + ", hash " +
           std::to_string(proposal.hash);
}

bool holdsSelectors(const FieldValue& value)
{
    return std::holds_alternative<const std::set<HostSelector>*>(value) ||
           std::holds_alternative<const std::set<ProtocolSelector>*>(value);
}

std::vector<std::string> selectorsOnlyIn(const FieldValue& value, const std::optional<FieldValue>& other)
{
    if (const auto* const hosts = std::get_if<const std::set<HostSelector>*>(&value))
        return onlyIn(**hosts, other ? std::get<const std::set<HostSelector>*>(*other) : nullptr);
    return onlyIn(*std::get<const std::set<ProtocolSelector>*>(value),
                  other ? std::get<const std::set<ProtocolSelector>*>(*other) : nullptr);
}
