// What edit commands do to actions: the fields, the library's rules, and what must not get lost.

#include "editing.h"

#include "support/documents.h"

#include <ostream>
#include <string>
#include <vector>

using ipsecimpl::changed;
using ipsecimpl::leaf;

namespace {

std::string withActions(const std::string& actions)
{
    return document("", "", actions);
}

/// Type 5, state 6, change count 40, built-in numbers 0.
std::string numbered(const std::string& mode)
{
    std::string text = action("t", "d", mode);
    text             = changed(text, "<type>0", "<type>5");
    text             = changed(text, "<state>0", "<state>6");
    return changed(text, "<changeCount>0", "<changeCount>40");
}

const std::string PROPOSAL = "<proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>MINS"
                             "</keyLifetimeUnits><transform>IKE_DES_MD5</transform></proposal>";
const std::string PHASE_2  = "<ikePhase2><dhGroup>G1</dhGroup><keyLifetime>2</keyLifetime><keyLifetimeUnits>KB"
                             "</keyLifetimeUnits><saProposal><protocol>AH</protocol><encryption>0</encryption><hash>3"
                             "</hash></saProposal></ikePhase2>";
const std::string PSK =
    "<ikePhase1><authType>PSK</authType><presharedKey>psk</presharedKey>" + PROPOSAL + "</ikePhase1>" + PHASE_2;
const std::string RSA = "<ikePhase1><authType>RSA</authType><localCert>me</localCert><peerTrust>ca</peerTrust>" +
                        PROPOSAL + "</ikePhase1>" + PHASE_2;
const std::string TUNNEL = "<spdAction>TUNNEL</spdAction><tunnelEndpoint>192.0.2.1</tunnelEndpoint>";

std::string pskTunnel()
{
    return withActions(entry("action", 1, numbered(TUNNEL + "<keyMgr>IKE</keyMgr>" + PSK)));
}

std::string rsaTunnel()
{
    return withActions(entry("action", 1, numbered(TUNNEL + "<keyMgr>IKE</keyMgr>" + RSA)));
}

std::string manualTransport()
{
    return withActions(
        entry("action", 1,
              numbered("<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH"
                       "</protocol><encryption>2</encryption><hash>3</hash></saProposal><inboundESPSPI>256"
                       "</inboundESPSPI><outboundESPSPI>257</outboundESPSPI><inboundAHSPI>258</inboundAHSPI>"
                       "<outboundAHSPI>259</outboundAHSPI><inboundDecrKey>a1</inboundDecrKey><outboundEncrKey>a2"
                       "</outboundEncrKey><outboundEncrIV>a3</outboundEncrIV><inboundAuthKey>a4</inboundAuthKey>"
                       "<outboundAuthKey>a5</outboundAuthKey></manualKey>")));
}

struct FieldChange {
    std::string (*before)();
    const char* field; ///< FIELD=VALUE
    const char* from;  ///< in the document
    const char* to;
    bool        counts; ///< the library counts it as a change
};

std::ostream& operator<<(std::ostream& out, const FieldChange& change)
{
    return out << change.field;
}

class EditAction : public Editing {};
class EditActionField : public Editing, public testing::WithParamInterface<FieldChange> {};

TEST_P(EditActionField, ChangesThatAloneAndCountsAsTheLibraryDoes)
{
    const FieldChange& row   = GetParam();
    std::string        after = changed(row.before(), row.from, row.to);
    if (row.counts)
        after = changed(after, "<changeCount>40", "<changeCount>41");
    expectEdited(row.before(), {std::string("set action 1 ") + row.field}, after);
}

// clang-format off
const FieldChange FIELD_CHANGES[] = {
    {pskTunnel, "name=\"x y\"",             "<name>t",                "<name>x y",               false},
    {pskTunnel, "descr=",                   "<descr>d",               "<descr>",                 false},
    {pskTunnel, "type=-2147483648",         "<type>5",                "<type>-2147483648",       false},
    {pskTunnel, "state=2147483647",         "<state>6",               "<state>2147483647",       false},
    {pskTunnel, "tunnelEndpoint=::2",       "<tunnelEndpoint>192.0.2.1", "<tunnelEndpoint>::2",  true},
    {pskTunnel, "ikePhase1/presharedKey=k", "<presharedKey>psk",      "<presharedKey>k",         true},
    {pskTunnel, "ikePhase1/proposal/dhGroup=NONE", "<dhGroup>G2",     "<dhGroup>NONE",           true},
    {pskTunnel, "ikePhase1/proposal/keyLifetime=5", "<keyLifetime>1", "<keyLifetime>5",          true},
    {pskTunnel, "ikePhase1/proposal/keyLifetimeUnits=SECS", "MINS",   "SECS",                    true},
    {pskTunnel, "ikePhase1/proposal/transform=IKE_AES_MD5,IKE_NONE,IKE_AES_MD5", "<transform>IKE_DES_MD5</transform>",
     "<transform>IKE_AES_MD5</transform><transform>IKE_NONE</transform><transform>IKE_AES_MD5</transform>", true},
    {pskTunnel, "ikePhase1/proposal/transform=", "<transform>IKE_DES_MD5</transform>", "",       true},
    {pskTunnel, "ikePhase2/dhGroup=G14",    "<dhGroup>G1<",           "<dhGroup>G14<",           true},
    {pskTunnel, "ikePhase2/keyLifetime=4294967295", "<keyLifetime>2", "<keyLifetime>4294967295", true},
    {pskTunnel, "ikePhase2/keyLifetimeUnits=HRS", "KB",               "HRS",                     true},
    {pskTunnel, "ikePhase2/saProposal=NONE:0:0",
     "<protocol>AH</protocol><encryption>0</encryption><hash>3</hash>",
     "<protocol>NONE</protocol><encryption>0</encryption><hash>0</hash>", true},
    {rsaTunnel, "ikePhase1/localCert=\"a b\"", "<localCert>me",       "<localCert>a b",          true},
    {rsaTunnel, "ikePhase1/peerTrust=",     "<peerTrust>ca",          "<peerTrust>",             true},
    {manualTransport, "manualKey/saProposal/encryption=4294967295", "<encryption>2", "<encryption>4294967295", true},
    {manualTransport, "manualKey/saProposal/hash=2", "<hash>3",       "<hash>2",                 true},
    {manualTransport, "manualKey/inboundESPSPI=0xabCDef01", "<inboundESPSPI>256", "<inboundESPSPI>2882400001", true},
    {manualTransport, "manualKey/outboundESPSPI=4294967295", "<outboundESPSPI>257", "<outboundESPSPI>4294967295",  true},
    {manualTransport, "manualKey/inboundAHSPI=0x100", "<inboundAHSPI>258", "<inboundAHSPI>256",        true},
    {manualTransport, "manualKey/outboundAHSPI=260", "<outboundAHSPI>259", "<outboundAHSPI>260",     true},
    {manualTransport, "manualKey/inboundDecrKey=b", "<inboundDecrKey>a1", "<inboundDecrKey>b",   true},
    {manualTransport, "manualKey/outboundEncrKey=b", "<outboundEncrKey>a2", "<outboundEncrKey>b", true},
    {manualTransport, "manualKey/outboundEncrIV=b", "<outboundEncrIV>a3", "<outboundEncrIV>b",   true},
    {manualTransport, "manualKey/inboundAuthKey=b", "<inboundAuthKey>a4", "<inboundAuthKey>b",   true},
    {manualTransport, "manualKey/outboundAuthKey=b", "<outboundAuthKey>a5", "<outboundAuthKey>b", true},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Edit, EditActionField, testing::ValuesIn(FIELD_CHANGES));

TEST_F(EditAction, SetsFieldsInTheOrderOfTheDocumentWhateverTheirOwn)
{
    const std::string before = withActions(entry("action", 1, numbered("<spdAction>BYPASS</spdAction>")));
    expectEdited(before,
                 {"set action 1 ikePhase2/saProposal=AH:0:3 ikePhase2/keyLifetimeUnits=KB ikePhase2/keyLifetime=2 "
                  "ikePhase2/dhGroup=G1 ikePhase1/proposal/transform=IKE_DES_MD5 ikePhase1/peerTrust=ca "
                  "ikePhase1/localCert=me ikePhase1/proposal/keyLifetimeUnits=MINS ikePhase1/proposal/keyLifetime=1 "
                  "ikePhase1/proposal/dhGroup=G2 ikePhase1/authType=RSA keyMgr=IKE tunnelEndpoint=192.0.2.1 "
                  "spdAction=TUNNEL"},
                 changed(rsaTunnel(), "<changeCount>40", "<changeCount>45"));
}

TEST_F(EditAction, SetsAManualKeyWithWhatDecidesOnItsParts)
{
    std::string after = changed(manualTransport(), "ESP+AH", "ESP");
    after             = changed(after, "<hash>3", "<hash>1");
    after             = changed(after, "<inboundESPSPI>256", "<inboundESPSPI>300");
    after             = changed(after, "<inboundAHSPI>258</inboundAHSPI><outboundAHSPI>259</outboundAHSPI>", "");
    after             = changed(after, "<inboundAuthKey>a4</inboundAuthKey><outboundAuthKey>a5</outboundAuthKey>", "");
    expectEdited(manualTransport(),
                 {"set action 1 manualKey/inboundESPSPI=300 manualKey/saProposal/protocol=ESP "
                  "manualKey/saProposal/hash=1"},
                 changed(after, "<changeCount>40", "<changeCount>41"),
                 "action 1 't' loses manualKey/inboundAHSPI, manualKey/outboundAHSPI, manualKey/inboundAuthKey, "
                 "manualKey/outboundAuthKey, for which it has no place any more\n");
}

TEST_F(EditAction, CountsModeAndKeyManagerOnlyWhenTheyChange)
{
    hold(pskTunnel());
    EXPECT_EQ(edit({"set action 1 spdAction=TUNNEL keyMgr=IKE tunnelEndpoint=192.0.2.1"}),
              printed("nothing changed\n"));
    expectEdited(pskTunnel(), {"set action 1 ikePhase2/dhGroup=G1 ikePhase2/keyLifetime=2"},
                 changed(pskTunnel(), "<changeCount>40", "<changeCount>41"));
}

TEST_F(EditAction, TellsWhatItLosesWithItsMode)
{
    expectEdited(pskTunnel(), {"set action 1 spdAction=BYPASS"},
                 changed(withActions(entry("action", 1, numbered("<spdAction>BYPASS</spdAction>"))), "<changeCount>40",
                         "<changeCount>41"),
                 "action 1 't' loses tunnelEndpoint, keyMgr, ikePhase1, ikePhase2, for which it has no place any "
                 "more\n");
    hold(pskTunnel());
    EXPECT_EQ(edit({"set action 1 ikePhase1/authType=RSA"}),
              printed("action 1 't' loses ikePhase1/presharedKey, for which it has no place any more\n"));
    hold(pskTunnel());
    EXPECT_EQ(edit({"set action 1 keyMgr=NONE"}),
              printed("action 1 't' loses ikePhase1, ikePhase2, for which it has no place any more\n"));
}

TEST_F(EditAction, KeepsWhatItsModeLeftOutUntilTheEnd)
{
    expectEdited(pskTunnel(), {"set action 1 spdAction=BYPASS", "set action 1 spdAction=TUNNEL"},
                 changed(pskTunnel(), "<changeCount>40", "<changeCount>42"));
}

TEST_F(EditAction, KeepsWhatWasNotTouchedWhileOthersComeAndGo)
{
    const std::string kept = entry("action", 2, numbered(TUNNEL + "<keyMgr>IKE</keyMgr>" + PSK));
    const std::string made = entry("action", 1, action("x", "", "<spdAction>NONE</spdAction>"));
    const std::string gone = entry("action", 3, action("y", "", "<spdAction>NONE</spdAction>"));
    expectEdited(withActions(kept + gone), {"add action x id=1", "remove action y", "set actions nextID=3"},
                 withActions(made + kept));
}

TEST_F(EditAction, IsReplacedButForTypeAndStateAndCountsOn)
{
    const std::string lost = "action 1 'new' loses tunnelEndpoint, keyMgr, ikePhase1, ikePhase2, for which it has no "
                             "place any more\n";
    const std::string after =
        withActions(entry("action", 1,
                          "<action><changeCount>41</changeCount><name>new</name><builtinName>3</builtinName><descr>n"
                          "</descr><builtinDescr>4</builtinDescr><type>5</type><state>6</state><spdAction>DISCARD"
                          "</spdAction></action>"));
    const std::string replace = "replace action 1 new spdAction=DISCARD builtinName=3 builtinDescr=4 descr=n";
    expectEdited(pskTunnel(), {replace}, after, lost);
    expectEdited(pskTunnel(), {replace + " state=0 type=-1"},
                 changed(changed(after, "<state>6", "<state>0"), "<type>5", "<type>-1"), lost);
}

TEST_F(EditAction, CountsOnWithWhatMakesItsReplacement)
{
    const std::string fields = "tunnelEndpoint=192.0.2.1 keyMgr=IKE ikePhase1/presharedKey=psk "
                               "ikePhase1/proposal/dhGroup=G2 ikePhase1/proposal/keyLifetime=1 "
                               "ikePhase1/proposal/keyLifetimeUnits=MINS ikePhase1/proposal/transform=IKE_DES_MD5 "
                               "ikePhase2/dhGroup=G1 ikePhase2/keyLifetime=2 ikePhase2/keyLifetimeUnits=KB "
                               "ikePhase2/saProposal=AH:0:3";
    expectEdited(pskTunnel(), {"replace action t t descr=d spdAction=TUNNEL " + fields},
                 changed(pskTunnel(), "<changeCount>40", "<changeCount>44"));
}

TEST_F(EditAction, CounterWrapsAsTheLibrarysDoes)
{
    const std::string last = changed(pskTunnel(), "<changeCount>40", "<changeCount>2147483647");
    expectEdited(last, {"set action 1 ikePhase2/dhGroup=G1"},
                 changed(pskTunnel(), "<changeCount>40", "<changeCount>-2147483648"));
    expectEdited(withActions(entry("action", 1,
                                   changed(action("a", "", "<spdAction>NONE</spdAction>"), "<changeCount>0",
                                           "<changeCount>2147483647"))),
                 {"replace action a b"},
                 withActions(entry("action", 1,
                                   changed(action("b", "", "<spdAction>NONE</spdAction>"), "<changeCount>0",
                                           "<changeCount>-2147483648"))));
}

std::string builtIn()
{
    return withActions(entry(
        "action", 1, changed(numbered(TUNNEL + "<keyMgr>IKE</keyMgr>" + PSK), "<builtinName>0", "<builtinName>9")));
}

TEST_F(EditAction, ThatIsBuiltInStillHasItsKeysChanged)
{
    expectEdited(
        builtIn(), {"set action 1 tunnelEndpoint=::2 ikePhase1/presharedKey=new type=1"},
        changed(changed(changed(changed(builtIn(), "192.0.2.1", "::2"), ">psk<", ">new<"), "<type>5", "<type>1"),
                "<changeCount>40", "<changeCount>42"));
}

struct LibrarysRefusal {
    std::string (*before)();
    const char* field;
    const char* message;
};

// clang-format off
const LibrarysRefusal LIBRARYS_REFUSALS[] = {
    {builtIn,   "name=x",           "cannot change name of a built-in object"},
    {builtIn,   "descr=x",          "cannot change description of a built-in object"},
    {builtIn,   "spdAction=BYPASS", "cannot change spd action for a built-in object"},
    {builtIn,   "keyMgr=MKM",       "cannot change key manager for a built-in object"},
    {manualTransport, "tunnelEndpoint=::1", "tunnelEndpoint is only defined for IPSEC-TUNNEL"},
    {manualTransport, "ikePhase1/presharedKey=x", "ikePhase1 is only defined for IPSEC-IKE"},
    {manualTransport, "ikePhase2/dhGroup=G1", "ikePhase2 is only defined for IPSEC-IKE"},
    {manualTransport, "spdAction=BYPASS keyMgr=IKE",
                                    "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL"},
    {manualTransport, "spdAction=BYPASS manualKey/inboundAuthKey=x",
                                    "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL"},
    {pskTunnel, "manualKey/saProposal/hash=3", "manualKey is only defined for IPSEC-MKM"},
    {pskTunnel, "ikePhase1/localCert=x", "localCert is only valid for IKE_AUTH_RSA"},
    {pskTunnel, "ikePhase1/peerTrust=x", "peerTrust is only valid for IKE_AUTH_RSA"},
    {rsaTunnel, "ikePhase1/presharedKey=x", "presharedKey is only valid for IKE_AUTH_PSK"},
    {rsaTunnel, "ikePhase1/presharedKey=@none", "presharedKey is only valid for IKE_AUTH_PSK"},
};
// clang-format on

TEST_F(EditAction, ShowsWhatTheLibraryRefusesInItsWords)
{
    for (const LibrarysRefusal& row : LIBRARYS_REFUSALS)
        expectRefused(row.before(), {std::string("set action 1 ") + row.field}, row.message);
    expectRefused(document(), {"add action x tunnelEndpoint=::1"}, "tunnelEndpoint is only defined for IPSEC-TUNNEL");
    expectRefused(document(), {"add action x keyMgr=IKE"},
                  "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL");
}

TEST_F(EditAction, RefusesPartsOfAManualKeyThatTheDocumentWouldNotHold)
{
    const std::string only = ": a document holds it only ";
    const struct {
        const char* fields;
        std::string message;
    } rows[] = {
        {"manualKey/saProposal/protocol=AH manualKey/inboundESPSPI=1",
         "manualKey/inboundESPSPI" + only + "for ESP and ESP+AH"},
        {"manualKey/saProposal/protocol=NONE manualKey/outboundESPSPI=1",
         "manualKey/outboundESPSPI" + only + "for ESP and ESP+AH"},
        {"manualKey/saProposal/protocol=ESP manualKey/inboundAHSPI=1",
         "manualKey/inboundAHSPI" + only + "for AH and ESP+AH"},
        {"manualKey/saProposal/protocol=ESP manualKey/outboundAHSPI=1",
         "manualKey/outboundAHSPI" + only + "for AH and ESP+AH"},
        {"manualKey/saProposal/encryption=1 manualKey/inboundDecrKey=b",
         "manualKey/inboundDecrKey" + only + "where the encryption is above 1"},
        {"manualKey/saProposal/encryption=0 manualKey/outboundEncrIV=@none",
         "manualKey/outboundEncrIV" + only + "where the encryption is above 1"},
        {"manualKey/saProposal/hash=1 manualKey/outboundAuthKey=b",
         "manualKey/outboundAuthKey" + only + "where the hash is above 1"},
    };
    for (const auto& row : rows)
        expectRefused(manualTransport(), {std::string("set action 1 ") + row.fields}, row.message);
}

} // namespace
