#include "Synth.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tarvo {
namespace {

constexpr double kTurn = 6.283185307179586;
constexpr int kWindow = kSampleRate / 10;

std::size_t Samples(int milliseconds) {
  return static_cast<std::size_t>(milliseconds) * kSampleRate / 1000;
}

/// The sine of so many turns: its series about 0, of which a quarter of a turn is the far end.
double Sine(double turns) {
  turns -= std::floor(turns + 0.5);
  if (turns > 0.25) turns = 0.5 - turns;
  if (turns < -0.25) turns = -0.5 - turns;
  const double x = turns * kTurn;
  double sum = 1;
  for (int order = 14; order > 1; order -= 2) sum = 1 - x * x / (order * (order + 1)) * sum;
  return x * sum;
}

/// From 0 to 1, without a corner at either end.
double Rise(double part) {
  part = std::clamp(part, 0.0, 1.0);
  return part * part * (3 - 2 * part);
}

double Power(double base, int exponent) {
  double power = 1;
  for (; exponent > 0; --exponent) power *= base;
  return power;
}

/// All partials at a moment of the note, `part` of which has passed.
double Tone(const Timbre& timbre, double turns, double part) {
  double sum = 0;
  int number = 0;
  for (const double partial : timbre.partials) {
    ++number;
    if (partial == 0) continue;
    sum += partial * Sine(turns * number) * Power(1 - part, timbre.decay * number);
  }
  return sum;
}

void Add(std::vector<double>& samples, const Note& note) {
  const std::size_t start = Samples(note.start);
  const std::size_t length = std::min(Samples(note.length), samples.size() - start);
  const auto attack = static_cast<double>(Samples(note.attack));
  double turns = 0;
  for (std::size_t at = 0; at < length; ++at) {
    const double part = static_cast<double>(at) / static_cast<double>(length);
    const double rise = attack > 0 ? Rise(static_cast<double>(at) / attack) : 1;
    samples[start + at] += note.gain * rise * Tone(note.timbre, turns, part);
    turns += (note.from + (note.to - note.from) * Rise(part)) / kSampleRate;
  }
}

std::string Little(std::uint32_t number, int bytes) {
  std::string text;
  for (; bytes-- > 0; number >>= 8) text.push_back(static_cast<char>(number & 0xFF));
  return text;
}

std::string Chunk(const char* name, const std::string& body) {
  return name + Little(static_cast<std::uint32_t>(body.size()), 4) + body;
}

}  // namespace

std::vector<double> Render(const Score& score) {
  std::vector<double> samples(Samples(score.length));
  for (const Note& note : score.notes) Add(samples, note);
  const double scale = score.level / Loudness(samples);
  for (double& sample : samples) sample *= scale;
  return samples;
}

double Loudness(const std::vector<double>& samples) {
  double sum = 0;
  double loudest = 0;
  for (std::size_t at = 0; at < samples.size(); ++at) {
    sum += samples[at] * samples[at];
    if (at >= kWindow) sum -= samples[at - kWindow] * samples[at - kWindow];
    loudest = std::max(loudest, sum);
  }
  return std::sqrt(loudest / kWindow);
}

std::string WaveBytes(const std::vector<double>& samples) {
  std::string data;
  for (const double sample : samples) {
    const double whole = std::floor(std::clamp(sample, -1.0, 1.0) * 32767 + 0.5);
    data += Little(static_cast<std::uint32_t>(static_cast<std::int32_t>(whole)), 2);
  }
  const std::string format = Little(1, 2) + Little(1, 2) + Little(kSampleRate, 4) +
                             Little(kSampleRate * 2, 4) + Little(2, 2) + Little(16, 2);
  return Chunk("RIFF", "WAVE" + Chunk("fmt ", format) + Chunk("data", data));
}

}  // namespace tarvo
