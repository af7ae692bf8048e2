// Writes the program's sounds into a folder.

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "Scores.h"

int main(int count, char** arguments) {
  if (count != 2 || arguments[1][0] == '-') {
    std::fputs("Usage: sound FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = arguments[1];
  std::error_code ignored;  // Writing the files fails then.
  std::filesystem::create_directories(folder, ignored);
  for (const tarvo::Score& score : tarvo::Scores()) {
    std::ofstream file(folder / score.file, std::ios::binary);
    file << tarvo::WaveBytes(tarvo::Render(score));
    if (!file.flush()) {
      std::fprintf(stderr, "sound: can't write %s\n", (folder / score.file).c_str());
      return 1;
    }
  }
  return 0;
}
