#ifndef IPSEC_POLICY_FIELD_VISITOR_H
#define IPSEC_POLICY_FIELD_VISITOR_H

/// \file
/// The fields of an object, one after the other: all that the document holds of it, with its tags and in its order.

#include "objects.h"

#include <ipsecimpl/config.h>

#include <string>

/// Is told of the fields by visitFields().
class FieldVisitor {
  public:
    virtual ~FieldVisitor() = default;

    virtual void number(const char* tag, long long value)               = 0;
    virtual void text(const char* tag, const std::string& value)        = 0;
    virtual void word(const char* tag, const char* value)               = 0; ///< one of the document's own
    virtual void secret(const char* tag, const std::string& value)      = 0; ///< a key, pre-shared key or IV
    virtual void reference(const char* tag, Kind kind, unsigned int id) = 0;

    /// What follows is inside an element, until the end().
    virtual void begin(const char* tag)                             = 0;
    virtual void begin(const ipsecimpl::HostSelector& selector)     = 0;
    virtual void begin(const ipsecimpl::ProtocolSelector& selector) = 0;
    virtual void end()                                              = 0;

    /// Words or elements that follow are the members of a list, until the endList(). `tag` is what paths call it.
    virtual void beginList(const char* tag) = 0;
    virtual void endList()                  = 0;
};

void visitFields(const ipsecimpl::HostGroup& group, FieldVisitor& visitor);
void visitFields(const ipsecimpl::ProtocolGroup& group, FieldVisitor& visitor);
void visitFields(const ipsecimpl::IPsecAction& action, FieldVisitor& visitor);
void visitFields(const ipsecimpl::Policy& policy, FieldVisitor& visitor);

#endif
