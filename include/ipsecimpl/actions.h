#ifndef IPSECIMPL_ACTIONS_H
#define IPSECIMPL_ACTIONS_H

/// \file
/// What happens to traffic, and how its keys are made: actions, IKE phases, SA proposals, manual keys.

#include <ipsecimpl/enums.h>
#include <ipsecimpl/export.h>
#include <ipsecimpl/xml.h>

#include <iosfwd>
#include <list>
#include <stdexcept>
#include <string>

namespace ipsecimpl {

/// Thrown where an object's present mode, its built-in status, or a full collection forbids an operation. The object
/// is then as it was.
class IPSECIMPL_API invalid_operation : public std::logic_error {
  public:
    /// what() is `msg`.
    explicit invalid_operation(const std::string& msg);

    invalid_operation(const invalid_operation&)            = default;
    invalid_operation& operator=(const invalid_operation&) = default;
    ~invalid_operation() override;
};

/// One proposal for a security association: a protocol, and the numbers of its algorithms.
///
/// A plain value. The numbers are not checked, and what they stand for is the caller's affair, but for MKM's rule that
/// one greater than 1 needs a key. Only their low 32 bits are meant: what is greater than 4294967295 does not come back
/// from a document.
class IPSECIMPL_API IPsecProposal {
  public:
    /// Stores the arguments.
    IPsecProposal(const IPsecProtocol& protocol, unsigned long encryption, unsigned long hash);

    /// Reads one <saProposal> element. Throws ParseError; then there is no proposal.
    static IPsecProposal importXML(XMLParser& parser);

    /// Writes the <saProposal> element and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

    IPsecProtocol protocol;   ///< NONE, AH, ESP or ESP+AH
    unsigned long encryption; ///< number of the encryption algorithm; 0 and 1 need no key
    unsigned long hash;       ///< number of the hash (authentication) algorithm; 0 and 1 need no key
};

/// The second (quick-mode) phase of key exchange.
///
/// A plain value.
class IPSECIMPL_API IKEPhase2 {
  public:
    /// Stores the arguments; nothing is checked.
    IKEPhase2(const std::list<IPsecProposal>& proposals, const DHGroup& dhGroup, unsigned long keyLifetime,
              const KeyLifetimeUnits& units);

    IKEPhase2(const IKEPhase2&)     = default;
    IKEPhase2(IKEPhase2&&) noexcept = default;
    IKEPhase2& operator=(const IKEPhase2& other); ///< if it throws, the target is as it was
    IKEPhase2& operator=(IKEPhase2&& other) noexcept; ///< `other` stays usable, with any content
    ~IKEPhase2() = default;

    /// Reads one <ikePhase2> element. Throws ParseError; then there is no phase 2.
    static IKEPhase2 importXML(XMLParser& parser);

    /// Writes the <ikePhase2> element and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

    std::list<IPsecProposal> proposals;        ///< in order of preference; may be empty
    DHGroup                  dhGroup;          ///< NONE is no perfect forward secrecy
    unsigned long            keyLifetime;      ///< in `keyLifetimeUnits`, 0 to 4294967295
    KeyLifetimeUnits         keyLifetimeUnits; ///< SECS, KB, MINS or HRS
};

/// What is acceptable in the first phase of key exchange.
///
/// A plain value.
class IPSECIMPL_API IKEPhase1Proposal {
  public:
    /// Stores the arguments; nothing is checked.
    IKEPhase1Proposal(const std::list<IKEPhase1Transform>& transforms, const DHGroup& dhGroup,
                      unsigned long keyLifetime, const KeyLifetimeUnits& units);

    IKEPhase1Proposal(const IKEPhase1Proposal&)     = default;
    IKEPhase1Proposal(IKEPhase1Proposal&&) noexcept = default;
    IKEPhase1Proposal& operator=(const IKEPhase1Proposal& other); ///< if it throws, the target is as it was
    IKEPhase1Proposal& operator=(IKEPhase1Proposal&& other) noexcept; ///< `other` stays usable, with any content
    ~IKEPhase1Proposal() = default;

    /// Reads one <proposal> element. Throws ParseError; then there is no proposal.
    static IKEPhase1Proposal importXML(XMLParser& parser);

    /// Writes the <proposal> element and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

    std::list<IKEPhase1Transform> transforms;       ///< in order of preference; may be empty, may repeat
    DHGroup                       dhGroup;          ///< NONE, G1, G2 or G14
    unsigned long                 keyLifetime;      ///< in `keyLifetimeUnits`, 0 to 4294967295
    KeyLifetimeUnits              keyLifetimeUnits; ///< SECS, KB, MINS or HRS
};

/// The one shared default proposal: no DH group, 28800 seconds, and AES-SHA and 3DES-MD5 appended once more.
///
/// Each call sets the lifetime and appends the two transforms again, so the n-th call finds 2n of them: that is
/// deliberate. Copy the result of the first call. Calls must not race.
IPSECIMPL_API IKEPhase1Proposal& IKEPhase1ProposalDefault();

/// The first (main-mode) phase of key exchange: how the peers authenticate, with which credentials, and the proposal.
///
/// A plain value. All texts are opaque and stored as given. Each belongs to one authentication type: under the other
/// its accessors throw `std::invalid_argument` and change nothing, but the text stays in the object.
class IPSECIMPL_API IKEPhase1 {
  public:
    /// Stores all five as given; the texts are not held against the type.
    IKEPhase1(const IKEAuthType& authType, const std::string& localCert, const std::string& peerTrust,
              const std::string& presharedKey, const IKEPhase1Proposal& proposal);

