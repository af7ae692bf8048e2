#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "Scores.h"
#include "desktop/WaveLength.h"

namespace tarvo::test {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kHead = 44;
constexpr double kLargestBend = 0.06;

struct Expected {
  std::string_view file;
  milliseconds shortest, longest;
  double softest, loudest;  ///< Decibels below full scale, in the loudest tenth of a second.
};

// What the program waits for is short, what sounds often is soft, and what sounds by itself softer.
constexpr Expected kExpected[] = {
    {"BackgroundBeep.wav", milliseconds(60), milliseconds(150), -48, -44},
    {"Click.wav", milliseconds(40), milliseconds(70), -36, -29},
    {"CommandBeep.wav", milliseconds(100), milliseconds(220), -25, -20},
    {"CriticalError.wav", milliseconds(500), milliseconds(900), -22, -17},
    {"ErrorBeep.wav", milliseconds(150), milliseconds(270), -25, -20},
    {"Execute.wav", milliseconds(200), milliseconds(450), -25, -20},
    {"OverBeep.wav", milliseconds(40), milliseconds(70), -42, -32},
    {"Question.wav", milliseconds(300), milliseconds(550), -25, -20},
    {"Scroll.wav", milliseconds(1000), milliseconds(2000), -42, -32},
    {"ShutDown.wav", milliseconds(600), milliseconds(1100), -25, -20},
    {"Specify.wav", milliseconds(200), milliseconds(450), -25, -20},
    {"SystemsOnline.wav", milliseconds(1000), milliseconds(1700), -25, -20},
    {"TabBeep.wav", milliseconds(80), milliseconds(160), -28, -20},
};

FileText SoundFile(std::string_view name) {
  std::ifstream file(TARVO_SOURCE "/data/Sfx/" + std::string(name), std::ios::binary);
  return FileText(std::istreambuf_iterator<char>(file), {});
}

std::vector<double> Samples(FileTextView file) {
  std::vector<double> samples;
  for (std::size_t at = kHead; at + 1 < file.size(); at += 2) {
    const auto low = static_cast<unsigned char>(file[at]);
    samples.push_back((static_cast<signed char>(file[at + 1]) * 256 + low) / 32768.0);
  }
  return samples;
}

/// How sharply the wave bends where it bends most, against its peak. A sample that jumps shows as
/// a bend that no pitch of these sounds has. A sound stands between silence, a loop between itself.
double Bend(const std::vector<double>& samples, bool loop) {
  std::vector<double> wave{loop ? samples.back() : 0};
  wave.insert(wave.end(), samples.begin(), samples.end());
  wave.push_back(loop ? samples.front() : 0);
  double bend = 0;
  double peak = 0;
  for (std::size_t at = 1; at + 1 < wave.size(); ++at) {
    bend = std::max(bend, std::abs(wave[at - 1] - 2 * wave[at] + wave[at + 1]));
    peak = std::max(peak, std::abs(wave[at]));
  }
  return bend / peak;
}

TEST(SoundFiles, AreAllThereShortLevelAndWithoutClicks) {
  for (const Expected& expected : kExpected) {
    SCOPED_TRACE(expected.file);
    const FileText file = SoundFile(expected.file);
    // The head of any such file of this project's own, less the lengths.
    EXPECT_EQ(file.substr(20, 16), FileText("\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0", 16));
    const auto length = WaveLength(file);
    ASSERT_TRUE(length);
    EXPECT_GE(*length, expected.shortest);
    EXPECT_LE(*length, expected.longest);

    const std::vector<double> samples = Samples(file);
    EXPECT_LT(*std::ranges::max_element(samples), 0.89);
    EXPECT_GT(*std::ranges::min_element(samples), -0.89);
    const double level = 20 * std::log10(Loudness(samples));
    EXPECT_GE(level, expected.softest);
    EXPECT_LE(level, expected.loudest);
    EXPECT_LT(Bend(samples, expected.file == "Scroll.wav"), kLargestBend);
  }
}

TEST(SoundFiles, AreWhatTheScoresSay) {
  const auto scores = Scores();
  EXPECT_EQ(scores.size(), std::size(kExpected));
  for (const Score& score : scores) {
    EXPECT_TRUE(SoundFile(score.file) == WaveBytes(Render(score)))
        << score.file << ": see tools/sound";
  }
}

}  // namespace
}  // namespace tarvo::test
