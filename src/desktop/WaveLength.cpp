#include "desktop/WaveLength.h"

#include <algorithm>
#include <cstdint>

namespace tarvo {
namespace {

constexpr std::size_t kFileHead = 12;     // "RIFF", length, "WAVE"
constexpr std::size_t kChunkHead = 8;     // Name, length
constexpr std::size_t kRateInFormat = 8;  // Bytes a second, within the chunk "fmt "

std::uint32_t Number(FileTextView bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t byte = 4; byte-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes[at + byte]);
  }
  return number;
}

}  // namespace

std::optional<std::chrono::milliseconds> WaveLength(FileTextView bytes) {
  if (bytes.size() < kFileHead || !bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE") {
    return std::nullopt;
  }
  std::uint64_t rate = 0;
  std::size_t at = kFileHead;
  while (bytes.size() - at >= kChunkHead) {
    const FileTextView name = bytes.substr(at, 4);
    const std::size_t wanted = Number(bytes, at + 4);
    at += kChunkHead;
    const std::size_t size = std::min(wanted, bytes.size() - at);
    if (name == "fmt " && size >= kRateInFormat + 4) rate = Number(bytes, at + kRateInFormat);
    if (name == "data" && rate != 0) return std::chrono::milliseconds(size * 1000ULL / rate);
    const std::size_t padded = size + (size & 1);
    at += std::min(padded, bytes.size() - at);
  }
  return std::nullopt;
}

}  // namespace tarvo
