#include "address.h"
#include "checks.h"

using namespace ipsecimpl;

namespace {

const Rule NO_ADDRESS = {"not-an-address", Level::ERROR, "A text is no address of its family",
                         "The library keeps addresses as texts and does not look into them. What reads\n"
                         "them later may refuse the whole configuration, or take a text that it cannot\n"
                         "read for 0.0.0.0. IPv4 addresses are four decimal numbers without leading\n"
                         "zeros; names, zones (%eth0) and prefixes (/24) are no part of an address.\n"
                         "Correct the text, or the family.",
                         ""};

const Rule NO_FAMILY = {"any-family-with-address", Level::ERROR, "An address has AF_ANY for its family",
                        "AF_ANY is for what has no address: any host, local subnets, multicast. An\n"
                        "address is of one family, and without it the text cannot be read.\n"
                        "Write AF_INET for IPv4, AF_INET6 for IPv6.",
                        ""};

const Rule BACK_TO_FRONT = {"range-back-to-front", Level::ERROR, "A range ends before it begins",
                            "Such a range names no host.\n"
                            "Swap its two addresses, or correct them.",
                            ""};

const Rule PREFIX_LENGTH = {"prefix-length", Level::ERROR, "A prefix is longer than an address, or negative",
                            "IPv4 addresses have 32 bits, IPv6 addresses 128. A length beyond is taken for\n"
                            "all bits, so that the subnet would be a single host.\n"
                            "Write a length in that range.",
                            ""};

const Rule MASK_HOLES = {"mask-with-holes", Level::ERROR, "A mask has zero bits before one bits",
                         "A mask begins with one bits and ends with zero bits. What is behind the first\n"
                         "gap is not looked at when the prefix length is made of it: 255.0.255.0 is taken\n"
                         "for 8 bits, and the policy is for far more hosts than meant.\n"
                         "Write a mask such as 255.255.255.0, or a prefix length instead.",
                         ""};

const Rule NO_HOSTS = {"no-host-selector", Level::WARNING, "A host selector of type NONE names no host",
                       "It adds nothing to its group. A group of nothing else makes policies that apply\n"
                       "to nothing.\n"
                       "Name hosts in it, or remove it.",
                       ""};

/// One selector with addresses.
class SelectorCheck {
  public:
    SelectorCheck(unsigned int group, std::size_t number, const HostSelector& selector, Findings& findings)
        : group_(group)
        , number_(number)
        , selector_(selector)
        , findings_(findings)
    {
    }

    void check();

  private:
    void                   reportField(const Rule& rule, const char* field, std::string message);
    std::optional<Address> checkAddress(const char* field, const std::string& text);
    void                   checkWithoutFamily(const char* field, const std::string& text);
    void                   checkRange();
    void                   checkLength();
    void                   checkMask();
    void                   checkHostBits(const Address& address, int length);

