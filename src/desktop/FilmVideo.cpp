#include "desktop/FilmVideo.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QObject>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "desktop/VideoDecoder.h"
#include "platform/Files.h"
#include "platform/Guarded.h"

namespace tarvo {
namespace {

constexpr std::uint64_t kLargestFile = 64 << 20;
constexpr auto kLongestFarewell = std::chrono::milliseconds(300);

FileText ReadWhole(FileReader& file) {
  FileText bytes;
  Guarded([&] {
    if (file.Size() > kLargestFile) return;
    FileText read(static_cast<std::size_t>(file.Size()), '\0');
    read.resize(file.ReadAt(0, read));
    bytes = std::move(read);
  });
  return bytes;
}

}  // namespace

class FilmVideo::Opening : public VideoOpening {
 public:
  /// What the opening and its thread share.
  struct State {
    std::atomic<bool> givenUp = false;
    std::function<void(VideoPictures)> opened;  ///< Touched by the caller's thread alone.
  };

  explicit Opening(std::shared_ptr<State> state) : state_(std::move(state)) {}
  ~Opening() override {
    state_->givenUp = true;
    state_->opened = nullptr;
  }

 private:
  std::shared_ptr<State> state_;
};

/// What the object and its threads share. A thread keeps it alive, should it outlast the object.
class FilmVideo::Work : public std::enable_shared_from_this<Work> {
 public:
  using StatePtr = std::shared_ptr<Opening::State>;

  explicit Work(QStringList folders) : folders_(std::move(folders)) {}

  void Begin(std::shared_ptr<FileReader> file, int width, int height, const StatePtr& state);
  void Tell(const StatePtr& state, VideoPictures pictures);
  void End();

 private:
  VideoPictures Decode(FileReader& file, int width, int height, const Opening::State& state);
  VideoDecoder* Decoder();

  const QStringList folders_;
  std::mutex loading_;
  VideoDecoder* decoder_ = nullptr;

  std::mutex mutex_;
  std::condition_variable left_;
  int running_ = 0;
  std::unique_ptr<QObject> caller_ = std::make_unique<QObject>();  ///< Nothing after the end.
};

void FilmVideo::Work::Begin(std::shared_ptr<FileReader> file, int width, int height,
                            const StatePtr& state) {
  {
    const std::lock_guard lock(mutex_);
    ++running_;
  }
  try {
    std::thread([self = shared_from_this(), file = std::move(file), width, height, state] {
      self->Tell(state, self->Decode(*file, width, height, *state));
      const std::lock_guard lock(self->mutex_);
      --self->running_;
      self->left_.notify_all();
    }).detach();
  } catch (const std::system_error&) {
    Tell(state, {});
    const std::lock_guard lock(mutex_);
    --running_;
  }
}

VideoPictures FilmVideo::Work::Decode(FileReader& file, int width, int height,
                                      const Opening::State& state) {
  VideoPictures pictures;
  try {
    VideoDecoder* const decode = Decoder();
    if (decode) decode(ReadWhole(file), width, height, state.givenUp, pictures);
  } catch (const std::bad_alloc&) {
    pictures.clear();
  }
  return pictures;
}

VideoDecoder* FilmVideo::Work::Decoder() {
  const std::lock_guard lock(loading_);
  for (const QString& folder : folders_) {
    if (decoder_) break;
    QLibrary module(folder + QStringLiteral("/tarvo_video"));
    decoder_ = reinterpret_cast<VideoDecoder*>(module.resolve(kVideoDecoder));
  }
  return decoder_;
}

void FilmVideo::Work::Tell(const StatePtr& state, VideoPictures pictures) {
  const std::lock_guard lock(mutex_);
  if (!caller_) return;
  const auto tell = [state, pictures = std::move(pictures)] {
    // The handler may end the opening.
    if (const auto opened = std::exchange(state->opened, nullptr)) opened(pictures);
  };
  QMetaObject::invokeMethod(caller_.get(), tell, Qt::QueuedConnection);
}

void FilmVideo::Work::End() {
  std::unique_lock lock(mutex_);
  caller_.reset();
  left_.wait_for(lock, kLongestFarewell, [&] { return running_ == 0; });
}

FilmVideo::FilmVideo(Files& files, QStringList folders)
    : files_(files), work_(std::make_shared<Work>(std::move(folders))) {}

FilmVideo::~FilmVideo() {
  work_->End();
}

std::unique_ptr<VideoOpening> FilmVideo::Open(TextView file, int width, int height,
                                              std::function<void(VideoPictures)> opened) {
  auto state = std::make_shared<Opening::State>();
  state->opened = std::move(opened);
  std::shared_ptr<FileReader> reader;
  Guarded([&] { reader = files_.Open(file); });
  if (reader) {
    work_->Begin(std::move(reader), width, height, state);
  } else {
    work_->Tell(state, {});
  }
  return std::make_unique<Opening>(std::move(state));
}

QStringList FilmVideo::UsualFolders() {
  const QString program = QCoreApplication::applicationDirPath();
  return {program, program + QStringLiteral("/../lib/tarvo-packager")};
}

}  // namespace tarvo
