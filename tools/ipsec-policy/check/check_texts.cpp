#include "checks.h"
#include "stored_text.h"

using namespace ipsecimpl;

namespace {

const Rule MARKUP = {"markup-in-text", Level::ERROR, "A text holds '<', with which it cannot be stored",
                     "Nothing can be escaped in this format. Such a text loads from a value attribute\n"
                     "alone; once stored in the written form, the document would not load any more,\n"
                     "or as another. So this program stores no configuration that holds one.\n"
                     "Write the text without '<'.",
                     ""};

const Rule OUTER_WHITE_SPACE = {"outer-white-space", Level::ERROR,
                                "A text begins or ends with white space, which is lost when it is stored",
                                "The reader skips white space at both ends of a text, unless it stands in a\n"
                                "value attribute. In the written form there are no attributes, so such a text\n"
                                "would not come back as it was, and a key would be another key. So this program\n"
                                "stores no configuration that holds one.\n"
                                "Write the text without white space at its ends.",
                                ""};

const Rule UNNAMED = {"unnamed-selector", Level::ERROR, "A protocol selector has no name, so it cannot be stored",
                      "A selector may be written without its <name>. But it is stored with an empty\n"
                      "one, and that the reader refuses: the stored document would not load any more.\n"
                      "So this program stores no configuration that holds one.\n"
                      "Give the selector a name.",
                      ""};

void checkText(Kind kind, unsigned int id, const FieldPath& field, const std::string& text, Findings& findings)
{
    if (holdsMarkup(text))
        report(findings, MARKUP, kind, id, field,
               "The text holds '<': once stored, the document would not load as it is. Write it without.");
    if (hasOuterWhiteSpace(text))
        report(findings, OUTER_WHITE_SPACE, kind, id, field,
               "The text has white space at an end, which is lost when it is stored. Write it without.");
}

void checkSelector(unsigned int id, std::size_t number, const HostSelector& selector, Findings& findings)
{
    const auto check = [&](const char* field, const std::string& text) {
        checkText(Kind::HOST_GROUP, id, {"selectors", number, field}, text, findings);
    };
    const AddressType& type = selector.selectorType;
    if (type == HOST_SINGLE || type == HOST_RANGE || type == HOST_SUBNET_LENGTH || type == HOST_SUBNET_MASK)
        check("addr1", selector.addr1);
    if (type == HOST_RANGE)
        check("addr2", selector.addr2);
    if (type == HOST_SUBNET_MASK)
        check("mask", selector.addr2);
}

void checkSelector(unsigned int id, std::size_t number, const ProtocolSelector& selector, Findings& findings)
{
    const FieldPath field = {"selectors", number, "name"};
    if (isBlank(selector.name))
        report(findings, UNNAMED, Kind::PROTOCOL_GROUP, id, field,
               "The selector has no name: once stored, the document would not load any more. Give it one.");
    else
        checkText(Kind::PROTOCOL_GROUP, id, field, selector.name, findings);
}

template <class Group>
void checkGroup(Kind kind, const Entry<Group>& entry, Findings& findings)
{
    checkText(kind, entry.id, {"name"}, entry.object->name, findings);
    checkText(kind, entry.id, {"descr"}, entry.object->descr, findings);
    std::size_t number = 0;
    for (const auto& selector : entry.object->selectors)
        checkSelector(entry.id, ++number, selector, findings);
}

/// The texts of an action.
class ActionTexts {
  public:
    ActionTexts(const Entry<IPsecAction>& entry, Findings& findings)
        : id_(entry.id)
        , action_(*entry.object)
        , findings_(findings)
    {
    }

    void check()
    {
        checkField("name", action_.nameGet());
        checkField("descr", action_.descrGet());
        if (action_.spdActionGet() == SPD_TUNNEL)
            checkField("tunnelEndpoint", action_.tunnelEndpointGet());
        if (const IKEPhase1* const phase1 = phase1Of(action_))
            checkCredentials(*phase1);
        if (const MKM* const key = manualKeyOf(action_))
            checkKeys(*key);
    }

  private:
    void checkField(const char* field, const std::string& text)
    {
        checkText(Kind::ACTION, id_, {field}, text, findings_);
    }

    void checkCredentials(const IKEPhase1& phase1)
    {
        if (phase1.authTypeGet() == IKE_AUTH_PSK) {
            checkField("ikePhase1/presharedKey", phase1.presharedKeyGet());
        } else {
            checkField("ikePhase1/localCert", phase1.localCertGet());
            checkField("ikePhase1/peerTrust", phase1.peerTrustGet());
        }
    }

    void checkKeys(const MKM& key)
    {
        if (hasEncryption(key.saProposal)) {
            checkField("manualKey/inboundDecrKey", key.inboundDecrKey);
            checkField("manualKey/outboundEncrKey", key.outboundEncrKey);
            checkField("manualKey/outboundEncrIV", key.outboundEncrIV);
        }
        if (hasHash(key.saProposal)) {
            checkField("manualKey/inboundAuthKey", key.inboundAuthKey);
            checkField("manualKey/outboundAuthKey", key.outboundAuthKey);
        }
    }

    unsigned int       id_;
    const IPsecAction& action_;
    Findings&          findings_;
};

} // namespace

Rules textRules()
{
    return {&MARKUP, &OUTER_WHITE_SPACE, &UNNAMED};
}

void checkTexts(const Entry<HostGroup>& entry, Findings& findings)
{
    checkGroup(Kind::HOST_GROUP, entry, findings);
}

void checkTexts(const Entry<ProtocolGroup>& entry, Findings& findings)
{
    checkGroup(Kind::PROTOCOL_GROUP, entry, findings);
}

void checkTexts(const Entry<IPsecAction>& entry, Findings& findings)
{
    ActionTexts(entry, findings).check();
}