    unsigned int        group_;
    std::size_t         number_;
    const HostSelector& selector_;
    Findings&           findings_;
};

void SelectorCheck::reportField(const Rule& rule, const char* field, std::string message)
{
    report(findings_, rule, Kind::HOST_GROUP, group_, {"selectors", number_, field}, std::move(message));
}

const char* exampleOf(const AddressFamily& family)
{
    return family == HOST_INET ? "192.0.2.1" : "2001:db8::1";
}

std::optional<Address> SelectorCheck::checkAddress(const char* field, const std::string& text)
{
    const AddressFamily&         family  = selector_.family;
    const std::optional<Address> address = addressIn(text, family);
    if (address)
        return address;

    if (const std::optional<Address> other = addressIn(text))
        reportField(NO_ADDRESS, field,
                    inQuotes(text) + " is an " + nameOf(other->family) + " address, but the family is " +
                        (family == HOST_INET ? "AF_INET" : "AF_INET6") + ". Correct one of the two.");
    else if (text.empty())
        reportField(NO_ADDRESS, field,
                    std::string("There is no address. Write an ") + nameOf(family) + " address, such as " +
                        exampleOf(family) + ".");
    else
        reportField(NO_ADDRESS, field,
                    inQuotes(text) + " is no " + nameOf(family) + " address. Write one, such as " + exampleOf(family) +
                        ".");
    return std::nullopt;
}

void SelectorCheck::checkWithoutFamily(const char* field, const std::string& text)
{
    if (!addressIn(text))
        reportField(NO_ADDRESS, field, inQuotes(text) + " is no address. Write one, such as 192.0.2.1 or 2001:db8::1.");
}

void SelectorCheck::checkRange()
{
    const std::optional<Address> first = checkAddress("addr1", selector_.addr1);
    const std::optional<Address> last  = checkAddress("addr2", selector_.addr2);
    if (first && last && last->bytes < first->bytes)
        reportField(BACK_TO_FRONT, "addr2",
                    selector_.addr2 + " is before the range's first address, " + selector_.addr1 + ". Swap the two.");
}

void SelectorCheck::checkHostBits(const Address& address, int length)
{
    const Address network = masked(address, maskOf(address.family, length));
    if (network.bytes != address.bytes)
        reportField(HOST_BITS_SET, "addr1",
                    joined({selector_.addr1, " has bits beyond the subnet's prefix of ", std::to_string(length),
                            ". Write ", textOf(network), ", or a longer prefix."}));
}

void SelectorCheck::checkLength()
{
    const std::optional<Address> address = checkAddress("addr1", selector_.addr1);
    const int                    bits    = bitsOf(selector_.family);
    if (selector_.length < 0 || selector_.length > bits)
        reportField(PREFIX_LENGTH, "length",
                    std::to_string(selector_.length) + " is no prefix length for " + nameOf(selector_.family) +
                        ". Write a number from 0 to " + std::to_string(bits) + ".");
    else if (address)
        checkHostBits(*address, selector_.length);
}

void SelectorCheck::checkMask()
{
    const std::optional<Address> address = checkAddress("addr1", selector_.addr1);
    const std::optional<Address> mask    = checkAddress("mask", selector_.addr2);
    if (!mask)
        return;
    const std::optional<int> length = lengthOf(*mask);
    if (!length && lengthOf(inverse(*mask)))
        reportField(MASK_HOLES, "mask",
                    selector_.addr2 + " is a mask turned round. Write " + textOf(inverse(*mask)) + ".");
    else if (!length)
        reportField(MASK_HOLES, "mask",
                    selector_.addr2 +
                        " has zero bits before one bits. Write a mask that begins with all its one bits.");
    else if (address)
        checkHostBits(*address, *length);
}

void SelectorCheck::check()
{
    const AddressType& type = selector_.selectorType;
    if (type == HOST_NONE) {
        reportField(NO_HOSTS, "selectorType", "NONE names no host. Name some, or remove the selector.");
    } else if (type == HOST_LOCAL || type == HOST_ANY || type == HOST_MCAST) {
        return;
    } else if (selector_.family == HOST_INETANY) {
        reportField(NO_FAMILY, "family", "AF_ANY is no family for an address. Write AF_INET or AF_INET6.");
        checkWithoutFamily("addr1", selector_.addr1);
        if (type == HOST_RANGE)
            checkWithoutFamily("addr2", selector_.addr2);
    } else if (type == HOST_SINGLE) {
        checkAddress("addr1", selector_.addr1);
    } else if (type == HOST_RANGE) {
        checkRange();
    } else if (type == HOST_SUBNET_LENGTH) {
        checkLength();
    } else {
        checkMask();
    }
}

} // namespace

const Rule HOST_BITS_SET = {
    "host-bits-set",
    Level::WARNING,
    "A subnet's address has bits that its prefix leaves to hosts",
    "Either the address is that of a host, or the prefix is shorter than meant. Some\n"
    "systems drop these bits, others refuse the subnet, or match nothing with it.\n"
    "Write the address of the network, or a longer prefix.",
    "",
};

Rules hostSelectorRules()
{
    return {&NO_ADDRESS, &NO_FAMILY, &BACK_TO_FRONT, &PREFIX_LENGTH, &MASK_HOLES, &HOST_BITS_SET, &NO_HOSTS};
}

void checkHostSelectors(const Entry<HostGroup>& entry, Findings& findings)
{
    std::size_t number = 0;
    for (const HostSelector& selector : entry.object->selectors)
        SelectorCheck(entry.id, ++number, selector, findings).check();
}
