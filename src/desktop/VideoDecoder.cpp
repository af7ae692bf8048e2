#include "desktop/VideoDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <cstring>

#ifdef _WIN32
#define TARVO_EXPORTED __declspec(dllexport)
#else
#define TARVO_EXPORTED __attribute__((visibility("default")))
#endif

namespace tarvo {
namespace {

constexpr int kBlock = 32 * 1024;
constexpr std::size_t kMostPictures = 600 * kPicturesPerSecond;
constexpr int kPadding = 64;  ///< Bytes that the scaler may write beyond the end of a row.

template <class T, void (*free)(T**)>
struct Freer {
  void operator()(T* object) const { free(&object); }
};

/// The bytes of a film as libav reads them.
class MemoryInput {
 public:
  explicit MemoryInput(FileTextView bytes) : bytes_(bytes) {
    auto* block = static_cast<unsigned char*>(av_malloc(kBlock));
    if (block) io_ = avio_alloc_context(block, kBlock, 0, this, &Read, nullptr, &Seek);
    if (!io_) av_free(block);
  }
  ~MemoryInput() {
    if (io_) av_freep(&io_->buffer);
    avio_context_free(&io_);
  }
  MemoryInput(const MemoryInput&) = delete;
  MemoryInput& operator=(const MemoryInput&) = delete;

  AVIOContext* Io() const { return io_; }

 private:
  static int Read(void* self, uint8_t* block, int size) {
    auto& input = *static_cast<MemoryInput*>(self);
    const std::size_t count =
        input.bytes_.copy(reinterpret_cast<char*>(block), static_cast<std::size_t>(size),
                          std::min(input.position_, input.bytes_.size()));
    input.position_ += count;
    return count == 0 ? AVERROR_EOF : static_cast<int>(count);
  }

  static int64_t Seek(void* self, int64_t offset, int from) {
    auto& input = *static_cast<MemoryInput*>(self);
    const auto size = static_cast<int64_t>(input.bytes_.size());
    from &= ~AVSEEK_FORCE;
    if (from == AVSEEK_SIZE) return size;
    if (from == SEEK_CUR) offset += static_cast<int64_t>(input.position_);
    if (from == SEEK_END) offset += size;
    if (offset < 0 || offset > size) return AVERROR(EINVAL);
    input.position_ = static_cast<std::size_t>(offset);
    return offset;
  }

  FileTextView bytes_;
  std::size_t position_ = 0;
  AVIOContext* io_ = nullptr;
};

class Decoding {
 public:
  Decoding(FileTextView film, int width, int height)
      : input_(film), width_(width), height_(height) {}
  ~Decoding() {
    sws_freeContext(scaler_);
    codec_.reset();
    avformat_close_input(&film_);
  }
  Decoding(const Decoding&) = delete;
  Decoding& operator=(const Decoding&) = delete;

  /// Gives false for a broken film.
  bool Run(const std::atomic<bool>& givenUp);

  VideoPictures pictures;

 private:
  bool OpenFilm();
  bool Feed(const AVPacket* packet);
  bool Take(const AVFrame& frame);
  bool Scale(const AVFrame& frame);
  bool FitInto(const AVFrame& frame);
  bool IsFull() const;

