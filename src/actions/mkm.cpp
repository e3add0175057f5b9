#include <ipsecimpl/actions.h>

#include "xml/element.h"

namespace ipsecimpl {
namespace {

// Which children a <manualKey> has: the same four conditions for the reader and the writer.

bool hasESP(const IPsecProposal& sa) { return sa.protocol == IPSEC_ESP || sa.protocol == IPSEC_ESP_AH; }

bool hasAH(const IPsecProposal& sa) { return sa.protocol == IPSEC_AH || sa.protocol == IPSEC_ESP_AH; }

bool hasEncryptionKeys(const IPsecProposal& sa) { return sa.encryption > 1; }

bool hasAuthenticationKeys(const IPsecProposal& sa) { return sa.hash > 1; }

} // namespace

MKM::MKM()
    : saProposal(IPSEC_NONE, 0, 0)
{
}

MKM& MKM::operator=(const MKM& other)
{
    if (this != &other)
        *this = MKM(other);
    return *this;
}

MKM& MKM::operator=(MKM&& other) noexcept
{
    saProposal    = other.saProposal;
    inboundESPSPI = other.inboundESPSPI;
    inboundAHSPI  = other.inboundAHSPI;
    inboundDecrKey.swap(other.inboundDecrKey);
    inboundAuthKey.swap(other.inboundAuthKey);
    outboundESPSPI = other.outboundESPSPI;
    outboundAHSPI  = other.outboundAHSPI;
    outboundEncrKey.swap(other.outboundEncrKey);
    outboundAuthKey.swap(other.outboundAuthKey);
    outboundEncrIV.swap(other.outboundEncrIV);
    return *this;
}

MKM MKM::importXML(XMLParser& parser)
{
    MKM key;
    openElement(parser, "manualKey");
    key.saProposal = IPsecProposal::importXML(parser);
    if (hasESP(key.saProposal)) {
        key.inboundESPSPI   = readUnsigned(parser, "inboundESPSPI");
        key.outboundESPSPI  = readUnsigned(parser, "outboundESPSPI");
    }
    if (hasAH(key.saProposal)) {
        key.inboundAHSPI    = readUnsigned(parser, "inboundAHSPI");
        key.outboundAHSPI   = readUnsigned(parser, "outboundAHSPI");
    }
    if (hasEncryptionKeys(key.saProposal)) {
        key.inboundDecrKey  = readText(parser, "inboundDecrKey");
        key.outboundEncrKey = readText(parser, "outboundEncrKey");
        key.outboundEncrIV  = readText(parser, "outboundEncrIV");
    }
    if (hasAuthenticationKeys(key.saProposal)) {
        key.inboundAuthKey  = readText(parser, "inboundAuthKey");
        key.outboundAuthKey = readText(parser, "outboundAuthKey");
    }
    parser.parse_end_tag();
    return key;
}

std::ostream& MKM::exportXML(std::ostream& out) const
{
    openTag(out, "manualKey");
    saProposal.exportXML(out);
    if (hasESP(saProposal)) {
        writeLeaf(out, "inboundESPSPI",   inboundESPSPI);
        writeLeaf(out, "outboundESPSPI",  outboundESPSPI);
    }
    if (hasAH(saProposal)) {
        writeLeaf(out, "inboundAHSPI",    inboundAHSPI);
        writeLeaf(out, "outboundAHSPI",   outboundAHSPI);
    }
    if (hasEncryptionKeys(saProposal)) {
        writeLeaf(out, "inboundDecrKey",  inboundDecrKey);
        writeLeaf(out, "outboundEncrKey", outboundEncrKey);
        writeLeaf(out, "outboundEncrIV",  outboundEncrIV);
    }
    if (hasAuthenticationKeys(saProposal)) {
        writeLeaf(out, "inboundAuthKey",  inboundAuthKey);
        writeLeaf(out, "outboundAuthKey", outboundAuthKey);
    }
    return closeTag(out, "manualKey");
}

} // namespace ipsecimpl
