#include "Encoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <stdexcept>

namespace tarvo::video {
namespace {

/// Full colour for each pixel: thin lines on black lose theirs otherwise.
constexpr AVPixelFormat kFormat = AV_PIX_FMT_YUV444P;
constexpr const char* kQuality = "21";

void Require(bool fine, const char* what) {
  if (!fine) throw std::runtime_error(what);
}

template <class T, void (*free)(T**)>
struct Freer {
  void operator()(T* object) const { free(&object); }
};

}  // namespace

struct Encoder::Parts {
  ~Parts() {
    if (film) avio_closep(&film->pb);
    avformat_free_context(film);
    sws_freeContext(scaler);
  }

  AVFormatContext* film = nullptr;
  SwsContext* scaler = nullptr;
  std::unique_ptr<AVCodecContext, Freer<AVCodecContext, avcodec_free_context>> codec;
  std::unique_ptr<AVFrame, Freer<AVFrame, av_frame_free>> frame{av_frame_alloc()};
  std::unique_ptr<AVPacket, Freer<AVPacket, av_packet_free>> packet{av_packet_alloc()};
  AVStream* stream = nullptr;
};

Encoder::Encoder(const QString& file, QSize size) : parts_(std::make_unique<Parts>()) {
  const QByteArray path = file.toUtf8();
  Parts& p = *parts_;
  avformat_alloc_output_context2(&p.film, nullptr, "mov", path.constData());
  const AVCodec* coder = avcodec_find_encoder_by_name("libx264");
  Require(p.film && coder, "this libav can't write H.264 into QuickTime films");
  p.codec.reset(avcodec_alloc_context3(coder));
  p.codec->width = size.width();
  p.codec->height = size.height();
  p.codec->pix_fmt = kFormat;
  p.codec->time_base = {1, kPicturesPerSecond};
  p.codec->framerate = {kPicturesPerSecond, 1};
  p.codec->gop_size = 10 * kPicturesPerSecond;
  p.codec->thread_count = 1;
  p.codec->color_range = AVCOL_RANGE_MPEG;
  p.codec->colorspace = AVCOL_SPC_SMPTE170M;
  p.codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
  av_opt_set(p.codec->priv_data, "preset", "veryslow", 0);
  av_opt_set(p.codec->priv_data, "tune", "animation", 0);
  av_opt_set(p.codec->priv_data, "crf", kQuality, 0);
  Require(avcodec_open2(p.codec.get(), coder, nullptr) >= 0, "the encoder doesn't start");

  p.stream = avformat_new_stream(p.film, nullptr);
  p.stream->time_base = p.codec->time_base;
  p.stream->avg_frame_rate = p.codec->framerate;
  avcodec_parameters_from_context(p.stream->codecpar, p.codec.get());
  p.film->flags |= AVFMT_FLAG_BITEXACT;
  Require(avio_open(&p.film->pb, path.constData(), AVIO_FLAG_WRITE) >= 0, "can't open the file");
  Require(avformat_write_header(p.film, nullptr) >= 0, "can't write the file");

  p.scaler =
      sws_getContext(size.width(), size.height(), AV_PIX_FMT_RGB32, size.width(), size.height(),
                     kFormat, SWS_LANCZOS | SWS_ACCURATE_RND, nullptr, nullptr, nullptr);
  p.frame->format = kFormat;
  p.frame->width = size.width();
  p.frame->height = size.height();
  Require(p.scaler && av_frame_get_buffer(p.frame.get(), 0) >= 0, "no room for a picture");
  p.frame->pts = 0;
}

Encoder::~Encoder() = default;

void Encoder::Add(const QImage& picture) {
  Parts& p = *parts_;
  Require(av_frame_make_writable(p.frame.get()) >= 0, "no room for a picture");
  const uint8_t* const rows[] = {picture.constBits()};
  const int stride[] = {static_cast<int>(picture.bytesPerLine())};
  sws_scale(p.scaler, rows, stride, 0, picture.height(), p.frame->data, p.frame->linesize);
  Require(avcodec_send_frame(p.codec.get(), p.frame.get()) >= 0, "a picture can't be encoded");
  ++p.frame->pts;
  Drain();
}

void Encoder::End() {
  Parts& p = *parts_;
  Require(avcodec_send_frame(p.codec.get(), nullptr) >= 0, "the last pictures can't be encoded");
  Drain();
  Require(av_write_trailer(p.film) >= 0, "can't write the end of the file");
  Require(avio_closep(&p.film->pb) >= 0, "can't close the file");
}

void Encoder::Drain() {
  Parts& p = *parts_;
  while (avcodec_receive_packet(p.codec.get(), p.packet.get()) >= 0) {
    p.packet->stream_index = p.stream->index;
    p.packet->duration = 1;
    av_packet_rescale_ts(p.packet.get(), p.codec->time_base, p.stream->time_base);
    Require(av_interleaved_write_frame(p.film, p.packet.get()) >= 0, "can't write a picture");
  }
}

}  // namespace tarvo::video
