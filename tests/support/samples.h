#ifndef IPSECIMPL_TESTS_SUPPORT_SAMPLES_H
#define IPSECIMPL_TESTS_SUPPORT_SAMPLES_H

/// \file
/// The documents under examples/configs.

#include <gtest/gtest.h>

#include <algorithm>
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

/// The name as a test can have it: without hyphens.
inline std::string testName(std::string name)
{
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace ipsecimpl

#endif
