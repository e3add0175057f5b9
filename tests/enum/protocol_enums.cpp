#include "enum/table.h"
#include "support/xml.h"

#include <stdexcept>

namespace ipsecimpl {

// clang-format off
TEST(Direction, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__DirectionNum__, 3);
    expectTable<__DirectionNum__, &__DirectionNames__>({
        {"IN",    &PROTO_IN},
        {"OUT",   &PROTO_OUT},
        {"INOUT", &PROTO_INOUT},
    });
}
// clang-format on

TEST(Direction, IsLookedUpByteForByte)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Direction::to_int("inout"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Direction::to_int(" IN"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Direction::to_int("IN "); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Direction::to_int("INO"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Direction::to_int(std::string("IN\0", 3)); }), "to_int");
}

} // namespace ipsecimpl
