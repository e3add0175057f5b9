#ifndef IPSECIMPL_TESTS_SUPPORT_SAMPLES_H
#define IPSECIMPL_TESTS_SUPPORT_SAMPLES_H

/// \file
/// The documents under examples/configs.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {

inline const std::vector<std::string>& sampleNames()
{
    static const std::vector<std::string> names{"home-router", "branch-office", "server-farm"};
    return names;
}

/// The document as it stands in its file.
inline std::string sampleText(const std::string& name)
{
    std::ifstream      in(EXAMPLES_DIR "/configs/" + name + ".xml");
    std::ostringstream text;
    text << in.rdbuf();
    EXPECT_TRUE(in && text) << name << " cannot be read";
    return text.str();
}

} // namespace ipsecimpl

#endif
