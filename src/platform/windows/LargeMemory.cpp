#include "platform/LargeMemory.h"

namespace tarvo {

/// Large pages take a right here that users don't have, so the memory stays as it is.
void HintLargeMemory(void*, std::size_t) {}

}  // namespace tarvo
