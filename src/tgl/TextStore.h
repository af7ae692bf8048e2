#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// Keeps many short texts for as long as it stands, in blocks that never move, so that growing
/// copies nothing.
class TextStore {
 public:
  /// A copy of `text` in the store.
  TextView Keep(TextView text) {
    if (text.size() > left_) {
      left_ = std::max(text.size(), kBlockUnits);
      blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(left_));
      next_ = blocks_.back().get();
    }
    char16_t* const kept = next_;
    text.copy(kept, text.size());
    next_ += text.size();
    left_ -= text.size();
    return {kept, text.size()};
  }

 private:
  static constexpr std::size_t kBlockUnits = 32 * 1024;

  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  char16_t* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace tarvo
