// How much memory the machine has free, for the driver's report.

#pragma once

#include <cstdint>
#include <istream>

// Free main memory plus free swap space in bytes, modulo 2^32; -1 where /proc/meminfo cannot be
// opened. Runs "free > /dev/null" first.
std::int32_t getfreemem();

// The same figure from the text of a memory summary, in either of its layouts: today's, a value a
// line ("MemFree:  123 kB", "SwapFree:  45 kB"), or the older one, a header line and then the rows
// "Mem:" and "Swap:" with the columns total, used, free in bytes, and whatever follows. What is
// missing counts as 0.
std::int32_t freeMemory(std::istream& summary);
