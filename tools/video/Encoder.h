#pragma once

#include <QImage>
#include <QString>
#include <memory>

namespace tarvo::video {

inline constexpr int kPicturesPerSecond = 15;

/// Writes pictures of one size as a QuickTime film of H.264. Throws std::runtime_error for whatever
/// goes wrong.
class Encoder {
 public:
  Encoder(const QString& file, QSize size);
  ~Encoder();

  void Add(const QImage& picture);

  /// Brings the last pictures to the file and closes it.
  void End();

 private:
  struct Parts;

  void Drain();

  std::unique_ptr<Parts> parts_;
};

}  // namespace tarvo::video
