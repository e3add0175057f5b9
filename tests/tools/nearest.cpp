#include "nearest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Slip {
    const char* word;
    const char* meant; ///< empty if nobody could tell
};

// clang-format off
const Slip SLIPS[] = {
    {"sho",                 "show"},       // a character left out
    {"shows",               "show"},       // one too many
    {"shaw",                "show"},       // another one
    {"fromat",              "format"},     // two exchanged
    {"keys",                "show-keys"},  // a piece
    {"algorithm",           "algorithms"},
    {"al",                  ""},           // too short a piece
    {"sxxw",                ""},           // half of it
    {"frmtt",               "format"},
    {"frm",                 ""},
    {"",                    ""},
    {"xyz",                 ""},
};
// clang-format on

TEST(Nearest, IsWhatTheWordWasProbablyMeantToBe)
{
    for (const Slip& slip : SLIPS)
        EXPECT_EQ(nearest(slip.word, {"show", "format", "show-keys", "algorithms"}), slip.meant) << slip.word;
}

TEST(Nearest, IsTheFirstOfThoseThatAreEquallyNear)
{
    EXPECT_EQ(nearest("file-d", {"file-a", "file-b"}), "file-a");
    EXPECT_EQ(nearest("file-bb", {"file-a", "file-b"}), "file-b");
}

TEST(Nearest, IsNothingForALongTextAndWithoutWords)
{
    EXPECT_EQ(nearest(std::string(1000000, 'x'), {"show"}), "");
    EXPECT_EQ(nearest("show", {}), "");
}

} // namespace
