#pragma once

#include <cstddef>

namespace sched {

// The size of a page of memory.
std::size_t MemoryPageSize();

// Gives the whole pages within [from, from + size) back to the system; they read as zeros
// afterwards. For memory whose content is no longer needed, so that a large buffer does not
// stay in memory while it is worked through.
void ReleaseMemoryPages(void* from, std::size_t size);

}  // namespace sched
