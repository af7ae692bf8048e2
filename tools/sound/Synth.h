#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

constexpr int kSampleRate = 44100;

/// The colour of a note: how strong its partials are, the ground first, and how fast they die
/// away. The higher a partial, the sooner it is gone. With a decay of 0 the note stays.
struct Timbre {
  std::array<double, 5> partials;
  int decay;
};

/// Times are milliseconds, pitches Hertz. A note glides from its first pitch to its last.
struct Note {
  int start;
  int length;
  int attack;
  double from;
  double to;
  double gain;  ///< Against the other notes of the sound.
  Timbre timbre;
};

struct Score {
  std::string_view file;
  int length;    ///< Milliseconds.
  double level;  ///< Of the loudest tenth of a second: root mean square, of full scale.
  std::vector<Note> notes;
};

/// The sound, in full scale. Nothing but sums, products, quotients and roots goes into it, which
/// every machine computes alike: so the samples are the same everywhere.
std::vector<double> Render(const Score& score);

/// The loudest tenth of a second. A shorter sound counts as if silence followed: the ear, too,
/// takes what is short for soft.
double Loudness(const std::vector<double>& samples);

/// A wave file of one channel with 16 bits a sample.
std::string WaveBytes(const std::vector<double>& samples);

}  // namespace tarvo