    IKEPhase1(const IKEPhase1&)     = default;
    IKEPhase1(IKEPhase1&&) noexcept = default;
    IKEPhase1& operator=(const IKEPhase1& other); ///< if it throws, the target is as it was
    IKEPhase1& operator=(IKEPhase1&& other) noexcept; ///< `other` stays usable, with any content
    ~IKEPhase1() = default;

    /// Tells which of the credentials are meant. The reference lives as long as the object.
    const IKEAuthType& authTypeGet() const { return authType_; }

    /// Keeps the three texts, whatever the new type.
    const IKEAuthType& authTypeSet(const IKEAuthType& authType);

    /// \name Credentials
    /// The references live as long as the object.
    /// @{
    const std::string& presharedKeyGet() const;                     ///< only for PSK
    const std::string& presharedKeySet(const std::string& presharedKey); ///< only for PSK
    const std::string& localCertGet() const;                        ///< only for RSA
    const std::string& localCertSet(const std::string& localCert);  ///< only for RSA
    const std::string& peerTrustGet() const;                        ///< only for RSA
    const std::string& peerTrustSet(const std::string& peerTrust);  ///< only for RSA
    /// @}

    /// The reference lives as long as the object.
    const IKEPhase1Proposal& proposalGet() const { return proposal_; }

    /// Stores a copy, which it returns. Any authentication type will do.
    const IKEPhase1Proposal& proposalSet(const IKEPhase1Proposal& proposal);

    /// Reads one <ikePhase1> element. Throws ParseError; then there is no phase 1.
    static IKEPhase1 importXML(XMLParser& parser);

    /// Writes the <ikePhase1> element, with the texts of its authentication type alone, and returns `out`, whose state
    /// is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

  private:
    IKEAuthType       authType_;
    std::string       localCert_;
    std::string       peerTrust_;
    std::string       presharedKey_;
    IKEPhase1Proposal proposal_;
};

/// Manually configured keys.
///
/// A plain value. Keys are opaque texts, neither checked nor converted. `saProposal` decides what the document holds:
/// the ESP SPIs for ESP, the AH SPIs for AH, both for ESP+AH; encryption keys and IV where `encryption` is greater
/// than 1, authentication keys where `hash` is. Fields that it leaves out are neither written nor read.
class IPSECIMPL_API MKM {
  public:
    /// No protocol, all numbers 0, all texts empty.
    MKM();

    MKM(const MKM&)     = default;
    MKM(MKM&&) noexcept = default;
    MKM& operator=(const MKM& other); ///< if it throws, the target is as it was
    MKM& operator=(MKM&& other) noexcept; ///< `other` stays usable, with any content
    ~MKM() = default;

    /// Reads one <manualKey> element. Throws ParseError; then there is no key.
    static MKM importXML(XMLParser& parser);

    /// Writes the <manualKey> element and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

    IPsecProposal saProposal;          ///< protocol and algorithms
    unsigned long inboundESPSPI  = 0;  ///< security parameter index, 0 to 4294967295
    unsigned long inboundAHSPI   = 0;  ///< security parameter index, 0 to 4294967295
    std::string   inboundDecrKey;      ///< decryption key
    std::string   inboundAuthKey;      ///< authentication key
    unsigned long outboundESPSPI = 0;  ///< security parameter index, 0 to 4294967295
    unsigned long outboundAHSPI  = 0;  ///< security parameter index, 0 to 4294967295
    std::string   outboundEncrKey;     ///< encryption key
    std::string   outboundAuthKey;     ///< authentication key
    std::string   outboundEncrIV;      ///< initialisation vector of the encryption
};

/// What happens to traffic that a policy matches: it passes, is dropped, or is protected in transport or tunnel mode
/// with keys from MKM or IKE.
///
/// A value whose setters keep the rules. A forbidden call throws invalid_operation and changes nothing. Switching the
/// SPD action or the key manager drops nothing: the other fields wait until the mode is theirs again. Reading a
/// document bypasses the rules.
///
/// Copies leave out `type` and `state`, deliberately: a copy starts with both 0, and a target of assignment (also from
/// a temporary) keeps its own. Moving an action into a new one carries them, so that a loaded action has what its
/// document says.
///
/// References that getters and setters return live as long as the action.
class IPSECIMPL_API IPsecAction {
  public:
    /// NONE, without texts, numbers and key manager.
    IPsecAction();

