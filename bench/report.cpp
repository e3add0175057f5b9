#include "report.h"

#include <cstdio>

namespace bench {

void printGoal(const std::string& what, double measured, double atMost)
{
    std::printf("| %s | %.3f | at most %.2f | %s |\n", what.c_str(), measured, atMost,
                measured <= atMost ? "met" : "missed");
}

void printValue(const std::string& what, double measured)
{
    std::printf("| %s | %.3f | | |\n", what.c_str(), measured);
}

void printMissing(const std::string& what, const std::string& why)
{
    std::printf("| %s | %s | | |\n", what.c_str(), why.c_str());
}

} // namespace bench
