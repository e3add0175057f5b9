#include "support/golden.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

void expectGolden(const std::string& name, const std::string& output)
{
    const std::string file = GOLDEN_DIR "/" + name;
    if (std::getenv("IPSEC_POLICY_UPDATE_GOLDEN") != nullptr) {
        std::ofstream out(file, std::ios::binary);
        out << output << std::flush;
        ADD_FAILURE() << file << (out ? " was written" : " cannot be written");
    }
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file << " cannot be read";
    EXPECT_EQ(output, std::string(std::istreambuf_iterator<char>(in), {}));
}
