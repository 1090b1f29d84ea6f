#include "platform/std/memory_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace sched {

std::size_t MemoryPageSize() {
  static const std::size_t size = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  return size;
}

void ReleaseMemoryPages(void* from, std::size_t size) {
  const std::size_t page = MemoryPageSize();
  const auto start = reinterpret_cast<std::uintptr_t>(from);
  const std::uintptr_t first = (start + page - 1) / page * page;
  const std::uintptr_t last = (start + size) / page * page;
  // Only a hint: memory that stays in place is merely not given back.
  if (first < last) ::madvise(reinterpret_cast<void*>(first), last - first, MADV_DONTNEED);
}

}  // namespace sched
