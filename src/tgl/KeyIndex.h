#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarvo {

/// Finds numbers by the hashes of the keys that they stand for; the keys themselves are kept by the
/// owner. A number below 2^32 - 1 stands in it once.
class KeyIndex {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// Makes room for so many numbers in all.
  void Reserve(std::size_t count) {
    if (count * 4 > cells_.size() * 3) Grow(std::bit_ceil(count * 4 / 3 + 1));
  }

  /// The first number with this hash for which `isIt(number)` is true; kNone when there is none.
  template <class IsIt>
  std::uint32_t Find(std::uint32_t hash, IsIt isIt) const {
    if (cells_.empty()) return kNone;
    for (std::size_t at = Home(hash); cells_[at].Number != kNone; at = Next(at)) {
      if (cells_[at].Hash == hash && isIt(cells_[at].Number)) return cells_[at].Number;
    }
    return kNone;
  }

  void Insert(std::uint32_t hash, std::uint32_t number) {
    if ((count_ + 1) * 4 > cells_.size() * 3) Grow(cells_.empty() ? 16 : cells_.size() * 2);
    Put({hash, number});
    ++count_;
  }

  void Erase(std::uint32_t hash, std::uint32_t number) {
    std::size_t gap = Home(hash);
    while (cells_[gap].Number != number) gap = Next(gap);
    // A later cell moves into the gap when its way from home leads over it.
    for (std::size_t at = Next(gap); cells_[at].Number != kNone; at = Next(at)) {
      const std::size_t mask = cells_.size() - 1;
      if (((at - Home(cells_[at].Hash)) & mask) < ((at - gap) & mask)) continue;
      cells_[gap] = cells_[at];
      gap = at;
    }
    cells_[gap] = {};
    --count_;
  }

  void Clear() {
    cells_.clear();
    count_ = 0;
  }

 private:
  struct Cell {
    std::uint32_t Hash = 0;
    std::uint32_t Number = kNone;
  };

  std::size_t Home(std::uint32_t hash) const { return hash & (cells_.size() - 1); }
  std::size_t Next(std::size_t at) const { return (at + 1) & (cells_.size() - 1); }

  void Put(Cell cell) {
    std::size_t at = Home(cell.Hash);
    while (cells_[at].Number != kNone) at = Next(at);
    cells_[at] = cell;
  }

  void Grow(std::size_t size) {
    std::vector<Cell> old(size);
    std::swap(old, cells_);
    for (const Cell& cell : old) {
      if (cell.Number != kNone) Put(cell);
    }
  }

  std::vector<Cell> cells_;  ///< A power of two of them, never all full.
  std::size_t count_ = 0;
};

}  // namespace tarvo
