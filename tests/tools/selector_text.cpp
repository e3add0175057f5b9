#include "selector_text.h"

#include "failure.h"
#include "random_selectors.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace ipsecimpl;

namespace {

/// Everything that a document says of it, and more.
std::string fieldsOf(const HostSelector& s)
{
    std::ostringstream out;
    out << s.family << ' ' << s.selectorType << " '" << s.addr1 << "' '" << s.addr2 << "' " << s.length;
    return out.str();
}

std::string fieldsOf(const ProtocolSelector& s)
{
    std::ostringstream out;
    out << '\'' << s.name << "' " << s.protocol << ' ' << s.dstPort << ' ' << s.srcPort << ' ' << s.direction << ' '
        << (s.mirrored ? "MIRRORED" : "NOTMIRRORED");
    return out.str();
}

struct Meaning {
    const char* text;
    const char* fields;
    const char* written; ///< if it differs from `text`
};

// clang-format off
const Meaning HOSTS[] = {
    {"any",                         "AF_ANY ANY '' '' 0", nullptr},
    {"any4",                        "AF_INET ANY '' '' 0", nullptr},
    {"any6",                        "AF_INET6 ANY '' '' 0", nullptr},
    {"local",                       "AF_ANY LOCAL '' '' 0", nullptr},
    {"local4",                      "AF_INET LOCAL '' '' 0", nullptr},
    {"local6",                      "AF_INET6 LOCAL '' '' 0", nullptr},
    {"mcast",                       "AF_ANY MCAST '' '' 0", nullptr},
    {"mcast4",                      "AF_INET MCAST '' '' 0", nullptr},
    {"mcast6",                      "AF_INET6 MCAST '' '' 0", nullptr},
    {"none",                        "AF_ANY NONE '' '' 0", nullptr},
    {"none4",                       "AF_INET NONE '' '' 0", nullptr},
    {"none6",                       "AF_INET6 NONE '' '' 0", nullptr},
    {"10.0.0.1",                    "AF_INET SINGLE '10.0.0.1' '' 0", nullptr},
    {"\"10.0.0.1\"",                "AF_INET SINGLE '10.0.0.1' '' 0", "10.0.0.1"},
    {"2001:DB8::1",                 "AF_INET6 SINGLE '2001:DB8::1' '' 0", nullptr},
    {"::ffff:10.0.0.1",             "AF_INET6 SINGLE '::ffff:10.0.0.1' '' 0", nullptr},
    {"10.0.0.1-10.0.0.9",           "AF_INET RANGE '10.0.0.1' '10.0.0.9' 0", nullptr},
    {"10.0.0.1-10.0.0.1",           "AF_INET RANGE '10.0.0.1' '10.0.0.1' 0", nullptr},
    {"9.0.0.1-10.0.0.1",            "AF_INET RANGE '9.0.0.1' '10.0.0.1' 0", nullptr},
    {"fe80::-febf::ffff",           "AF_INET6 RANGE 'fe80::' 'febf::ffff' 0", nullptr},
    {"10.2.0.0/16",                 "AF_INET SUBNET_LENGTH '10.2.0.0' '255.255.0.0' 16", nullptr},
    {"10.2.3.4/16",                 "AF_INET SUBNET_LENGTH '10.2.3.4' '255.255.0.0' 16", nullptr},
    {"0.0.0.0/0",                   "AF_INET SUBNET_LENGTH '0.0.0.0' '0.0.0.0' 0", nullptr},
    {"10.2.0.0/32",                 "AF_INET SUBNET_LENGTH '10.2.0.0' '255.255.255.255' 32", nullptr},
    {"2001:db8::/48",               "AF_INET6 SUBNET_LENGTH '2001:db8::' 'ffff:ffff:ffff::' 48", nullptr},
    {"::/128",                      "AF_INET6 SUBNET_LENGTH '::' 'ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff' 128",
                                    nullptr},
    {"10.2.0.0/255.255.0.0",        "AF_INET SUBNET_MASK '10.2.0.0' '255.255.0.0' 16", nullptr},
    {"10.2.0.0/0.0.0.0",            "AF_INET SUBNET_MASK '10.2.0.0' '0.0.0.0' 0", nullptr},
    {"2001:db8::/FFFF:FFFF::",      "AF_INET6 SUBNET_MASK '2001:db8::' 'FFFF:FFFF::' 32", nullptr},
    {"AF_INET SINGLE addr1=10.0.0.1", "AF_INET SINGLE '10.0.0.1' '' 0", "10.0.0.1"},
    {"AF_INET ANY",                 "AF_INET ANY '' '' 0", "any4"},
    {"AF_INET SINGLE addr1=\"file server\"", "AF_INET SINGLE 'file server' '' 0", nullptr},
    {"AF_INET SINGLE addr1=any",    "AF_INET SINGLE 'any' '' 0", nullptr},
    {"AF_INET SINGLE addr1=::1",    "AF_INET SINGLE '::1' '' 0", nullptr},
    {"AF_INET SINGLE addr1=\"\"",   "AF_INET SINGLE '' '' 0", nullptr},
    {"AF_ANY SINGLE addr1=10.0.0.1", "AF_ANY SINGLE '10.0.0.1' '' 0", nullptr},
    {"AF_INET RANGE addr1=10.0.0.9 addr2=10.0.0.1", "AF_INET RANGE '10.0.0.9' '10.0.0.1' 0", nullptr},
    {"AF_INET SUBNET_LENGTH addr1=10.0.0.0 length=33",
                                    "AF_INET SUBNET_LENGTH '10.0.0.0' '255.255.255.255' 33", nullptr},
    {"AF_INET SUBNET_LENGTH addr1=10.0.0.0 length=-2147483648",
                                    "AF_INET SUBNET_LENGTH '10.0.0.0' '255.255.255.255' -2147483648", nullptr},
    {"AF_INET SUBNET_MASK addr1=10.0.0.0 mask=255.0.255.0",
                                    "AF_INET SUBNET_MASK '10.0.0.0' '255.0.255.0' 8", nullptr},
    {"AF_INET6 SUBNET_MASK addr1=x mask=::", "AF_INET6 SUBNET_MASK 'x' '::' 0", nullptr},
};

const Meaning PROTOCOLS[] = {
    {"tcp/443 out mirrored",        "'Protocol' 6 443 0 OUT MIRRORED", nullptr},
    {"tcp/443 mirrored out",        "'Protocol' 6 443 0 OUT MIRRORED", "tcp/443 out mirrored"},
    {"udp/500 from 500 in",         "'Protocol' 17 500 500 IN NOTMIRRORED", nullptr},
    {"any in",                      "'Protocol' 0 0 0 IN NOTMIRRORED", nullptr},
    {"any",                         "'Protocol' 0 0 0 INOUT NOTMIRRORED", "any in/out"},
    {"0",                           "'Protocol' 0 0 0 INOUT NOTMIRRORED", "any in/out"},
    {"any/0 from 0",                "'Protocol' 0 0 0 INOUT NOTMIRRORED", "any in/out"},
    {"47 out",                      "'Protocol' 47 0 0 OUT NOTMIRRORED", "gre out"},
    {"icmp in/out",                 "'Protocol' 1 0 0 INOUT NOTMIRRORED", nullptr},
    {"icmpv6 in",                   "'Protocol' 58 0 0 IN NOTMIRRORED", nullptr},
    {"esp in",                      "'Protocol' 50 0 0 IN NOTMIRRORED", nullptr},
    {"ah in",                       "'Protocol' 51 0 0 IN NOTMIRRORED", nullptr},
    {"ospf in",                     "'Protocol' 89 0 0 IN NOTMIRRORED", nullptr},
    {"sctp/65535 in",               "'Protocol' 132 65535 0 IN NOTMIRRORED", nullptr},
    {"65535 in",                    "'Protocol' 65535 0 0 IN NOTMIRRORED", nullptr},
    {"tcp from 80 in mirrored named \"Web, \\\"all\\\"\"", "'Web, \"all\"' 6 0 80 IN MIRRORED", nullptr},
    {"tcp/80 in named Web",         "'Web' 6 80 0 IN NOTMIRRORED", nullptr},
    {"tcp/80 named in out",         "'in' 6 80 0 OUT NOTMIRRORED", "tcp/80 out named in"},
    {"tcp/80 in named Protocol",    "'Protocol' 6 80 0 IN NOTMIRRORED", "tcp/80 in"},
    {"tcp/80 in named \"\"",        "'' 6 80 0 IN NOTMIRRORED", nullptr},
};
// clang-format on

TEST(HostSelectorText, MeansWhatItLooksLike)
{
    for (const Meaning& meaning : HOSTS) {
        const HostSelector selector = readHostSelector(meaning.text);
        EXPECT_EQ(fieldsOf(selector), meaning.fields) << meaning.text;
        EXPECT_EQ(textOf(selector), meaning.written == nullptr ? meaning.text : meaning.written);
    }
}

TEST(ProtocolSelectorText, MeansWhatItLooksLike)
{
    for (const Meaning& meaning : PROTOCOLS) {
        const ProtocolSelector selector = readProtocolSelector(meaning.text);
        EXPECT_EQ(fieldsOf(selector), meaning.fields) << meaning.text;
        EXPECT_EQ(textOf(selector), meaning.written == nullptr ? meaning.text : meaning.written);
    }
}

struct Refusal {
    const char* text;
    const char* message;
};

// clang-format off
const Refusal WRONG_HOSTS[] = {
    {"10.0.0.1 - 10.0.0.9",     "'10.0.0.1' is a selector alone: others follow behind a comma, and a range has no blanks in it"},
    {"2001:db8:: /48",          "'2001:db8::' is a selector alone: others follow behind a comma, and a range has no blanks in it"},
    {"",                        "a selector is missing"},
    {" ",                       "a selector is missing"},
    {"\"\"",                    "'' is not an IPv4 or IPv6 address"},
    {"10.2.0",                  "'10.2.0' is not an IPv4 or IPv6 address"},
    {"010.0.0.1",               "'010.0.0.1' is not an IPv4 or IPv6 address"},
    {"10.0.0.256",              "'10.0.0.256' is not an IPv4 or IPv6 address"},
    {"fe80::1%eth0",            "'fe80::1%eth0' is not an IPv4 or IPv6 address"},
    {"\"10.0.0.1\\x00\"",       "'10.0.0.1\\x00' is not an IPv4 or IPv6 address"},
    {"Any",                     "'Any' is not an IPv4 or IPv6 address"},
    {"\"\\x1b[2J\"",            "'\\x1b[2J' is not an IPv4 or IPv6 address"},
    {"10.0.0.1-",               "'' is not an IPv4 or IPv6 address"},
    {"10.0.0.1-10.0.0.2-3",     "'10.0.0.2-3' is not an IPv4 or IPv6 address"},
    {"10.0.0.1-::1",            "'10.0.0.1-::1' is not a range: one end is IPv4, the other IPv6"},
    {"10.0.0.9-10.0.0.1",       "'10.0.0.9-10.0.0.1' is not a range: the last address comes before the first"},
    {"10.0.0.1-9.0.0.1",        "'10.0.0.1-9.0.0.1' is not a range: the last address comes before the first"},
    {"10.2/16",                 "'10.2' is not an IPv4 or IPv6 address"},
    {"any/16",                  "'any' is not an IPv4 or IPv6 address"},
    {"10.2.0.0/33",             "'10.2.0.0/33' is not a subnet: a prefix of IPv4 has 0 to 32 bits"},
    {"10.2.0.0/-1",             "'10.2.0.0/-1' is not a subnet: a prefix of IPv4 has 0 to 32 bits"},
    {"10.2.0.0/016",            "'10.2.0.0/016' is not a subnet: a prefix of IPv4 has 0 to 32 bits"},
    {"10.2.0.0/",               "'10.2.0.0/' is not a subnet: a prefix of IPv4 has 0 to 32 bits"},
    {"10.2.0.0/x",              "'10.2.0.0/x' is not a subnet: a prefix of IPv4 has 0 to 32 bits"},
    {"::/129",                  "'::/129' is not a subnet: a prefix of IPv6 has 0 to 128 bits"},
    {"::/99999999999",          "'::/99999999999' is not a subnet: a prefix of IPv6 has 0 to 128 bits"},
    {"10.2.0.0/255.255.0",      "'10.2.0.0/255.255.0' is not a subnet: what follows the / is no IPv4 netmask"},
    {"10.2.0.0/ffff::",         "'10.2.0.0/ffff::' is not a subnet: what follows the / is no IPv4 netmask"},
    {"::/255.0.0.0",            "'::/255.0.0.0' is not a subnet: what follows the / is no IPv6 netmask"},
    {"10.2.0.0/255.0.255.0",    "'10.2.0.0/255.0.255.0' is not a subnet: the netmask has holes"},
    {"10.2.0.0/0.0.0.1",        "'10.2.0.0/0.0.0.1' is not a subnet: the netmask has holes"},
    {"10.0.0.1 10.0.0.2",       "'10.0.0.1' is a selector alone: others follow behind a comma, and a range has no blanks in it"},
    {"AF_INET HOST",            "'HOST' is no selectorType (NONE, SINGLE, RANGE, SUBNET_LENGTH, SUBNET_MASK, LOCAL, "
                                "ANY, MCAST)"},
    {"AF_INET ANY addr1=x",     "such a selector is written AF_INET ANY"},
    {"AF_INET SINGLE",          "such a selector is written AF_INET SINGLE addr1=..."},
    {"AF_INET SINGLE 10.0.0.1", "such a selector is written AF_INET SINGLE addr1=..."},
    {"AF_INET SINGLE addr1=a addr2=b", "such a selector is written AF_INET SINGLE addr1=..."},
    {"AF_INET RANGE addr2=a addr1=b",  "such a selector is written AF_INET RANGE addr1=... addr2=..."},
    {"AF_INET SUBNET_MASK addr1=a mask=b", "invalid mask"},
    {"AF_ANY SUBNET_MASK addr1=a mask=::", "invalid address family"},
    {"AF_ANY SUBNET_LENGTH addr1=a length=1", "invalid address family"},
    {"AF_INET SUBNET_LENGTH addr1=a length=2147483648",
                                "'2147483648' is no length (-2147483648 to 2147483647)"},
    {"AF_INET SUBNET_LENGTH addr1=a length=",  "'' is no length (-2147483648 to 2147483647)"},
    {"\"10.0.0.1",              "a quote is not closed"},
};

const Refusal WRONG_PROTOCOLS[] = {
    {"",                        "a selector is missing"},
    {"htp",                     "'htp' is no protocol (0 to 65535, any, icmp, tcp, udp, gre, esp, ah, icmpv6, ospf, "
                                "sctp)"},
    {"65536",                   "'65536' is no protocol (0 to 65535, any, icmp, tcp, udp, gre, esp, ah, icmpv6, ospf, "
                                "sctp)"},
    {"out tcp",                 "'out' is no protocol (0 to 65535, any, icmp, tcp, udp, gre, esp, ah, icmpv6, ospf, "
                                "sctp)"},
    {"tcp/65536",               "'65536' is no port (0 to 65535)"},
    {"tcp/-1",                  "'-1' is no port (0 to 65535)"},
    {"tcp/080",                 "'080' is no port (0 to 65535)"},
    {"tcp/",                    "'' is no port (0 to 65535)"},
    {"tcp/http",                "'http' is no port (0 to 65535)"},
    {"tcp/80-90",               "'80-90' is no port: a selector has one, or any, but no range"},
    {"tcp from 1024-65535",     "'1024-65535' is no port: a selector has one, or any, but no range"},
    {"tcp/80-http",             "'80-http' is no port (0 to 65535)"},
    {"tcp from x",              "'x' is no port (0 to 65535)"},
    {"tcp from",                "something is missing behind 'from'"},
    {"tcp named",               "something is missing behind 'named'"},
    {"tcp from 1 from 2",       "from stands twice in a selector"},
    {"tcp named a named b",     "named stands twice in a selector"},
    {"tcp mirrored mirrored",   "mirrored stands twice in a selector"},
    {"tcp in out",              "a direction stands twice in a selector"},
    {"tcp 443",                 "'443' is none of in, out, in/out, from, mirrored and named, which follow a protocol"},
    {"any/53",                  "a port needs a protocol: any has none"},
    {"any from 53",             "a port needs a protocol: any has none"},
};
// clang-format on

template <class Read>
std::string refusalOf(const Read& read, const char* text)
{
    try {
        return "read as " + textOf(read(text));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status, ExitStatus::TROUBLE);
        return failure.what();
    } catch (const std::invalid_argument& error) { // the library's own
        return error.what();
    }
}

