#pragma once

#include <gtest/gtest.h>

#include <random>

#include "platform/HostMachine.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {

inline std::string RandomBytes(std::size_t count) {
  std::mt19937 random(1);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

inline void ExpectSameBytes(const TemporaryFolder& from, const TemporaryFolder& to) {
  const auto files = OpenFiles("");
  const std::string bytes = RandomBytes(300000);
  from.Put("source", bytes);
  const auto source = files->Open(from.Game(u"source"));
  const struct {
    std::uint64_t Position;
    std::uint64_t Count;
    std::uint64_t Copied;
  } cases[] = {
      {0, 300000, 300000},
      {1, 100, 100},
      {5, 16 * 1024, 16 * 1024},
      {7, 16 * 1024 + 1, 16 * 1024 + 1},
      {65530, 70000, 70000},
      {299990, 1u << 31, 10},
      {299990, 100, 10},
      {300000, 5, 0},
      {~std::uint64_t{0}, 100000, 0},
      {0, 0, 0},
  };
  std::string expected = "head";
  const auto file = files->Replace(to.Game(u"copy"));
  file->Write("head");
  for (const auto& [position, count, copied] : cases) {
    EXPECT_EQ(file->CopyFrom(*source, position, count), copied) << position << ' ' << count;
    file->Write("|");
    expected += (copied == 0 ? "" : bytes.substr(position, copied)) + '|';
  }
  file->Commit();
  EXPECT_TRUE(to.Get("copy") == expected);
}

}  // namespace tarvo::test
