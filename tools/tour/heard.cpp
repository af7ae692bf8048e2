// Tells which wave files sound in a recording, and when: heard FOLDER RECORDING
// The files and the recording have one channel of 16 bits and the same rate of 44100; the recording
// has no head. A line for each sound: milliseconds from the start, name, likeness (1 for the same).

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Signal = std::vector<double>;
using Spectrum = std::vector<std::complex<double>>;

constexpr std::size_t kHead = 44;
constexpr int kRate = 44100;
constexpr double kAlike = 0.85;
constexpr double kTurn = 6.283185307179586;

struct Sound {
  std::string name;
  Signal samples;
};

struct Match {
  double likeness;
  std::size_t start, end;
  std::string name;
};

Signal ReadSamples(const std::filesystem::path& path, std::size_t head) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  Signal samples;
  for (std::size_t at = head; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    samples.push_back(static_cast<signed char>(bytes[at + 1]) * 256 + low);
  }
  return samples;
}

/// In place; the size is a power of two.
void Transform(Spectrum& values, bool back) {
  const std::size_t count = values.size();
  for (std::size_t at = 1, mirror = 0; at < count; ++at) {
    std::size_t bit = count / 2;
    for (; mirror & bit; bit /= 2) mirror ^= bit;
    mirror ^= bit;
    if (at < mirror) std::swap(values[at], values[mirror]);
  }
  for (std::size_t length = 2; length <= count; length *= 2) {
    const double angle = (back ? kTurn : -kTurn) / static_cast<double>(length);
    Spectrum turns(length / 2);
    for (std::size_t at = 0; at < turns.size(); ++at) {
      turns[at] = std::polar(1.0, angle * static_cast<double>(at));
    }
    for (std::size_t start = 0; start < count; start += length) {
      for (std::size_t at = start; at < start + length / 2; ++at) {
        const auto other = values[at + length / 2] * turns[at - start];
        values[at + length / 2] = values[at] - other;
        values[at] += other;
      }
    }
  }
}

Spectrum SpectrumOf(const Signal& samples, std::size_t size) {
  Spectrum values(samples.begin(), samples.end());
  values.resize(size);
  Transform(values, false);
  return values;
}

/// How well the sound fits the recording at each of its samples, from -1 to 1.
Signal Likeness(const Signal& recording, const Spectrum& spectrum, const Signal& sound) {
  Spectrum products = SpectrumOf(sound, spectrum.size());
  for (std::size_t at = 0; at < products.size(); ++at) {
    products[at] = spectrum[at] * std::conj(products[at]);
  }
  Transform(products, true);
  double own = 0;
  for (const double sample : sound) own += sample * sample;
  Signal fits;
  double energy = 0;
  for (std::size_t at = 0; at < sound.size(); ++at) energy += recording[at] * recording[at];
  for (std::size_t at = 0; at + sound.size() < recording.size(); ++at) {
    const double product = products[at].real() / static_cast<double>(spectrum.size());
    // What is far softer than the sound isn't it.
    fits.push_back(energy > own / 10 ? product / std::sqrt(own * energy) : 0);
    const double next = recording[at + sound.size()];
    energy += next * next - recording[at] * recording[at];
  }
  return fits;
}

/// The best fits of a sound; what overlaps a better one is not among them.
void AddMatches(std::vector<Match>& matches, const Sound& sound, const Signal& fits) {
  for (std::size_t at = 0; at < fits.size(); ++at) {
    if (fits[at] < kAlike) continue;
    std::size_t best = at;
    const std::size_t end = std::min(fits.size(), at + sound.samples.size());
    for (; at < end; ++at) {
      if (fits[at] > fits[best]) best = at;
    }
    matches.push_back({fits[best], best, best + sound.samples.size(), sound.name});
    at = best + sound.samples.size() - 1;
  }
}

std::vector<Match> Strongest(std::vector<Match> matches) {
  std::ranges::sort(matches, std::greater{}, &Match::likeness);
  std::vector<Match> strongest;
  for (const Match& match : matches) {
    const auto overlaps = [&](const Match& other) {
      return match.start < other.end && other.start < match.end;
    };
    if (std::ranges::none_of(strongest, overlaps)) strongest.push_back(match);
  }
  std::ranges::sort(strongest, {}, &Match::start);
  return strongest;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("Usage: heard FOLDER RECORDING\n", stderr);
    return 2;
  }
  const Signal recording = ReadSamples(arguments[2], 0);
  std::size_t size = 1;
  while (size < recording.size() * 2) size *= 2;
  const Spectrum spectrum = SpectrumOf(recording, size);
  std::vector<Match> matches;
  std::error_code failure;
  for (const auto& entry : std::filesystem::directory_iterator(arguments[1], failure)) {
    const Sound sound{entry.path().stem(), ReadSamples(entry.path(), kHead)};
    if (sound.samples.empty() || sound.samples.size() >= recording.size()) continue;
    AddMatches(matches, sound, Likeness(recording, spectrum, sound.samples));
  }
  for (const Match& match : Strongest(matches)) {
    std::printf("%zu %s %.3f\n", match.start * 1000 / kRate, match.name.c_str(), match.likeness);
  }
  return failure ? 1 : 0;
}