TEST(HostSelectorText, IsRefusedWithTheReason)
{
    for (const Refusal& refusal : WRONG_HOSTS)
        EXPECT_EQ(refusalOf(readHostSelector, refusal.text), refusal.message) << refusal.text;
}

TEST(ProtocolSelectorText, IsRefusedWithTheReason)
{
    for (const Refusal& refusal : WRONG_PROTOCOLS)
        EXPECT_EQ(refusalOf(readProtocolSelector, refusal.text), refusal.message) << refusal.text;
}

TEST(HostSelectorText, OfEverySelectorThatADocumentCanHoldGivesItBack)
{
    std::mt19937 random(2);
    for (int i = 0; i < 20000; ++i) {
        const HostSelector selector = randomHostSelector(random);
        const std::string  text     = textOf(selector);
        ASSERT_EQ(fieldsOf(readHostSelector(text)), fieldsOf(selector)) << text;
    }
}

TEST(ProtocolSelectorText, OfEverySelectorThatADocumentCanHoldGivesItBack)
{
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i) {
        const ProtocolSelector selector = randomProtocolSelector(random);
        const std::string      text     = textOf(selector);
        ASSERT_EQ(fieldsOf(readProtocolSelector(text)), fieldsOf(selector)) << text;
    }
}

} // namespace
