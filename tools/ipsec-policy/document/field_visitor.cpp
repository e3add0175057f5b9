#include "field_visitor.h"

#include "enum_text.h"
#include "field_walk.h"

#include <cstring>

using namespace ipsecimpl;

namespace {

/// The document holds no number beyond 32 bits.
template <class Number>
long long numberOf(Number value)
{
    return static_cast<long long>(value);
}

void visit(const HostSelector& selector, FieldVisitor& visitor)
{
    visitor.begin(selector);
    visitor.word("family", wordOf(selector.family));
    visitor.word("selectorType", wordOf(selector.selectorType));
    if (selector.selectorType == HOST_SINGLE) {
        visitor.text("addr1", selector.addr1);
    } else if (selector.selectorType == HOST_RANGE) {
        visitor.text("addr1", selector.addr1);
        visitor.text("addr2", selector.addr2);
    } else if (selector.selectorType == HOST_SUBNET_LENGTH) {
        visitor.text("addr1", selector.addr1);
        visitor.number("length", selector.length);
    } else if (selector.selectorType == HOST_SUBNET_MASK) {
        visitor.text("addr1", selector.addr1);
        visitor.text("mask", selector.addr2);
    }
    visitor.end();
}

void visit(const ProtocolSelector& selector, FieldVisitor& visitor)
{
    visitor.begin(selector);
    visitor.number("protocol", selector.protocol);
    visitor.text("name", selector.name);
    if (selector.protocol != 0 && (selector.dstPort != 0 || selector.srcPort != 0)) {
        visitor.number("dstPort", selector.dstPort);
        visitor.number("srcPort", selector.srcPort);
    }
    visitor.word("direction", wordOf(selector.direction));
    visitor.word("mirrored", selector.mirrored ? "MIRRORED" : "NOTMIRRORED");
    visitor.end();
}

void visit(const IPsecProposal& proposal, FieldVisitor& visitor)
{
    visitor.begin("saProposal");
    visitor.word("protocol", wordOf(proposal.protocol));
    visitor.number("encryption", numberOf(proposal.encryption));
    visitor.number("hash", numberOf(proposal.hash));
    visitor.end();
}

void visit(const IKEPhase1Transform& transform, FieldVisitor& visitor)
{
    visitor.word("transform", wordOf(transform));
}

/// Tells a visitor of each field by its last tag, and of the members of its list.
class Visit {
  public:
    explicit Visit(FieldVisitor& visitor)
        : visitor_(visitor)
    {
    }

    void text(const char* path, const std::string& value) { visitor_.text(tagOf(path), value); }
    void secret(const char* path, const std::string& value) { visitor_.secret(tagOf(path), value); }
    void reference(const char* path, Kind kind, unsigned int id) { visitor_.reference(tagOf(path), kind, id); }
    void begin(const char* tag) { visitor_.begin(tag); }
    void end() { visitor_.end(); }

    template <class Number>
    void number(const char* path, Number value)
    {
        visitor_.number(tagOf(path), numberOf(value));
    }

    template <class Value>
    void word(const char* path, const Value& value)
    {
        visitor_.word(tagOf(path), wordOf(value));
    }

    template <class List>
    void list(const char* path, const List& members)
    {
        visitor_.beginList(tagOf(path));
        for (const auto& member : members)
            visit(member, visitor_);
        visitor_.endList();
    }

  private:
    static const char* tagOf(const char* path)
    {
        const char* const slash = std::strrchr(path, '/');
        return slash == nullptr ? path : slash + 1;
    }

    FieldVisitor& visitor_;
};

template <class Object>
void visitWalked(const Object& object, FieldVisitor& visitor)
{
    Visit fields(visitor);
    walkFields(object, fields);
}

} // namespace

void visitFields(const HostGroup& group, FieldVisitor& visitor)
{
    visitWalked(group, visitor);
}

void visitFields(const ProtocolGroup& group, FieldVisitor& visitor)
{
    visitWalked(group, visitor);
}

void visitFields(const IPsecAction& action, FieldVisitor& visitor)
{
    visitWalked(action, visitor);
}

void visitFields(const Policy& policy, FieldVisitor& visitor)
{
    visitWalked(policy, visitor);
}
