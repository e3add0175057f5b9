// Commands that are refused: whole messages, and a file that stays as it is.

#include "editing.h"

#include <ostream>
#include <string>
#include <vector>

namespace {

/// Host groups 1 "web", 2 "mail" and 3 "mail", a protocol group 1 "http", an action 1 "pass", a policy 1.
std::string sample()
{
    const std::string any = "<hostSelector><family>AF_ANY</family><selectorType>ANY</selectorType></hostSelector>";
    return document(entry("hostGroup", 1, group("hostGroup", "web", "", any)) +
                        entry("hostGroup", 2, group("hostGroup", "mail", "", "")) +
                        entry("hostGroup", 3, group("hostGroup", "mail", "", "")),
                    entry("protocolGroup", 1, group("protocolGroup", "http", "", "")),
                    entry("action", 1, action("pass", "", "<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr>")),
                    entry("policy", 1, policy(1, 1, 1)));
}

struct Refusal {
    std::string command;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const Refusal& refusal)
{
    return out << refusal.command;
}

class RefusedCommand : public Editing, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedCommand, ChangesNothingAndSaysWhy)
{
    expectRefused(sample(), {"add host-group new", GetParam().command}, GetParam().message);
}

const std::string KIND         = "here must stand host-group, protocol-group, action, policy";
const std::string IN_QUOTES    = " is missing (an '=' in a name must be in quotes)";
const std::string NO_FIELD     = " names no field that can be set here";
const std::string NOT_FIELD    = " is not FIELD=VALUE (a value with blanks must be in quotes)";
const std::string QUOTED_WHOLE = " is not FIELD=VALUE (quotes stand around the VALUE alone)";
const std::string LESS_THAN    = ": a document cannot hold a text with '<' in it";
const std::string WHITE        = ": a document cannot hold a text with white space at an end";

