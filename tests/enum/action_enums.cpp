#include "enum/table.h"
#include "support/xml.h"

#include <stdexcept>

namespace ipsecimpl {

// clang-format off
TEST(SPDAction, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__SPDActionNum__, 5);
    expectTable<__SPDActionNum__, &__SPDActionNames__>({
        {"NONE",      &SPD_NONE},
        {"BYPASS",    &SPD_BYPASS},
        {"DISCARD",   &SPD_DISCARD},
        {"TRANSPORT", &SPD_TRANSPORT},
        {"TUNNEL",    &SPD_TUNNEL},
    });
}

TEST(IPsecKeyMgr, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__IPsecKeyMgrNum__, 3);
    expectTable<__IPsecKeyMgrNum__, &__IPsecKeyMgrNames__>({
        {"NONE", &KEYMGR_NONE},
        {"MKM",  &KEYMGR_MKM},
        {"IKE",  &KEYMGR_IKE},
    });
}

TEST(IPsecProtocol, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__IPsecProtocolNum__, 4);
    expectTable<__IPsecProtocolNum__, &__IPsecProtocolNames__>({
        {"NONE",   &IPSEC_NONE},
        {"AH",     &IPSEC_AH},
        {"ESP",    &IPSEC_ESP},
        {"ESP+AH", &IPSEC_ESP_AH},
    });
}

TEST(AHTransform, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__AHTransformNum__, 4);
    expectTable<__AHTransformNum__, &__AHTransformNames__>({
        {"ah_none",         &AH_NONE},
        {"ah_sha",          &AH_SHA1},
        {"ah_md5",          &AH_MD5},
        {"ah_aes-xcbc-mac", &AH_AESXCBCMAC},
    });
}

TEST(ESPTransform, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__ESPTransformNum__, 19);
    expectTable<__ESPTransformNum__, &__ESPTransformNames__>({
        {"esp_none",                 &ESP_NONE},
        {"esp_aes-cbc_sha",          &ESP_AESCBC_SHA1},
        {"esp_aes-cbc_md5",          &ESP_AESCBC_MD5},
        {"esp_aes-cbc_aes-xcbc-mac", &ESP_AESCBC_AESXCBCMAC},
        {"esp_aes-cbc_none",         &ESP_AESCBC_NONE},
        {"esp_3des_sha",             &ESP_3DES_SHA1},
        {"esp_3des_md5",             &ESP_3DES_MD5},
        {"esp_3des_aes-xcbc-mac",    &ESP_3DES_AESXCBCMAC},
        {"esp_3des_none",            &ESP_3DES_NONE},
        {"esp_des_sha",              &ESP_DES_SHA1},
        {"esp_des_md5",              &ESP_DES_MD5},
        {"esp_des_aes-xcbc-mac",     &ESP_DES_AESXCBCMAC},
        {"esp_des_none",             &ESP_DES_NONE},
        {"esp_aes-ctr_sha",          &ESP_AESCTR_SHA1},
        {"esp_aes-ctr_md5",          &ESP_AESCTR_MD5},
        {"esp_aes-ctr_aes-xcbc-mac", &ESP_AESCTR_AESXCBCMAC},
        {"esp_null_sha",             &ESP_NULL_SHA1},
        {"esp_null_md5",             &ESP_NULL_MD5},
        {"esp_null_aes-xcbc-mac",    &ESP_NULL_AESXCBCMAC},
    });
}

TEST(IKEAuthType, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__IKEAuthTypeNum__, 2);
    expectTable<__IKEAuthTypeNum__, &__IKEAuthTypeNames__>({
        {"PSK", &IKE_AUTH_PSK},
        {"RSA", &IKE_AUTH_RSA},
    });
}

TEST(IKEPhase1Transform, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__IKEPhase1TransformNum__, 7);
    expectTable<__IKEPhase1TransformNum__, &__IKEPhase1TransformNames__>({
        {"IKE_NONE",     &IKE_NONE},
        {"IKE_AES_SHA",  &IKE_AESCBC_SHA1},
        {"IKE_AES_MD5",  &IKE_AESCBC_MD5},
        {"IKE_3DES_SHA", &IKE_3DES_SHA1},
        {"IKE_3DES_MD5", &IKE_3DES_MD5},
        {"IKE_DES_SHA",  &IKE_DES_SHA1},
        {"IKE_DES_MD5",  &IKE_DES_MD5},
    });
}

TEST(DHGroup, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__DHGroupNum__, 4);
    expectTable<__DHGroupNum__, &__DHGroupNames__>({
        {"NONE", &DH_GROUP_NONE},
        {"G1",   &DH_GROUP_1},
        {"G2",   &DH_GROUP_2},
        {"G14",  &DH_GROUP_14},
    });
}

TEST(KeyLifetimeUnits, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__KeyLifetimeUnitsNum__, 4);
    expectTable<__KeyLifetimeUnitsNum__, &__KeyLifetimeUnitsNames__>({
        {"SECS", &KEYLIFETIME_SECS},
        {"KB",   &KEYLIFETIME_KB},
        {"MINS", &KEYLIFETIME_MINS},
        {"HRS",  &KEYLIFETIME_HRS},
    });
}
// clang-format on

TEST(ESPTransform, HasNoneIntegrityForThreeCiphersOnly)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { ESPTransform::to_int("esp_aes-ctr_none"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { ESPTransform::to_int("esp_null_none"); }), "to_int");
}

TEST(IKEPhase1Transform, IsNotLookedUpByTheConstantsName)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { IKEPhase1Transform::to_int("IKE_AESCBC_SHA1"); }), "to_int");
}

TEST(IPsecKeyMgr, DoesNotKnowTheWordsOfTheTransforms)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { IPsecKeyMgr::to_int("IKE_NONE"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { IKEPhase1Transform::to_int("IKE"); }), "to_int");
}

} // namespace ipsecimpl
