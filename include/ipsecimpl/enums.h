#ifndef IPSECIMPL_ENUMS_H
#define IPSECIMPL_ENUMS_H

/// \file
/// The enumerations of the configuration: small numbers whose names are the words of the XML document.
///
/// For each enumeration X there are its count `__XNum__`, its names `__XNames__` in value order, the type `X`, and one
/// constant for each value. The words differ on purpose from the constants' identifiers, and only within one
/// enumeration are they unique. Names are case-sensitive.
///
/// The constants are initialised at compile time: they hold their values also while other units' static objects are
/// being constructed.

#include <ipsecimpl/export.h>

#include <ostream>
#include <stdexcept>
#include <string>

namespace ipsecimpl {

/// A number from 0 to `Num - 1` that knows its name: `Names` is the address of a table of `Num` texts, that of 0 first.
///
/// A plain value of the size of an `int`. There is no default value: each is made from a number or copied.
template <int Num, auto Names>
class IPSECIMPL_API Enum {
  public:
    /// Throws `std::invalid_argument` "check_range" unless 0 <= v < Num.
    constexpr Enum(int v)
        : value_(v)
    {
        if (v < 0 || v >= Num)
            throw std::invalid_argument("check_range");
    }

    constexpr Enum(const Enum&) noexcept            = default;
    constexpr Enum& operator=(const Enum&) noexcept = default;
    ~Enum()                                         = default; // trivial, so that no constant is destroyed at exit

    /// The number, for tables and `switch`. There is no implicit conversion.
    constexpr int valueGet() const noexcept { return value_; }

    /// The number of the value called `name`, compared byte for byte. Throws `std::invalid_argument` "to_int" if no
    /// value is.
    static int to_int(const std::string& name);

    friend constexpr bool operator==(const Enum& a, const Enum& b) noexcept { return a.value_ == b.value_; }
    friend constexpr bool operator!=(const Enum& a, const Enum& b) noexcept { return a.value_ != b.value_; }
    friend constexpr bool operator<(const Enum& a, const Enum& b) noexcept { return a.value_ < b.value_; }

