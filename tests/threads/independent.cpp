// The library shares nothing between objects but what never changes. So threads may work at the same time, each on its
// own objects, and may look at the same ones as long as nobody changes them.

#include "properties/random_model.h"
#include "support/contents.h"
#include "support/streams.h"
#include "support/xml.h"
#include "threads/at_once.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

using testing::Each;

const std::size_t THREADS = 8;

std::string sample()
{
    std::ifstream      file(std::string(EXAMPLES_DIR) + "/configs/branch-office.xml");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(Threads, LoadAndStoreIndependently)
{
    const std::string text = sample();
    EXPECT_THAT(atOnce<std::string>(THREADS,
                                    [&](std::size_t thread) {
                                        if (thread % 2 == 0)
                                            return rewritten<IPsecConfig>(text);
                                        ByteBuffer   bytes(text);
                                        std::istream in(&bytes);
                                        XMLParser    parser(in);
                                        return written(IPsecConfig::importXML(parser));
                                    }),
                Each(text));
}

TEST(Threads, EditIndependently)
{
    const auto edited = [](std::size_t) {
        IPsecConfig config = read<IPsecConfig>(sample());
        config.hostGroups.add(config.hostGroups.begin()->second);
        for (auto& [id, action] : config.actions)
            if (!action.isBuiltIn())
                action.nameSet("another name");
        config.policies.remove(1);
        return contentsOf(config);
    };
    EXPECT_THAT(atOnce<std::string>(THREADS, edited), Each(edited(0)));
}

TEST(Threads, MakeObjectsOfAllKindsIndependently)
{
    const auto made = [](std::size_t) {
        std::string text;
        for (std::uint64_t seed = 1; seed <= 20; ++seed)
            text += written(RandomModel(seed).config());
        return text;
    };
    EXPECT_THAT(atOnce<std::string>(THREADS, made), Each(made(0)));
}

// A store changes nothing, although IPsecConfig::exportXML() is not const.
TEST(Threads, LookAtTheSameConfigurationTogether)
{
    IPsecConfig       config = read<IPsecConfig>(sample());
    const std::string text = written(config), contents = contentsOf(config);
    EXPECT_THAT(atOnce<std::string>(THREADS,
                                    [&](std::size_t) {
                                        const IPsecConfig copy = config;
                                        std::string       seen = contentsOf(config) + written(config);
                                        for (const auto& [id, group] : copy.hostGroups)
                                            seen +=
                                                config.hostGroups.at(id).selectors == group.selectors ? "" : "differs";
                                        return seen;
                                    }),
                Each(contents + text));
}

TEST(Threads, AreRefusedIndependently)
{
    const auto refused = [](std::size_t) {
        return refusalOf<IPsecConfig>("<ipsec><hostGroups><hostGroupEntry><id>1</id><hostGroup><name>x</descr>") +
               errorOf<std::invalid_argument>([] { Direction::to_int("SIDEWAYS"); }) +
               errorOf<invalid_operation>([] { IPsecAction().keyMgrGet(); });
    };
    EXPECT_THAT(atOnce<std::string>(THREADS, refused), Each(refused(0)));
}

TEST(Threads, LookUpNamesTogether)
{
    const auto numbers = [](std::size_t) {
        std::ostringstream out;
        out << SPDAction::to_int("TUNNEL") << ESPTransform::to_int("esp_null_md5") << AddressType::to_int("MCAST")
            << HOST_INET6 << ESP_3DES_SHA1 << KEYLIFETIME_KB;
        return out.str();
    };
    EXPECT_THAT(atOnce<std::string>(THREADS, numbers), Each("4177AF_INET6esp_3des_shaKB"));
}

} // namespace
} // namespace ipsecimpl
