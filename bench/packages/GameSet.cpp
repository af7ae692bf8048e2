#include "GameSet.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvo::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 1 << 20;

void WriteFile(const fs::path& path, std::uint64_t size, std::mt19937_64& random) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  std::vector<std::uint64_t> block(kBlock / sizeof(std::uint64_t));
  while (size > 0) {
    const std::uint64_t part = std::min<std::uint64_t>(size, kBlock);
    for (std::uint64_t i = 0; i * sizeof(std::uint64_t) < part; ++i) block[i] = random();
    file.write(reinterpret_cast<const char*>(block.data()), static_cast<std::streamsize>(part));
    size -= part;
  }
  file.close();
  if (!file) throw std::runtime_error("can't write " + path.string());
}

/// Where the small file of that number lies: textures, scripts, hardpoints, plug-ins and sounds
/// of ships with 20 small files each.
fs::path SmallPath(std::uint64_t number) {
  const std::string ship = "Ship " + std::to_string(number / 20);
  const std::string index = std::to_string(number % 20);
  switch (number % 20) {
    case 0:
      return fs::path("scripts/ships") / (ship + ".py");
    case 1:
      return fs::path("scripts/ships/Hardpoints") / (ship + ".py");
    case 2:
      return fs::path("scripts/Custom/Ships") / (ship + ".py");
    case 3:
    case 4:
      return fs::path("sfx/Weapons") / (ship + " " + index + ".wav");
    default:
      return fs::path("data/Models/Ships") / ship / "High" / ("Texture " + index + ".tga");
  }
}

bool SameBytes(const fs::path& left, const fs::path& right) {
  std::ifstream first(left, std::ios::binary);
  std::ifstream second(right, std::ios::binary);
  std::vector<char> a(kBlock);
  std::vector<char> b(kBlock);
  while (first && second) {
    first.read(a.data(), static_cast<std::streamsize>(a.size()));
    second.read(b.data(), static_cast<std::streamsize>(b.size()));
    if (first.gcount() != second.gcount()) return false;
    if (!std::equal(a.begin(), a.begin() + first.gcount(), b.begin())) return false;
  }
  return first.eof() && second.eof();
}

}  // namespace

void MakeGameSet(const fs::path& folder, const SetSize& size) {
  if (fs::exists(folder)) return;
  fs::path unfinished = folder;
  unfinished += ".part";
  fs::remove_all(unfinished);
  std::mt19937_64 random(4009);
  WriteFile(unfinished / "stbc.exe", 100, random);
  for (std::uint64_t i = 0; i < size.SmallFiles; ++i) {
    WriteFile(unfinished / SmallPath(i), 5'000 + random() % 55'001, random);
  }
  for (std::uint64_t i = 0; i < size.BigFiles; ++i) {
    const fs::path path =
        fs::path("data/Models/Ships") / ("Ship " + std::to_string(i)) / "Model.nif";
    WriteFile(unfinished / path, size.BiggestFile * (i + 1) / size.BigFiles, random);
  }
  fs::rename(unfinished, folder);
}

std::uint64_t BytesBelow(const fs::path& folder) {
  std::uint64_t bytes = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) bytes += entry.file_size();
  }
  return bytes;
}

void RequireSameFiles(const fs::path& expected, const fs::path& actual) {
  for (const auto& entry : fs::recursive_directory_iterator(expected)) {
    if (!entry.is_regular_file()) continue;
    const fs::path twin = actual / fs::relative(entry.path(), expected);
    if (!SameBytes(entry.path(), twin)) {
      throw std::runtime_error("not the same bytes: " + twin.string());
    }
  }
}

}  // namespace tarvo::bench
