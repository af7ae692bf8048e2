#include "desktop/SdlSound.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include "desktop/WaveLength.h"
#include "platform/Files.h"
#include "platform/Guarded.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kRate = 44100;
constexpr int kSamplesAtOnce = 2048;
constexpr std::uint64_t kLargestFile = 64 << 20;
constexpr auto kLook = 5ms;            ///< How often a sound is asked for its end that is due.
constexpr auto kTail = 30ms;           ///< What is mixed but not heard yet at that end.
constexpr auto kLongestDelay = 250ms;  ///< What a sound may take beyond its length.
constexpr auto kLongestFarewell = 300ms;

/// How long the device stays open for what the user does next. To feed it silence costs as much as
/// sound, so a beep that comes by itself, again and again, opens it for its own time alone.
constexpr auto kAwake = 5s;

void Ignore(const char*, int, const char*, int, const char*, ...) {}

/// The ALSA library tells of missing devices on the terminal, unless it is told not to. It is
/// loaded by SDL where it is there at all.
void SilenceAlsa() {
  using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
  void* library = dlopen("libasound.so.2", RTLD_LAZY);
  if (!library) return;
  using Setter = int (*)(Handler);
  if (const auto set = reinterpret_cast<Setter>(dlsym(library, "snd_lib_error_set_handler"))) {
    set(&Ignore);
  }
}

}  // namespace

/// What the caller and the sound thread share. The thread keeps it alive, should it outlast the
/// program's interest in it.
class SdlSound::Player : public std::enable_shared_from_this<SdlSound::Player> {
 public:
  bool Start();
  bool Busy();
  bool Failed();

  /// Ends what plays, and plays `wave`, if there is any; `again` where that was the last sound as
  /// well. Gives the number of the sound.
  std::uint64_t Post(FileText wave, bool loop, bool again);

  void WaitForEnd(std::uint64_t number, Clock::time_point latest);
  void End();

 private:
  struct Order {
    FileText wave;
    bool loop;
    bool again;
    std::uint64_t number;
  };

  void Run();
  std::optional<Clock::time_point> NextLook() const;
  bool Open();
  void Close();
  void Obey(Order order);
  void Silence();
  bool StillPlaying();

  std::mutex mutex_;
  std::condition_variable toThread_;
  std::condition_variable toCaller_;
  std::optional<Order> order_;
  std::uint64_t posted_ = 0;  ///< The last sound that was asked for.
  std::uint64_t ended_ = 0;   ///< The last sound that is known to be over.
  bool failed_ = false;
  bool ending_ = false;
  bool gone_ = false;

  // The thread's own.
  bool open_ = false;
  Clock::time_point openUntil_{};
  FileText wave_;
  Mix_Chunk* chunk_ = nullptr;
  std::uint64_t playing_ = 0;  ///< 0 for none.
  bool loop_ = false;
  Clock::time_point due_{};  ///< When the sound that plays has its end, if nothing delays it.
  Clock::time_point silentSince_{};
};

bool SdlSound::Player::Start() {
  try {
    std::thread([self = shared_from_this()] { self->Run(); }).detach();
    return true;
  } catch (const std::system_error&) {
    const std::lock_guard lock(mutex_);
    failed_ = gone_ = true;
    return false;
  }
}

bool SdlSound::Player::Busy() {
  const std::lock_guard lock(mutex_);
  return !failed_ && ended_ < posted_;
}

bool SdlSound::Player::Failed() {
  const std::lock_guard lock(mutex_);
  return failed_;
}

std::uint64_t SdlSound::Player::Post(FileText wave, bool loop, bool again) {
  const std::lock_guard lock(mutex_);
  order_ = Order{std::move(wave), loop, again, ++posted_};
  toThread_.notify_one();
  return posted_;
}

void SdlSound::Player::WaitForEnd(std::uint64_t number, Clock::time_point latest) {
  std::unique_lock lock(mutex_);
  toCaller_.wait_until(lock, latest, [&] { return failed_ || ended_ >= number; });
}

void SdlSound::Player::End() {
  std::unique_lock lock(mutex_);
  ending_ = true;
  toThread_.notify_one();
  toCaller_.wait_for(lock, kLongestFarewell, [&] { return gone_; });
}