    /// The rest is as in a default action: no tunnel end point, default MKM; for IKE a pre-shared key that is empty, no
    /// transforms and proposals, no DH groups, lifetimes of 28800 seconds.
    IPsecAction(const SPDAction& spdAction, const std::string& name, int builtinName, const std::string& descr,
                int builtinDescr, const IPsecKeyMgr& keyMgr);

    IPsecAction(const IPsecAction& other);                ///< `type` and `state` start at 0
    IPsecAction(IPsecAction&& other) noexcept;            ///< carries `type` and `state`
    IPsecAction& operator=(const IPsecAction& other);     ///< `type` and `state` stay; if it throws, all of it does
    IPsecAction& operator=(IPsecAction&& other) noexcept; ///< `type` and `state` stay
    ~IPsecAction();

    /// Decides, with the key manager, which of the guarded getters and setters are allowed.
    const SPDAction& spdActionGet() const { return spdAction_; }

    /// Number of effective changes by setters, of this and earlier programs: it is part of the document. Names and
    /// descriptions do not count; SPD action, key manager and tunnel end point count when they differ from before;
    /// the keying objects count each time. After 2147483647 comes -2147483648.
    int changeCountGet() const { return changeCount_; }

    const std::string& nameGet() const { return name_; }   ///< the action's own name, for display
    const std::string& descrGet() const { return descr_; } ///< the action's own description, for display

    int builtinNameGet() const { return builtinName_; }   ///< number of the built-in name; 0 is none
    int builtinDescrGet() const { return builtinDescr_; } ///< number of the built-in description; 0 is none

    /// \name Numbers that are free for the caller
    /// The library keeps them and gives them no meaning. Setting them is no change and is allowed at all times.
    /// @{
    int typeGet() const { return type_; }                     ///< part of the document; 0 at first
    const int& typeSet(int type) { return type_ = type; }     ///< returns the stored number
    int stateGet() const { return state_; }                   ///< part of the document; 0 at first
    const int& stateSet(int state) { return state_ = state; } ///< returns the stored number
    /// @}

    /// The number of the built-in name, or of the built-in description, is greater than 0. Such an action refuses
    /// changes of name, description, SPD action and key manager, but not of the tunnel end point and the keying.
    bool isBuiltIn() const { return builtinName_ > 0 || builtinDescr_ > 0; }

    /// \name Guarded getters
    /// Each throws invalid_operation unless its condition holds.
    /// @{
    const IPsecKeyMgr& keyMgrGet() const;         ///< the SPD action is TRANSPORT or TUNNEL
    const std::string& tunnelEndpointGet() const; ///< the SPD action is TUNNEL
    const MKM&         manualKeyGet() const;      ///< the key manager is MKM, whatever the SPD action
    const IKEPhase1&   ikePhase1Get() const;      ///< the key manager is IKE, whatever the SPD action
    const IKEPhase2&   ikePhase2Get() const;      ///< the key manager is IKE, whatever the SPD action
    /// @}

    /// \name Setters
    /// Each throws invalid_operation unless its condition holds; then, or if memory runs out, the action is unchanged.
    /// Each returns the stored field.
    /// @{
    const SPDAction&   spdActionSet(const SPDAction& spdAction);             ///< not built-in
    const IPsecKeyMgr& keyMgrSet(const IPsecKeyMgr& keyMgr);                 ///< not built-in; any SPD action
    const std::string& nameSet(const std::string& name);                     ///< not built-in
    const std::string& descrSet(const std::string& descr);                   ///< not built-in
    const std::string& tunnelEndpointSet(const std::string& tunnelEndpoint); ///< the SPD action is TUNNEL
    const MKM&         manualKeySet(const MKM& manualKey);                   ///< the key manager is MKM
    const IKEPhase1&   ikePhase1Set(const IKEPhase1& ikePhase1);             ///< the key manager is IKE
    const IKEPhase2&   ikePhase2Set(const IKEPhase2& ikePhase2);             ///< the key manager is IKE
    /// @}

    /// Reads one <action> element. Throws ParseError; then there is no action.
    static IPsecAction importXML(XMLParser& parser);

    /// Writes the <action> element, with what is in force for its SPD action and key manager alone, and returns `out`,
    /// whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

  private:
    SPDAction   spdAction_;
    int         changeCount_ = 0;
    std::string name_;
    int         builtinName_;
    std::string descr_;
    int         builtinDescr_;
    int         type_  = 0;
    int         state_ = 0;
    std::string tunnelEndpoint_;
    IPsecKeyMgr keyMgr_;
    MKM         manualKey_;
    IKEPhase1   ikePhase1_;
    IKEPhase2   ikePhase2_;
};

/// \name Built-in actions
/// Each function returns its own object, the same one at every call. It is made at the first call, which threads may
/// race for, and destroyed when the program ends. The library never adds it to a configuration.
/// @{
IPSECIMPL_API IPsecAction& ActionDiscard(); ///< "Discard": drops the traffic
IPSECIMPL_API IPsecAction& ActionBypass();  ///< "Bypass": lets the traffic pass
/// @}

} // namespace ipsecimpl

#endif
