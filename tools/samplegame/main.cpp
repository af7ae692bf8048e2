// Writes the sample game, or a game without any add-on, into a folder.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>

#include "SampleGame.h"

int main(int count, char** arguments) {
  const bool empty = count == 3 && std::string_view(arguments[1]) == "--empty";
  if (count != (empty ? 3 : 2) || arguments[count - 1][0] == '-') {
    std::fputs("Usage: samplegame [--empty] FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder = arguments[count - 1];
    if (empty) {
      tarvo::WriteEmptyGame(folder);
    } else {
      tarvo::WriteSampleGame(folder);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "samplegame: %s\n", failure.what());
    return 1;
  }
  return 0;
}