  private:
    int value_;
};

template <int Num, auto Names>
int Enum<Num, Names>::to_int(const std::string& name)
{
    for (int i = 0; i < Num; ++i)
        if (name == (*Names)[i])
            return i;
    throw std::invalid_argument("to_int");
}

/// Writes the name and nothing else, as the stream writes any text.
template <typename CharT, typename Traits, int Num, auto Names>
std::basic_ostream<CharT, Traits>& operator<<(std::basic_ostream<CharT, Traits>& os, const Enum<Num, Names>& e)
{
    return os << (*Names)[e.valueGet()];
}

#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier"
#endif

/// \name SPDAction
/// @{
inline constexpr IPSECIMPL_API int __SPDActionNum__ = 5;
extern IPSECIMPL_API const char* const __SPDActionNames__[__SPDActionNum__];
/// What happens to traffic that a policy matches.
using SPDAction = Enum<__SPDActionNum__, &__SPDActionNames__>;
extern template IPSECIMPL_API int Enum<__SPDActionNum__, &__SPDActionNames__>::to_int(const std::string&);
extern IPSECIMPL_API const SPDAction SPD_NONE;      ///< "NONE"
extern IPSECIMPL_API const SPDAction SPD_BYPASS;    ///< "BYPASS"
extern IPSECIMPL_API const SPDAction SPD_DISCARD;   ///< "DISCARD"
extern IPSECIMPL_API const SPDAction SPD_TRANSPORT; ///< "TRANSPORT"
extern IPSECIMPL_API const SPDAction SPD_TUNNEL;    ///< "TUNNEL"
/// @}

/// \name IPsecKeyMgr
/// @{
inline constexpr IPSECIMPL_API int __IPsecKeyMgrNum__ = 3;
extern IPSECIMPL_API const char* const __IPsecKeyMgrNames__[__IPsecKeyMgrNum__];
/// Where the keys of a transport or tunnel action come from.
using IPsecKeyMgr = Enum<__IPsecKeyMgrNum__, &__IPsecKeyMgrNames__>;
extern template IPSECIMPL_API int Enum<__IPsecKeyMgrNum__, &__IPsecKeyMgrNames__>::to_int(const std::string&);
extern IPSECIMPL_API const IPsecKeyMgr KEYMGR_NONE; ///< "NONE"
extern IPSECIMPL_API const IPsecKeyMgr KEYMGR_MKM;  ///< "MKM"
extern IPSECIMPL_API const IPsecKeyMgr KEYMGR_IKE;  ///< "IKE"
/// @}

/// \name IPsecProtocol
/// @{
inline constexpr IPSECIMPL_API int __IPsecProtocolNum__ = 4;
extern IPSECIMPL_API const char* const __IPsecProtocolNames__[__IPsecProtocolNum__];
/// The security protocol of an SA proposal.
using IPsecProtocol = Enum<__IPsecProtocolNum__, &__IPsecProtocolNames__>;
extern template IPSECIMPL_API int Enum<__IPsecProtocolNum__, &__IPsecProtocolNames__>::to_int(const std::string&);
extern IPSECIMPL_API const IPsecProtocol IPSEC_NONE;   ///< "NONE"
extern IPSECIMPL_API const IPsecProtocol IPSEC_AH;     ///< "AH"
extern IPSECIMPL_API const IPsecProtocol IPSEC_ESP;    ///< "ESP"
extern IPSECIMPL_API const IPsecProtocol IPSEC_ESP_AH; ///< "ESP+AH"
/// @}

/// \name AHTransform
/// @{
inline constexpr IPSECIMPL_API int __AHTransformNum__ = 4;
extern IPSECIMPL_API const char* const __AHTransformNames__[__AHTransformNum__];
/// Authentication transforms of AH.
using AHTransform = Enum<__AHTransformNum__, &__AHTransformNames__>;
extern template IPSECIMPL_API int Enum<__AHTransformNum__, &__AHTransformNames__>::to_int(const std::string&);
extern IPSECIMPL_API const AHTransform AH_NONE;       ///< "ah_none"
extern IPSECIMPL_API const AHTransform AH_SHA1;       ///< "ah_sha"
extern IPSECIMPL_API const AHTransform AH_MD5;        ///< "ah_md5"
extern IPSECIMPL_API const AHTransform AH_AESXCBCMAC; ///< "ah_aes-xcbc-mac"
/// @}

/// \name ESPTransform
/// @{
inline constexpr IPSECIMPL_API int __ESPTransformNum__ = 19;
extern IPSECIMPL_API const char* const __ESPTransformNames__[__ESPTransformNum__];
/// Encryption and integrity transforms of ESP. There is no "none" integrity for AES-CTR and NULL encryption.
using ESPTransform = Enum<__ESPTransformNum__, &__ESPTransformNames__>;
extern template IPSECIMPL_API int Enum<__ESPTransformNum__, &__ESPTransformNames__>::to_int(const std::string&);
extern IPSECIMPL_API const ESPTransform ESP_NONE;              ///< "esp_none"
extern IPSECIMPL_API const ESPTransform ESP_AESCBC_SHA1;       ///< "esp_aes-cbc_sha"
extern IPSECIMPL_API const ESPTransform ESP_AESCBC_MD5;        ///< "esp_aes-cbc_md5"
extern IPSECIMPL_API const ESPTransform ESP_AESCBC_AESXCBCMAC; ///< "esp_aes-cbc_aes-xcbc-mac"
extern IPSECIMPL_API const ESPTransform ESP_AESCBC_NONE;       ///< "esp_aes-cbc_none"
extern IPSECIMPL_API const ESPTransform ESP_3DES_SHA1;         ///< "esp_3des_sha"
extern IPSECIMPL_API const ESPTransform ESP_3DES_MD5;          ///< "esp_3des_md5"
extern IPSECIMPL_API const ESPTransform ESP_3DES_AESXCBCMAC;   ///< "esp_3des_aes-xcbc-mac"
extern IPSECIMPL_API const ESPTransform ESP_3DES_NONE;         ///< "esp_3des_none"
extern IPSECIMPL_API const ESPTransform ESP_DES_SHA1;          ///< "esp_des_sha"
extern IPSECIMPL_API const ESPTransform ESP_DES_MD5;           ///< "esp_des_md5"
extern IPSECIMPL_API const ESPTransform ESP_DES_AESXCBCMAC;    ///< "esp_des_aes-xcbc-mac"
extern IPSECIMPL_API const ESPTransform ESP_DES_NONE;          ///< "esp_des_none"
extern IPSECIMPL_API const ESPTransform ESP_AESCTR_SHA1;       ///< "esp_aes-ctr_sha"
extern IPSECIMPL_API const ESPTransform ESP_AESCTR_MD5;        ///< "esp_aes-ctr_md5"
extern IPSECIMPL_API const ESPTransform ESP_AESCTR_AESXCBCMAC; ///< "esp_aes-ctr_aes-xcbc-mac"
extern IPSECIMPL_API const ESPTransform ESP_NULL_SHA1;         ///< "esp_null_sha"
extern IPSECIMPL_API const ESPTransform ESP_NULL_MD5;          ///< "esp_null_md5"
extern IPSECIMPL_API const ESPTransform ESP_NULL_AESXCBCMAC;   ///< "esp_null_aes-xcbc-mac"
/// @}

/// \name IKEAuthType
/// @{
inline constexpr IPSECIMPL_API int __IKEAuthTypeNum__ = 2;
extern IPSECIMPL_API const char* const __IKEAuthTypeNames__[__IKEAuthTypeNum__];
/// How the peers of a key exchange prove who they are.
using IKEAuthType = Enum<__IKEAuthTypeNum__, &__IKEAuthTypeNames__>;
extern template IPSECIMPL_API int Enum<__IKEAuthTypeNum__, &__IKEAuthTypeNames__>::to_int(const std::string&);
extern IPSECIMPL_API const IKEAuthType IKE_AUTH_PSK; ///< "PSK"
extern IPSECIMPL_API const IKEAuthType IKE_AUTH_RSA; ///< "RSA"
/// @}

/// \name IKEPhase1Transform
/// @{
inline constexpr IPSECIMPL_API int __IKEPhase1TransformNum__ = 7;
extern IPSECIMPL_API const char* const __IKEPhase1TransformNames__[__IKEPhase1TransformNum__];
/// Encryption and hash of IKE phase 1.
using IKEPhase1Transform = Enum<__IKEPhase1TransformNum__, &__IKEPhase1TransformNames__>;
extern template IPSECIMPL_API int
Enum<__IKEPhase1TransformNum__, &__IKEPhase1TransformNames__>::to_int(const std::string&);
extern IPSECIMPL_API const IKEPhase1Transform IKE_NONE;        ///< "IKE_NONE"
extern IPSECIMPL_API const IKEPhase1Transform IKE_AESCBC_SHA1; ///< "IKE_AES_SHA"
extern IPSECIMPL_API const IKEPhase1Transform IKE_AESCBC_MD5;  ///< "IKE_AES_MD5"
extern IPSECIMPL_API const IKEPhase1Transform IKE_3DES_SHA1;   ///< "IKE_3DES_SHA"
extern IPSECIMPL_API const IKEPhase1Transform IKE_3DES_MD5;    ///< "IKE_3DES_MD5"
extern IPSECIMPL_API const IKEPhase1Transform IKE_DES_SHA1;    ///< "IKE_DES_SHA"
extern IPSECIMPL_API const IKEPhase1Transform IKE_DES_MD5;     ///< "IKE_DES_MD5"
/// @}

/// \name DHGroup
/// @{
inline constexpr IPSECIMPL_API int __DHGroupNum__ = 4;
extern IPSECIMPL_API const char* const __DHGroupNames__[__DHGroupNum__];
/// The Diffie-Hellman group of a key exchange: 768 (1), 1024 (2) or 2048 bits (14).
using DHGroup = Enum<__DHGroupNum__, &__DHGroupNames__>;
extern template IPSECIMPL_API int Enum<__DHGroupNum__, &__DHGroupNames__>::to_int(const std::string&);
extern IPSECIMPL_API const DHGroup DH_GROUP_NONE; ///< "NONE"
extern IPSECIMPL_API const DHGroup DH_GROUP_1;    ///< "G1"
extern IPSECIMPL_API const DHGroup DH_GROUP_2;    ///< "G2"
extern IPSECIMPL_API const DHGroup DH_GROUP_14;   ///< "G14"
/// @}

/// \name KeyLifetimeUnits
/// @{
inline constexpr IPSECIMPL_API int __KeyLifetimeUnitsNum__ = 4;
extern IPSECIMPL_API const char* const __KeyLifetimeUnitsNames__[__KeyLifetimeUnitsNum__];
/// What a key lifetime counts: time, or kilobytes of traffic.
using KeyLifetimeUnits = Enum<__KeyLifetimeUnitsNum__, &__KeyLifetimeUnitsNames__>;
extern template IPSECIMPL_API int Enum<__KeyLifetimeUnitsNum__, &__KeyLifetimeUnitsNames__>::to_int(const std::string&);
extern IPSECIMPL_API const KeyLifetimeUnits KEYLIFETIME_SECS; ///< "SECS"
extern IPSECIMPL_API const KeyLifetimeUnits KEYLIFETIME_KB;   ///< "KB"
extern IPSECIMPL_API const KeyLifetimeUnits KEYLIFETIME_MINS; ///< "MINS"
extern IPSECIMPL_API const KeyLifetimeUnits KEYLIFETIME_HRS;  ///< "HRS"
/// @}

/// \name AddressFamily
/// @{
inline constexpr IPSECIMPL_API int __AddressFamilyNum__ = 3;
extern IPSECIMPL_API const char* const __AddressFamilyNames__[__AddressFamilyNum__];
/// The address family of a host selector. Not to be confused with the socket header's AF_ numbers.
using AddressFamily = Enum<__AddressFamilyNum__, &__AddressFamilyNames__>;
extern template IPSECIMPL_API int Enum<__AddressFamilyNum__, &__AddressFamilyNames__>::to_int(const std::string&);
extern IPSECIMPL_API const AddressFamily HOST_INET;    ///< "AF_INET"
extern IPSECIMPL_API const AddressFamily HOST_INET6;   ///< "AF_INET6"
extern IPSECIMPL_API const AddressFamily HOST_INETANY; ///< "AF_ANY"
/// @}

/// \name AddressType
/// @{
inline constexpr IPSECIMPL_API int __AddressTypeNum__ = 8;
extern IPSECIMPL_API const char* const __AddressTypeNames__[__AddressTypeNum__];
/// In which way a host selector names its hosts.
using AddressType = Enum<__AddressTypeNum__, &__AddressTypeNames__>;
extern template IPSECIMPL_API int Enum<__AddressTypeNum__, &__AddressTypeNames__>::to_int(const std::string&);
extern IPSECIMPL_API const AddressType HOST_NONE;          ///< "NONE"
extern IPSECIMPL_API const AddressType HOST_SINGLE;        ///< "SINGLE"
extern IPSECIMPL_API const AddressType HOST_RANGE;         ///< "RANGE"
extern IPSECIMPL_API const AddressType HOST_SUBNET_LENGTH; ///< "SUBNET_LENGTH"
extern IPSECIMPL_API const AddressType HOST_SUBNET_MASK;   ///< "SUBNET_MASK"
extern IPSECIMPL_API const AddressType HOST_LOCAL;         ///< "LOCAL"
extern IPSECIMPL_API const AddressType HOST_ANY;           ///< "ANY"
extern IPSECIMPL_API const AddressType HOST_MCAST;         ///< "MCAST"
/// @}

/// \name Direction
/// @{
inline constexpr IPSECIMPL_API int __DirectionNum__ = 3;
extern IPSECIMPL_API const char* const __DirectionNames__[__DirectionNum__];
/// The direction of the traffic that a protocol selector names.
using Direction = Enum<__DirectionNum__, &__DirectionNames__>;
extern template IPSECIMPL_API int Enum<__DirectionNum__, &__DirectionNames__>::to_int(const std::string&);
extern IPSECIMPL_API const Direction PROTO_IN;    ///< "IN"
extern IPSECIMPL_API const Direction PROTO_OUT;   ///< "OUT"
extern IPSECIMPL_API const Direction PROTO_INOUT; ///< "INOUT"
/// @}

#ifdef __clang__
#pragma clang diagnostic pop
#endif

} // namespace ipsecimpl

#endif
