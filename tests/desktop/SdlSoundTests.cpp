#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QProcess>
#include <chrono>
#include <filesystem>
#include <thread>

#include "WaveFile.h"
#include "desktop/SdlSound.h"
#include "support/MemoryFiles.h"

namespace tarvo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kRecordRate = 22050;
constexpr double kLow = 440;
constexpr double kHigh = 1760;

/// What came out of the server's sink, in pieces of 20 ms.
class Recorder {
 public:
  Recorder() {
    process_.start("parec", {"-d", "null.monitor", "--format=s16le", "--rate=22050", "--channels=1",
                             "--latency-msec=20"});
    process_.waitForReadyRead(5000);
  }

  /// Milliseconds of each pitch since the recorder began.
  struct Heard {
    int low = 0;
    int high = 0;
  };

  Heard Stop() {
    std::this_thread::sleep_for(300ms);  // What is still on its way.
    process_.terminate();
    process_.waitForFinished();
    const QByteArray bytes = process_.readAllStandardOutput();
    const auto* samples = reinterpret_cast<const std::int16_t*>(bytes.constData());
    const qsizetype count = bytes.size() / 2;
    constexpr qsizetype kPiece = kRecordRate / 50;
    Heard heard;
    for (qsizetype at = 0; at + kPiece <= count; at += kPiece) {
      int crossings = 0;
      int peak = 0;
      for (qsizetype next = at + 1; next < at + kPiece; ++next) {
        crossings += (samples[next - 1] < 0) != (samples[next] < 0);
        peak = std::max(peak, std::abs(int{samples[next]}));
      }
      if (peak < 3000) continue;
      // A pitch crosses zero twice a cycle.
      (crossings < (kLow + kHigh) / 50 ? heard.low : heard.high) += 20;
    }
    return heard;
  }

 private:
  QProcess process_;
};

class SoundTest : public testing::Test {
 protected:
  SoundTest() {
    files_.Put(u"Z:\\short", WaveFile(300, kLow));
    files_.Put(u"Z:\\half", WaveFile(500, kLow));
    files_.Put(u"Z:\\high", WaveFile(400, kHigh));
    files_.Put(u"Z:\\broken", "RIFF and then nothing of the kind");
  }

  std::chrono::milliseconds Took(TextView file, unsigned flags) {
    const auto start = Clock::now();
    sound_->Play(file, flags);
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  }

  MemoryFiles files_;
  std::unique_ptr<SdlSound> sound_ = std::make_unique<SdlSound>(files_);
};

using SoundServer = SoundTest;
using NoSoundServer = SoundTest;
using HungSoundServer = SoundTest;

TEST_F(SoundServer, PlayToEndWaitsForTheEnd) {
  Recorder recorder;
  for (int turn = 0; turn < 3; ++turn) {
    const auto took = Took(u"Z:\\half", kPlayToEnd);
    RecordProperty("waited", static_cast<int>(took.count()));
    EXPECT_GE(took, 480ms);
    EXPECT_LE(took, 760ms);
  }
  sound_.reset();
  EXPECT_NEAR(recorder.Stop().low, 1500, 80) << "no tail is cut, also not by the program's end";
}

TEST_F(SoundServer, NoStopStaysSilentWhileSomethingPlays) {
  Recorder recorder;
  EXPECT_LT(Took(u"Z:\\half", kPlay), 50ms);
  EXPECT_LT(Took(u"Z:\\high", kPlayUnlessBusy), 50ms);
  std::this_thread::sleep_for(200ms);
  EXPECT_LT(Took(u"Z:\\high", kPlayToEndUnlessBusy), 50ms);
  std::this_thread::sleep_for(700ms);
  EXPECT_GE(Took(u"Z:\\high", kPlayToEndUnlessBusy), 380ms) << "now it is free";
  const auto heard = recorder.Stop();
  EXPECT_NEAR(heard.low, 500, 60);
  EXPECT_NEAR(heard.high, 400, 60);
}

