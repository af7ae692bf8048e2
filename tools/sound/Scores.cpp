#include "Scores.h"

namespace tarvo {
namespace {

// Five notes of D major in pure intervals. What is sounded together or in a row is a ratio of small
// numbers, and D, E, F sharp and A have whole cycles in a second and a half, the length of the
// loop.
constexpr double kA4 = 440;
constexpr double kD4 = kA4 * 2 / 3;
constexpr double kE4 = kD4 * 9 / 8;
constexpr double kFis4 = kD4 * 5 / 4;
constexpr double kB4 = kD4 * 5 / 3;
constexpr double kD3 = kD4 / 2, kA3 = kA4 / 2, kB3 = kB4 / 2;
constexpr double kD5 = kD4 * 2, kE5 = kE4 * 2, kFis5 = kFis4 * 2, kA5 = kA4 * 2;
constexpr double kD6 = kD5 * 2;

// A slow beat against D3, once in a second and a half.
constexpr double kD3Beating = kD3 + 2.0 / 3;

constexpr Timbre kGlass = {{1, 0.24, 0.08, 0.03, 0}, 2};
constexpr Timbre kAir = {{1, 0.05, 0, 0, 0}, 2};
constexpr Timbre kMuted = {{1, 0.05, 0.28, 0, 0.10}, 2};
constexpr Timbre kPad = {{1, 0.35, 0.12, 0, 0}, 1};
constexpr Timbre kHum = {{1, 0.40, 0.15, 0, 0}, 0};

// How loud: what comes with every move of the mouse is hardly there, what the user has to hear
// stands out a little.
constexpr double kNormal = 0.08;
constexpr double kStrong = 0.11;
constexpr double kSmall = 0.022;
constexpr double kFaint = 0.016;
constexpr double kGround = 0.005;  ///< What comes by itself, again and again.

}  // namespace

std::vector<Score> Scores() {
  return {
      // A touch, which falls a fourth.
      {"Click.wav", 55, kSmall, {{0, 52, 3, kD6, kA5, 1, kAir}}},
      {"OverBeep.wav", 60, kFaint, {{0, 58, 12, kA5, kA5, 1, kAir}}},
      {"BackgroundBeep.wav", 120, kGround, {{0, 116, 16, kD5, kD5, 1, kAir}}},
      {"TabBeep.wav",
       150,
       kNormal * 0.7,
       {{0, 90, 5, kA5, kA5, 0.8, kGlass}, {45, 103, 5, kD6, kD6, 0.8, kGlass}}},
      {"CommandBeep.wav",
       200,
       kNormal,
       {{0, 130, 5, kD5, kD5, 1, kGlass}, {60, 138, 5, kA5, kA5, 0.9, kGlass}}},
      // The chord of the key, upwards.
      {"Execute.wav",
       400,
       kNormal,
       {{0, 200, 5, kD5, kD5, 0.9, kGlass},
        {55, 200, 5, kFis5, kFis5, 0.8, kGlass},
        {110, 220, 5, kA5, kA5, 0.8, kGlass},
        {165, 233, 6, kD6, kD6, 0.8, kGlass}}},
      // Rises and stays open, as a voice that asks.
      {"Question.wav",
       500,
       kNormal,
       {{0, 220, 6, kA4, kA4, 0.9, kGlass},
        {110, 220, 6, kB4, kB4, 0.9, kGlass},
        {220, 278, 8, kE5, kFis5, 1, kGlass}}},
      // Taps twice and holds out a hand.
      {"Specify.wav",
       400,
       kNormal,
       {{0, 110, 5, kA5, kA5, 0.7, kGlass},
        {85, 110, 5, kA5, kA5, 0.7, kGlass},
        {170, 228, 6, kE5, kE5, 1, kGlass}}},
      {"ErrorBeep.wav",
       250,
       kNormal,
       {{0, 130, 5, kB4, kB4, 1, kMuted}, {100, 148, 5, kFis4, kFis4, 1, kMuted}}},
      // Twice a falling third over a low ground.
      {"CriticalError.wav",
       800,
       kStrong,
       {{0, 798, 40, kB3, kB3, 0.5, kPad},
        {0, 220, 6, kD5, kD5, 0.9, kMuted},
        {140, 260, 6, kB4, kB4, 1, kMuted},
        {380, 220, 6, kD5, kD5, 0.9, kMuted},
        {520, 278, 6, kB4, kB4, 1, kMuted}}},
      // The chord builds up over a ground that swells.
      {"SystemsOnline.wav",
       1500,
       kNormal,
       {{0, 1498, 500, kD3, kD3, 0.5, kPad},
        {0, 1498, 500, kD3Beating, kD3Beating, 0.3, kPad},
        {100, 1398, 500, kA3, kA3, 0.35, kPad},
        {120, 500, 8, kD4, kD4, 0.5, kGlass},
        {260, 500, 8, kA4, kA4, 0.55, kGlass},
        {400, 520, 8, kD5, kD5, 0.55, kGlass},
        {540, 560, 8, kFis5, kFis5, 0.5, kGlass},
        {680, 620, 8, kA5, kA5, 0.5, kGlass},
        {840, 658, 10, kD6, kD6, 0.4, kGlass}}},
      // The same chord comes down, and the ground sinks with it.
      {"ShutDown.wav",
       1000,
       kNormal,
       {{0, 998, 90, kD4, kD3, 0.5, kPad},
        {0, 300, 6, kA5, kA5, 0.55, kGlass},
        {110, 320, 6, kFis5, kFis5, 0.6, kGlass},
        {220, 360, 6, kD5, kD5, 0.7, kGlass},
        {340, 420, 8, kA4, kA4, 0.8, kGlass},
        {470, 528, 8, kD4, kD4, 0.9, kGlass}}},
      // A loop: six soft steps over a hum that goes through.
      {"Scroll.wav",
       1500,
       kFaint,
       {{0, 1500, 0, kD3, kD3, 0.5, kHum},
        {0, 1500, 0, kD3Beating, kD3Beating, 0.25, kHum},
        {0, 1500, 0, kA3, kA3, 0.4, kHum},
        {0, 240, 12, kD5, kD5, 0.45, kAir},
        {250, 240, 12, kA4, kA4, 0.45, kAir},
        {500, 240, 12, kE5, kE5, 0.40, kAir},
        {750, 240, 12, kA4, kA4, 0.45, kAir},
        {1000, 240, 12, kFis5, kFis5, 0.40, kAir},
        {1250, 240, 12, kA4, kA4, 0.45, kAir}}},
  };
}

}  // namespace tarvo
