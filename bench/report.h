#ifndef IPSECIMPL_BENCH_REPORT_H
#define IPSECIMPL_BENCH_REPORT_H

#include <string>

namespace bench {

// Rows of one Markdown table, | what | measured | goal | |, on the standard output. Several programs fill the table, so
// scripts/bench writes its head.

/// A row with a goal: the value should not be greater.
void printGoal(const std::string& what, double measured, double atMost);

/// A row without a goal.
void printValue(const std::string& what, double measured);

/// A row for what could not be measured, and why.
void printMissing(const std::string& what, const std::string& why);

} // namespace bench

#endif
