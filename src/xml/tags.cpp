#include <ipsecimpl/xml.h>

namespace ipsecimpl {

const char __hostGroupsTag[]     = "hostGroups";
const char __hostGroupTag[]      = "hostGroup";
const char __protocolGroupsTag[] = "protocolGroups";
const char __protocolGroupTag[]  = "protocolGroup";
const char __actionsTag[]        = "actions";
const char __actionTag[]         = "action";
const char __policiesTag[]       = "policies";
const char __policyTag[]         = "policy";

} // namespace ipsecimpl
