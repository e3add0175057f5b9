// Names and constants of the action and keying classes. A row is a value: its word in the document, and under the table
// its constant, in the same order.

#include <ipsecimpl/enums.h>

namespace ipsecimpl {

const char* const __SPDActionNames__[] = {"NONE", "BYPASS", "DISCARD", "TRANSPORT", "TUNNEL"};

constexpr SPDAction SPD_NONE{0};
constexpr SPDAction SPD_BYPASS{1};
constexpr SPDAction SPD_DISCARD{2};
constexpr SPDAction SPD_TRANSPORT{3};
constexpr SPDAction SPD_TUNNEL{4};

template int Enum<__SPDActionNum__, &__SPDActionNames__>::to_int(const std::string&);

const char* const __IPsecKeyMgrNames__[] = {"NONE", "MKM", "IKE"};

constexpr IPsecKeyMgr KEYMGR_NONE{0};
constexpr IPsecKeyMgr KEYMGR_MKM{1};
constexpr IPsecKeyMgr KEYMGR_IKE{2};

template int Enum<__IPsecKeyMgrNum__, &__IPsecKeyMgrNames__>::to_int(const std::string&);

const char* const __IPsecProtocolNames__[] = {"NONE", "AH", "ESP", "ESP+AH"};

constexpr IPsecProtocol IPSEC_NONE{0};
constexpr IPsecProtocol IPSEC_AH{1};
constexpr IPsecProtocol IPSEC_ESP{2};
constexpr IPsecProtocol IPSEC_ESP_AH{3};

template int Enum<__IPsecProtocolNum__, &__IPsecProtocolNames__>::to_int(const std::string&);

const char* const __AHTransformNames__[] = {"ah_none", "ah_sha", "ah_md5", "ah_aes-xcbc-mac"};

constexpr AHTransform AH_NONE{0};
constexpr AHTransform AH_SHA1{1};
constexpr AHTransform AH_MD5{2};
constexpr AHTransform AH_AESXCBCMAC{3};

template int Enum<__AHTransformNum__, &__AHTransformNames__>::to_int(const std::string&);

const char* const __ESPTransformNames__[] = {
    "esp_none",
    "esp_aes-cbc_sha",
    "esp_aes-cbc_md5",
    "esp_aes-cbc_aes-xcbc-mac",
    "esp_aes-cbc_none",
    "esp_3des_sha",
    "esp_3des_md5",
    "esp_3des_aes-xcbc-mac",
    "esp_3des_none",
    "esp_des_sha",
    "esp_des_md5",
    "esp_des_aes-xcbc-mac",
    "esp_des_none",
    "esp_aes-ctr_sha",
    "esp_aes-ctr_md5",
    "esp_aes-ctr_aes-xcbc-mac",
    "esp_null_sha",
    "esp_null_md5",
    "esp_null_aes-xcbc-mac",
};

constexpr ESPTransform ESP_NONE{0};
constexpr ESPTransform ESP_AESCBC_SHA1{1};
constexpr ESPTransform ESP_AESCBC_MD5{2};
constexpr ESPTransform ESP_AESCBC_AESXCBCMAC{3};
constexpr ESPTransform ESP_AESCBC_NONE{4};
constexpr ESPTransform ESP_3DES_SHA1{5};
constexpr ESPTransform ESP_3DES_MD5{6};
constexpr ESPTransform ESP_3DES_AESXCBCMAC{7};
constexpr ESPTransform ESP_3DES_NONE{8};
constexpr ESPTransform ESP_DES_SHA1{9};
constexpr ESPTransform ESP_DES_MD5{10};
constexpr ESPTransform ESP_DES_AESXCBCMAC{11};
constexpr ESPTransform ESP_DES_NONE{12};
constexpr ESPTransform ESP_AESCTR_SHA1{13};
constexpr ESPTransform ESP_AESCTR_MD5{14};
constexpr ESPTransform ESP_AESCTR_AESXCBCMAC{15};
constexpr ESPTransform ESP_NULL_SHA1{16};
constexpr ESPTransform ESP_NULL_MD5{17};
constexpr ESPTransform ESP_NULL_AESXCBCMAC{18};

template int Enum<__ESPTransformNum__, &__ESPTransformNames__>::to_int(const std::string&);

const char* const __IKEAuthTypeNames__[] = {"PSK", "RSA"};

constexpr IKEAuthType IKE_AUTH_PSK{0};
constexpr IKEAuthType IKE_AUTH_RSA{1};

template int Enum<__IKEAuthTypeNum__, &__IKEAuthTypeNames__>::to_int(const std::string&);

const char* const __IKEPhase1TransformNames__[] = {
    "IKE_NONE",
    "IKE_AES_SHA",
    "IKE_AES_MD5",
    "IKE_3DES_SHA",
    "IKE_3DES_MD5",
    "IKE_DES_SHA",
    "IKE_DES_MD5",
};

constexpr IKEPhase1Transform IKE_NONE{0};
constexpr IKEPhase1Transform IKE_AESCBC_SHA1{1};
constexpr IKEPhase1Transform IKE_AESCBC_MD5{2};
constexpr IKEPhase1Transform IKE_3DES_SHA1{3};
constexpr IKEPhase1Transform IKE_3DES_MD5{4};
constexpr IKEPhase1Transform IKE_DES_SHA1{5};
constexpr IKEPhase1Transform IKE_DES_MD5{6};

template int Enum<__IKEPhase1TransformNum__, &__IKEPhase1TransformNames__>::to_int(const std::string&);

const char* const __DHGroupNames__[] = {"NONE", "G1", "G2", "G14"};

constexpr DHGroup DH_GROUP_NONE{0};
constexpr DHGroup DH_GROUP_1{1};
constexpr DHGroup DH_GROUP_2{2};
constexpr DHGroup DH_GROUP_14{3};

template int Enum<__DHGroupNum__, &__DHGroupNames__>::to_int(const std::string&);

const char* const __KeyLifetimeUnitsNames__[] = {"SECS", "KB", "MINS", "HRS"};

constexpr KeyLifetimeUnits KEYLIFETIME_SECS{0};
constexpr KeyLifetimeUnits KEYLIFETIME_KB{1};
constexpr KeyLifetimeUnits KEYLIFETIME_MINS{2};
constexpr KeyLifetimeUnits KEYLIFETIME_HRS{3};

template int Enum<__KeyLifetimeUnitsNum__, &__KeyLifetimeUnitsNames__>::to_int(const std::string&);

namespace {

// The counts are inline constants: only what takes an address makes the library carry them as symbols.
[[gnu::used]] const int* const exportedCounts[] = {
    &__SPDActionNum__,
    &__IPsecKeyMgrNum__,
    &__IPsecProtocolNum__,
    &__AHTransformNum__,
    &__ESPTransformNum__,
    &__IKEAuthTypeNum__,
    &__IKEPhase1TransformNum__,
    &__DHGroupNum__,
    &__KeyLifetimeUnitsNum__,
};

} // namespace

} // namespace ipsecimpl