// clang-format off
const Refusal COMMANDS[] = {
    {"ad host-group x",                 "a command begins with add, replace, set or remove"},
    {"\"\"",                            "a command begins with add, replace, set or remove"},
    {"add",                             "what to add is missing"},
    {"add host",                        KIND + ", selector or built-in"},
    {"add host-groups x",               KIND + ", selector or built-in"},
    {"add host-group",                  "NAME is missing"},
    {"add host-group descr=x",          "NAME" + IN_QUOTES},
    {"add host-group x y",              "word 4" + NOT_FIELD},
    {"add host-group x name=y",         "word 4 ('name')" + NO_FIELD},
    {"add host-group x descr=a b=c",    "word 5" + NO_FIELD},
    {"add host-group x d\"e\"scr=a",    "word 4" + NOT_FIELD},
    {"add host-group x spdAction=NONE", "word 4 ('spdAction')" + NO_FIELD},
    {"add host-group x id=5 id=6",      "word 5 gives id once more"},
    {"add host-group \"x",              "a quote is not closed"},
    {"add host-group 'x",               "a quote is not closed"},
    {"add protocol-group x selectors=tcp/80-90",
                                        "'80-90' is no port: a selector has one, or any, but no range"},
    {"add protocol-group a selectors=tcp/80,22",
                                        "ports cannot be listed: write tcp/80, tcp/22 (or '22 in/out', if protocol 22 "
                                        "is meant)"},
    {"add protocol-group a selectors=tcp/80,443", "ports cannot be listed: write tcp/80, tcp/443"},
    {"add selector protocol-group http sctp/1 out named x, 20-25",
                                        "ports cannot be listed, and there are no ranges: each port is a selector of its "
                                        "own"},
    {"add selector protocol-group http udp from 500, 4500",
                                        "ports cannot be listed: write udp from 500, udp from 4500"},
    {"remove selector protocol-group http tcp/80,22",
                                        "ports cannot be listed: write tcp/80, tcp/22 (or '22 in/out', if protocol 22 "
                                        "is meant)"},
    {"add host-group \"\\q\"",          "an escape in quotes is none of \\\" \\\\ \\n \\r \\t \\xHH \\u{H...}"},
    {"add host-group \" x\"",           "name" + WHITE},
    {"add host-group \"x\\n\"",         "name" + WHITE},
    {"add host-group a<b",              "name" + LESS_THAN},
    {"add host-group x descr=\"\\x0b\"", "descr" + WHITE},
    {"add host-group x selectors=10.2", "'10.2' is not an IPv4 or IPv6 address"},
    {"add host-group x selectors=any,", "a selector is missing"},
    {"add host-group x selectors=\"any # all\"",
                                        "'any' is no address family (AF_INET, AF_INET6, AF_ANY)"},
    {"add host-group x selectors=any,any", "the selector is there already: any"},
    {"add protocol-group x selectors=\"tcp named \\\"\\\"\"",
                                        "named: a document cannot hold a selector without a name"},
    {"add protocol-group x selectors=\"tcp named \\\" \\\"\"", "named" + WHITE},
    {"add policy",                      "HOST-GROUP is missing"},
    {"add policy web",                  "PROTOCOL-GROUP is missing"},
    {"add policy web http",             "ACTION is missing"},
    {"add policy web http 1 2",         "word 6" + NOT_FIELD},
    {"add policy web http 1 actionID=1", "word 6 ('actionID')" + NO_FIELD},
    {"add policy web id=5 1",           "PROTOCOL-GROUP" + IN_QUOTES},
    {"add policy mail http pass",       "2 host groups are named 'mail' (IDs 2, 3): give the ID"},
    {"add policy 9 http pass",          "no host group has ID 9"},
    {"add policy web http drop",        "no action is named 'drop'"},
    {"add policy missing=1 0 0",        "host group 1 is not missing"},
    {"add policy missing=0 0 0",        "'0' cannot be the ID of what is missing (1 to 4294967295)"},
    {"add policy missing=4294967296 0 0", "'4294967296' cannot be the ID of what is missing (1 to 4294967295)"},
    {"add policy missing=web 0 0",      "'web' cannot be the ID of what is missing (1 to 4294967295)"},
    {"add built-in",                    "the kind of built-in is missing"},
    {"add built-in hosts any",          KIND},
    {"add built-in host-group",         "the name of the built-in is missing"},
    {"add built-in host-group all",     "no built-in of this kind is called that (there are any, local, mcast, any4, "
                                        "local4, mcast4, any6, local6, mcast6)"},
    {"add built-in protocol-group any", "no built-in of this kind is called that (there are all, system)"},
    {"add built-in action Discard",     "no built-in of this kind is called that (there are discard, bypass)"},
    {"add built-in policy any",         "there are no built-in policies"},
    {"add built-in host-group any id=1", "ID 1 is in use: it is host group 1 'web'"},
    {"add built-in host-group any descr=x", "word 5 ('descr')" + NO_FIELD},
    {"add selector",                    "the kind of group is missing"},
    {"add selector action pass any",    "only a host-group or a protocol-group has selectors"},
    {"add selector host-group",         "the ID or name is missing"},
    {"add selector host-group web",     "a selector is missing"},
    {"add selector host-group web # any4", "a selector is missing"},
    {"add selector host-group web any", "the selector is there already: any"},
    {"add selector host-group web \"10.0.0.1 \"", "'10.0.0.1 ' is not an IPv4 or IPv6 address"},
    {"add selector host-group web AF_INET SINGLE addr1=a<b", "addr1" + LESS_THAN},
    {"add selector host-group web AF_INET RANGE addr1=a addr2=\" b\"", "addr2" + WHITE},
    {"add selector host-group web AF_INET SUBNET_MASK addr1=a mask=255.0.0.0\"\\x00<\"", "mask" + LESS_THAN},
    {"add selector host-group web AF_INET SUBNET_MASK addr1=a mask=b", "invalid mask"},
    {"remove selector host-group web 10.0.0.1", "there is no such selector: 10.0.0.1"},
    {"remove selector protocol-group http tcp/80 in", "there is no such selector: tcp/80 in"},
    {"replace",                         "what to replace is missing"},
    {"replace built-in host-group any", KIND},
    {"replace host-group",              "the ID or name is missing"},
    {"replace host-group 1",            "NAME is missing"},
    {"replace host-group 7 x",          "no host group has ID 7"},
    {"replace host-group 1 x id=7",     "word 5 ('id')" + NO_FIELD},
    {"replace policy web 0 0 0",        "'web' is no policy: policies have no names, give the ID"},
    {"replace policy 1 0 0",            "ACTION is missing"},
    {"replace policy 1 0 0 0 id=7",     "word 7 is one too many"},
    {"set",                             "what to set is missing"},
    {"set hosts nextID=7",              KIND + ", host-groups, protocol-groups, actions or policies"},
    {"set host-groups",                 "nextID=N is missing"},
    {"set host-groups 7",               "word 3" + NOT_FIELD},
    {"set host-groups id=7",            "word 3 ('id')" + NO_FIELD},
    {"set host-group",                  "the ID or name is missing"},
    {"set host-group descr=x",          "the ID or name" + IN_QUOTES},
    {"set host-group 1",                "FIELD=VALUE is missing"},
    {"set host-group 1 id=7",           "word 4 ('id')" + NO_FIELD},
    {"set host-group 1 builtinName=x",  "'x' is no builtinName (-2147483648 to 2147483647)"},
    {"set host-group 1 builtinName=2147483648", "'2147483648' is no builtinName (-2147483648 to 2147483647)"},
    {"set host-group 1 builtinDescr=-2147483649",
                                        "'-2147483649' is no builtinDescr (-2147483648 to 2147483647)"},
    {"set host-group 1 builtinDescr=007", "'007' is no builtinDescr (-2147483648 to 2147483647)"},
    {"set host-group 1 builtinDescr=\"7 \"", "'7 ' is no builtinDescr (-2147483648 to 2147483647)"},
    {"set policy 1 name=x",             "word 4 ('name')" + NO_FIELD},
    {"set policy 1 actionID=drop",      "no action is named 'drop'"},
    {"set policy 1 hostGroupID=",       "no host group is named ''"},
    {"set action 1 changeCount=1",      "word 4 ('changeCount')" + NO_FIELD},
    {"set action 1 builtinName=1",      "word 4 ('builtinName')" + NO_FIELD},
    {"set action 1 \"\x1b\"=1",         "word 4" + QUOTED_WHOLE},
    {"set action 1 a\x1b=1",            "word 4" + NO_FIELD},
    {"set action 1 c2VjcmV0==",         "word 4" + NO_FIELD},
    {"set action 1 spdAction=bypass",   "'bypass' is no spdAction (NONE, BYPASS, DISCARD, TRANSPORT, TUNNEL)"},
    {"set action 1 keyMgr=ike",         "'ike' is no keyMgr (NONE, MKM, IKE)"},
    {"set action 1 tunnelEndpoint=a",   "tunnelEndpoint is only defined for IPSEC-TUNNEL"},
    {"set action 1 spdAction=TUNNEL tunnelEndpoint=a<", "tunnelEndpoint" + LESS_THAN},
    {"set action 1 type=1 type=1",      "word 5 gives type once more"},
    {"set action 1 keyMgr=IKE ikePhase1/authType=psk", "what is given is no ikePhase1/authType (PSK, RSA)"},
    {"set action 1 keyMgr=IKE ikePhase1/proposal/dhGroup=14",
                                        "'14' is no ikePhase1/proposal/dhGroup (NONE, G1, G2, G14)"},
    {"set action 1 keyMgr=IKE ikePhase1/proposal/transform=IKE_AES_SHA,AES",
                                        "what is given is no ikePhase1/proposal/transform (IKE_NONE, IKE_AES_SHA, IKE_AES_MD5, "
                                        "IKE_3DES_SHA, IKE_3DES_MD5, IKE_DES_SHA, IKE_DES_MD5)"},
    {"set action 1 keyMgr=IKE ikePhase2/keyLifetime=4294967296",
                                        "'4294967296' is no ikePhase2/keyLifetime (0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/keyLifetime=-1", "'-1' is no ikePhase2/keyLifetime (0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/keyLifetime=0x10",
                                        "'0x10' is no ikePhase2/keyLifetime (0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/keyLifetimeUnits=MIN",
                                        "what is given is no ikePhase2/keyLifetimeUnits (SECS, KB, MINS, HRS)"},
    {"set action 1 keyMgr=IKE ikePhase2/saProposal=ESP:12",
                 "what is given is no PROTOCOL:ENCRYPTION:HASH, such as ESP:12:5 (numbers are 0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/saProposal=ESP:12:5:6",
                 "what is given is no PROTOCOL:ENCRYPTION:HASH, such as ESP:12:5 (numbers are 0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/saProposal=ESP:4294967296:5",
                 "what is given is no PROTOCOL:ENCRYPTION:HASH, such as ESP:12:5 (numbers are 0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/saProposal=ESP:1:1,",
                 "what is given is no PROTOCOL:ENCRYPTION:HASH, such as ESP:12:5 (numbers are 0 to 4294967295)"},
    {"set action 1 keyMgr=IKE ikePhase2/saProposal=esp:12:5", "what is given is no protocol (NONE, AH, ESP, ESP+AH)"},
    {"set action 1 keyMgr=MKM manualKey/saProposal/protocol=ESP manualKey/inboundESPSPI=0x100000000",
                                        "what is given is no manualKey/inboundESPSPI (0 to 4294967295)"},
    {"set action 1 keyMgr=MKM manualKey/saProposal/protocol=ESP manualKey/inboundESPSPI=0x",
                                        "what is given is no manualKey/inboundESPSPI (0 to 4294967295)"},
    {"set action 1 keyMgr=MKM manualKey/saProposal=ESP:1:1", "word 5 ('manualKey/saProposal')" + NO_FIELD +
                 " (did you mean 'manualKey/saProposal/protocol' or 'manualKey/saProposal/encryption' or "
                 "'manualKey/saProposal/hash'?)"},
    {"set action 1 presharedKey=x",     "word 4 ('presharedKey')" + NO_FIELD +
                                        " (did you mean 'ikePhase1/presharedKey'?)"},
    {"set action 1 ikePhase2/presharedKey=x", "word 4 ('ikePhase2/presharedKey')" + NO_FIELD + " (did you mean 'ikePhase1/presharedKey'?)"},
    {"set action 1 preshared_key=x",    "word 4" + NO_FIELD + " (did you mean 'ikePhase1/presharedKey'?)"},
    {"set action 1 dhGroup=G14",        "word 4 ('dhGroup')" + NO_FIELD +
                                        " (did you mean 'ikePhase1/proposal/dhGroup' or 'ikePhase2/dhGroup'?)"},
    {"set action 1 tunnelEndPoint=x",   "word 4" + NO_FIELD + " (did you mean 'tunnelEndpoint'?)"},
    {"set action 1 ikePhase1=x",        "word 4 ('ikePhase1')" + NO_FIELD},
    {"set host-group 1 description=x",  "word 4" + NO_FIELD},
    {"set host-group 1 desc=x",         "word 4" + NO_FIELD + " (did you mean 'descr'?)"},
    {"set action 1 \"descr=x\"",        "word 4" + QUOTED_WHOLE},
    {"set action 1 'descr=x y'",        "word 4" + QUOTED_WHOLE},
    {"set action 'ikePhase1/presharedKey=x'", "the ID or name is missing (in FIELD=VALUE quotes stand around the VALUE "
                                        "alone)"},
    {"remove",                          "what to remove is missing"},
    {"remove groups 1",                 KIND + " or selector"},
    {"remove host-group",               "the ID or name is missing"},
    {"remove host-group 9",             "no host group has ID 9"},
    {"remove host-group 2 3",           "word 4 is one too many"},
    {"remove host-group 2 \"--cascade\"", "word 4 is one too many"},
    {"remove host-group web --casc",    "word 4 is one too many"},
    {"remove host-group 1 11 --cascade", "word 4 is one too many"},
    {"remove host-group 1 --cascade 11", "word 5 is one too many"},
    {"remove host-group 1",             "host group 1 'web' is used by policy 1 (--cascade removes what uses it too)"},
    {"remove protocol-group http",
                 "protocol group 1 'http' is used by policy 1 (--cascade removes what uses it too)"},
    {"remove action pass",              "action 1 'pass' is used by policy 1 (--cascade removes what uses it too)"},
    {"remove policy web",               "'web' is no policy: policies have no names, give the ID"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Edit, RefusedCommand, testing::ValuesIn(COMMANDS));

} // namespace