TEST_F(SoundServer, ALoopGoesOnUntilTheNextSound) {
  Recorder recorder;
  sound_->Play(u"Z:\\short", kPlayLoop);
  std::this_thread::sleep_for(1s);
  sound_->Play(u"Z:\\high", kPlayUnlessBusy);
  std::this_thread::sleep_for(200ms);
  EXPECT_GE(Took(u"Z:\\high", kPlayToEnd), 380ms);
  std::this_thread::sleep_for(400ms);
  const auto heard = recorder.Stop();
  EXPECT_NEAR(heard.low, 1200, 150);
  EXPECT_NEAR(heard.high, 400, 60);
}

/// What plays on the server now, if silently.
std::string AtWork() {
  QProcess list;
  list.start("pactl", {"list", "short", "sink-inputs"});
  list.waitForFinished();
  return list.readAllStandardOutput().toStdString();
}

TEST_F(SoundServer, TheDeviceRestsWhenNothingPlaysAndBetweenBeepsOfOneKind) {
  sound_->Play(u"Z:\\half", kPlay);
  for (const auto wait : {200ms, 2000ms}) {
    std::this_thread::sleep_for(wait);
    EXPECT_NE(AtWork(), "") << "still awake for the user";
  }
  std::this_thread::sleep_for(4s);
  EXPECT_EQ(AtWork(), "");
  EXPECT_GE(Took(u"Z:\\half", kPlayToEnd), 480ms);
  std::this_thread::sleep_for(2500ms);
  EXPECT_EQ(AtWork(), "") << "the same sound again";
  Recorder recorder;
  EXPECT_GE(Took(u"Z:\\high", kPlayToEnd), 380ms);
  EXPECT_NEAR(recorder.Stop().high, 400, 60);
}

TEST_F(SoundServer, WhatCantBePlayedEndsTheSoundBeforeIt) {
  for (const char16_t* file : {u"Z:\\missing", u"Z:\\broken"}) {
    Recorder recorder;
    sound_->Play(u"Z:\\short", kPlayLoop);
    std::this_thread::sleep_for(500ms);
    sound_->Play(file, kPlayUnlessBusy);
    std::this_thread::sleep_for(200ms);
    EXPECT_LT(Took(file, kPlayToEnd), 50ms);
    std::this_thread::sleep_for(500ms);
    EXPECT_NEAR(recorder.Stop().low, 700, 150);
  }
}

TEST_F(NoSoundServer, IsSilenceAtOnce) {
  setenv("PULSE_SERVER", "unix:/nowhere/socket", 1);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_LT(Took(u"Z:\\half", kPlay), 50ms);
  EXPECT_LE(Took(u"Z:\\half", kPlayToEnd), 780ms);
  std::this_thread::sleep_for(1s);
  for (const unsigned flags : {kPlayToEnd, kPlayLoop, kPlayToEndUnlessBusy}) {
    EXPECT_LT(Took(u"Z:\\half", flags), 20ms);
  }
  sound_.reset();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(HungSoundServer, CostsNoMoreThanTheSoundsOwnTime) {
  const auto folder = std::filesystem::temp_directory_path() / ("hung" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  sockaddr_un address{AF_UNIX, {}};
  const std::string path = (folder / "socket").string();
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const int server = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(server, 8), 0);
  setenv("PULSE_SERVER", ("unix:" + path).c_str(), 1);

  EXPECT_LT(Took(u"Z:\\half", kPlay), 50ms);
  EXPECT_LE(Took(u"Z:\\half", kPlayToEnd), 780ms);
  EXPECT_LT(Took(u"Z:\\high", kPlayToEndUnlessBusy), 50ms) << "the one before never ended";
  const auto start = Clock::now();
  sound_.reset();
  EXPECT_LT(Clock::now() - start, 400ms);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tarvo::test