  MemoryInput input_;
  AVFormatContext* film_ = nullptr;
  int stream_ = 0;
  std::unique_ptr<AVCodecContext, Freer<AVCodecContext, avcodec_free_context>> codec_;
  std::unique_ptr<AVFrame, Freer<AVFrame, av_frame_free>> frame_{av_frame_alloc()};
  std::unique_ptr<AVPacket, Freer<AVPacket, av_packet_free>> packet_{av_packet_alloc()};
  SwsContext* scaler_ = nullptr;
  int width_;   ///< Of the place, and then of the pictures that fit into it.
  int height_;  ///< The same.
  int64_t begin_ = AV_NOPTS_VALUE;
  std::vector<std::uint8_t> scaled_;
  std::size_t memory_ = 0;  ///< Bytes of all pictures.
};

bool Decoding::OpenFilm() {
  const AVInputFormat* format = av_find_input_format("mov");
  film_ = avformat_alloc_context();
  if (!format || !film_ || !input_.Io() || !frame_ || !packet_) return false;
  film_->pb = input_.Io();
  if (avformat_open_input(&film_, nullptr, format, nullptr) < 0) return false;
  const AVCodec* coder = nullptr;
  stream_ = av_find_best_stream(film_, AVMEDIA_TYPE_VIDEO, -1, -1, &coder, 0);
  if (stream_ < 0) return false;
  codec_.reset(avcodec_alloc_context3(coder));
  const AVCodecParameters* about = film_->streams[stream_]->codecpar;
  if (!codec_ || avcodec_parameters_to_context(codec_.get(), about) < 0) return false;
  codec_->thread_count = 1;
  return avcodec_open2(codec_.get(), coder, nullptr) >= 0;
}

bool Decoding::Run(const std::atomic<bool>& givenUp) {
  if (!OpenFilm()) return false;
  while (!IsFull()) {
    if (givenUp) return false;
    const int read = av_read_frame(film_, packet_.get());
    if (read == AVERROR_EOF) return Feed(nullptr) && !pictures.empty();
    if (read < 0) return false;
    const bool fed = packet_->stream_index != stream_ || Feed(packet_.get());
    av_packet_unref(packet_.get());
    if (!fed) return false;
  }
  return true;
}

/// Hands a packet to the decoder, nothing for the end, and takes the pictures that it has ready.
bool Decoding::Feed(const AVPacket* packet) {
  if (avcodec_send_packet(codec_.get(), packet) < 0) return false;
  while (true) {
    const int got = avcodec_receive_frame(codec_.get(), frame_.get());
    if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return true;
    if (got < 0 || !Take(*frame_)) return false;
  }
}

/// Puts a picture where its time says, at an even pace.
bool Decoding::Take(const AVFrame& frame) {
  const int64_t time = frame.best_effort_timestamp;
  if (begin_ == AV_NOPTS_VALUE) begin_ = time;
  double place = static_cast<double>(pictures.size());
  if (time != AV_NOPTS_VALUE) {
    const double second = av_q2d(film_->streams[stream_]->time_base);
    place = std::round(static_cast<double>(time - begin_) * second * kPicturesPerSecond);
  }
  while (!pictures.empty() && static_cast<double>(pictures.size()) < place && !IsFull()) {
    pictures.push_back(pictures.back());
  }
  return static_cast<double>(pictures.size()) > place || IsFull() || Scale(frame);
}

bool Decoding::Scale(const AVFrame& frame) {
  if (pictures.empty() && !FitInto(frame)) return false;
  scaler_ = sws_getCachedContext(
      scaler_, frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), width_, height_,
      AV_PIX_FMT_RGB32, SWS_BICUBIC | SWS_ACCURATE_RND, nullptr, nullptr, nullptr);
  if (!scaler_) return false;
  const int row = width_ * 4;
  const int stride = (row + 2 * kPadding - 1) / kPadding * kPadding;
  scaled_.resize(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height_) + kPadding);
  uint8_t* const rows[] = {scaled_.data()};
  if (sws_scale(scaler_, frame.data, frame.linesize, 0, frame.height, rows, &stride) != height_) {
    return false;
  }
  auto picture = std::make_shared<VideoPicture>(VideoPicture{width_, height_, {}});
  picture->Pixels.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  for (int y = 0; y < height_; ++y) {
    std::memcpy(picture->Pixels.data() + static_cast<std::ptrdiff_t>(y) * width_,
                scaled_.data() + static_cast<std::ptrdiff_t>(y) * stride,
                static_cast<std::size_t>(row));
  }
  memory_ += picture->Pixels.size() * sizeof(std::uint32_t);
  pictures.push_back(std::move(picture));
  return true;
}

/// Settles the size of the pictures.
bool Decoding::FitInto(const AVFrame& frame) {
  if (frame.width <= 0 || frame.height <= 0 || width_ <= 0 || height_ <= 0) return false;
  double scale = std::min(static_cast<double>(width_) / frame.width,
                          static_cast<double>(height_) / frame.height);
  const double count = std::max(1.0, static_cast<double>(film_->streams[stream_]->nb_frames));
  const double wanted = count * frame.width * scale * frame.height * scale * 4;
  scale *= std::clamp(std::sqrt(kVideoMemory / wanted), 0.5, 1.0);
  width_ = std::max(1, static_cast<int>(std::lround(frame.width * scale)));
  height_ = std::max(1, static_cast<int>(std::lround(frame.height * scale)));
  return true;
}

bool Decoding::IsFull() const {
  const std::size_t next = pictures.empty() ? 0 : pictures.back()->Pixels.size() * 4;
  return memory_ + next > kVideoMemory || pictures.size() >= kMostPictures;
}

}  // namespace
}  // namespace tarvo

extern "C" TARVO_EXPORTED void TarvoDecodeVideo(
    tarvo::FileTextView film, int width, int height, const std::atomic<bool>& givenUp,
    tarvo::VideoPictures& pictures) {
  av_log_set_level(AV_LOG_QUIET);
  tarvo::Decoding decoding(film, width, height);
  if (decoding.Run(givenUp)) pictures = std::move(decoding.pictures);
}
