#pragma once

#include <cstddef>

namespace tarvo {

/// Tells the system that a block of memory of megabytes will be filled as a whole, so that it may
/// provide it in large pages: filling a database of 11 MB page by page takes longer than reading
/// it. Only a hint; call it before the block is first written to.
void HintLargeMemory(void* block, std::size_t bytes);

}  // namespace tarvo
