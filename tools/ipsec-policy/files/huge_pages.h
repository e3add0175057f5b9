#ifndef IPSEC_POLICY_HUGE_PAGES_H
#define IPSEC_POLICY_HUGE_PAGES_H

/// \file
/// Memory in large pieces, if the system has them to give: to get a large document's memory in small ones takes longer
/// than to read it, and the processor longer to find its way in it. Where there are none, nothing changes.

#include <cstddef>
#include <string>

/// For a text that is about to be filled.
void useHugePages(std::string& text);

/// For what is about to be allocated in small blocks, up to about `size` bytes.
void useHugePagesForHeap(std::size_t size);

#endif
