#pragma once

#include <cmath>

#include "text/Text.h"

namespace tarvo::test {

inline FileText LittleEndian(std::uint32_t number, int bytes) {
  FileText text;
  for (; bytes-- > 0; number >>= 8) text.push_back(static_cast<char>(number & 0xFF));
  return text;
}

/// A sine of `hertz` as 16-bit mono at 22050 a second.
inline FileText WaveFile(int milliseconds, double hertz = 440) {
  constexpr int kRate = 22050;
  FileText data;
  for (int at = 0; at < kRate * milliseconds / 1000; ++at) {
    const double wave = std::sin(at * hertz * 2 * 3.14159265358979 / kRate);
    data += LittleEndian(static_cast<std::uint32_t>(static_cast<std::int32_t>(wave * 12000)), 2);
  }
  const auto chunk = [](const char* name, const FileText& body) {
    return name + LittleEndian(static_cast<std::uint32_t>(body.size()), 4) + body;
  };
  const FileText format = LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(kRate, 4) +
                          LittleEndian(kRate * 2, 4) + LittleEndian(2, 2) + LittleEndian(16, 2);
  return chunk("RIFF", "WAVE" + chunk("fmt ", format) + chunk("data", data));
}

}  // namespace tarvo::test
