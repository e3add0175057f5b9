#include "golden.h"

#include "program.h"

#include <gtest/gtest.h>

#include <cstdlib>

void expectGolden(const std::string& name, const std::string& output)
{
    const std::string file = GOLDEN_DIR "/" + name;
    if (std::getenv("IPSEC_POLICY_UPDATE_GOLDEN") != nullptr) {
        writeFile(file, output);
        ADD_FAILURE() << name << " was written";
    }
    EXPECT_EQ(output, contentOf(file));
}
