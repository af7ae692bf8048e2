#include "platform/LargeMemory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace tarvo {

void HintLargeMemory([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto start = (reinterpret_cast<std::uintptr_t>(block) + page - 1) / page * page;
  const auto end = (reinterpret_cast<std::uintptr_t>(block) + bytes) / page * page;
  if (start < end) madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
#endif
}

}  // namespace tarvo