void SdlSound::Player::Run() {
  SilenceAlsa();
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tarvo Packager");
  const bool works = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0 && Open();
  std::unique_lock lock(mutex_);
  if (!works) {
    failed_ = true;
    order_.reset();
  }
  const auto called = [&] { return order_ || ending_; };
  while (works && !ending_) {
    if (const auto look = NextLook()) {
      toThread_.wait_until(lock, *look, called);
    } else {
      toThread_.wait(lock, called);
    }
    std::optional<Order> order = std::move(order_);
    order_.reset();
    lock.unlock();
    if (order) {
      Obey(std::move(*order));
    } else if (playing_ == 0) {
      Close();
    }
    const std::uint64_t playing = playing_;
    const bool over = playing != 0 && !StillPlaying();
    lock.lock();
    // Whatever was asked for before the sound that plays is over by that.
    if (over || playing == 0) {
      if (order || over) ended_ = std::max(ended_, over ? playing : order->number);
      playing_ = 0;
    } else {
      ended_ = std::max(ended_, playing - 1);
    }
    toCaller_.notify_all();
  }
  lock.unlock();
  Close();
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  lock.lock();
  gone_ = true;
  toCaller_.notify_all();
}

/// When there may be something to do without a call; nothing for never: a loop has no end.
std::optional<Clock::time_point> SdlSound::Player::NextLook() const {
  if (playing_ != 0 && loop_) return {};
  if (playing_ != 0) return std::max(due_, Clock::now() + kLook);
  if (open_) return openUntil_;
  return {};
}

bool SdlSound::Player::Open() {
  if (open_) return true;
  open_ = Mix_OpenAudio(kRate, MIX_DEFAULT_FORMAT, 2, kSamplesAtOnce) == 0;
  if (open_) Mix_AllocateChannels(1);
  return open_;
}

void SdlSound::Player::Close() {
  if (!open_) return;
  Silence();
  Mix_CloseAudio();
  open_ = false;
}

void SdlSound::Player::Obey(Order order) {
  Silence();
  wave_ = std::move(order.wave);
  const auto length = WaveLength(wave_);
  if (!length || !Open()) return;
  SDL_RWops* source = SDL_RWFromConstMem(wave_.data(), static_cast<int>(wave_.size()));
  chunk_ = source ? Mix_LoadWAV_RW(source, 1) : nullptr;
  if (!chunk_ || Mix_PlayChannel(0, chunk_, order.loop ? -1 : 0) < 0) return;
  playing_ = order.number;
  loop_ = order.loop;
  due_ = Clock::now() + *length;
  if (!order.again) openUntil_ = due_ + kAwake;
  silentSince_ = {};
}

void SdlSound::Player::Silence() {
  playing_ = 0;
  if (open_) Mix_HaltChannel(0);
  if (chunk_) Mix_FreeChunk(chunk_);
  chunk_ = nullptr;
}

bool SdlSound::Player::StillPlaying() {
  const auto now = Clock::now();
  if (Mix_Playing(0)) {
    silentSince_ = {};
    return true;
  }
  if (silentSince_ == Clock::time_point{}) silentSince_ = now;
  return now - silentSince_ < kTail;
}

SdlSound::SdlSound(Files& files) : files_(files) {}

SdlSound::~SdlSound() {
  if (player_) player_->End();
}

FileText SdlSound::Read(TextView file) {
  FileText bytes;
  Guarded([&] {
    const auto reader = files_.Open(file);
    if (reader->Size() > kLargestFile) return;
    bytes.resize(static_cast<std::size_t>(reader->Size()));
    bytes.resize(reader->ReadAt(0, bytes));
  });
  return bytes;
}

void SdlSound::Play(TextView file, unsigned flags) {
  const auto now = Clock::now();
  if (player_ && (player_->Failed() || ((flags & kSoundNoStop) && player_->Busy()))) return;
  FileText wave = Read(file);
  const auto length = WaveLength(wave);
  if (!length) {
    wave.clear();
    if (!player_ || (flags & kSoundNoStop)) return;  // Nothing to end.
  }
  if (!player_) {
    player_ = std::make_shared<Player>();
    if (!player_->Start()) return;
  }
  const bool again = last_ == file;
  last_ = file;
  const std::uint64_t number = player_->Post(std::move(wave), flags & kSoundLoop, again);
  if (!(flags & kSoundAsync) && length) player_->WaitForEnd(number, now + *length + kLongestDelay);
}

}  // namespace tarvo
