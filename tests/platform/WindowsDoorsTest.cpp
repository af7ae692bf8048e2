#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <ctime>

#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsSound.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

/// Changes one of the user's regional settings for as long as it lives.
class RegionalSetting {
 public:
  RegionalSetting(LCTYPE type, const wchar_t* value) : type_(type) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before_, 80);
    SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value);
  }
  ~RegionalSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_); }

 private:
  LCTYPE type_;
  wchar_t before_[80] = L"";
};

/// Today as the standard library puts it.
Text Today(const char* format) {
  const std::time_t now = std::time(nullptr);
  char date[32];
  std::strftime(date, sizeof date, format, std::localtime(&now));
  const std::string_view bytes = date;
  return {bytes.begin(), bytes.end()};
}

TEST(WindowsLocale, FollowsTheUsersRegionalSettings) {
  WindowsLocale locale;
  for (const auto& [picture, format] :
       {std::pair(L"dd.MM.yyyy", "%d.%m.%Y"), std::pair(L"yyyy-MM-dd", "%Y-%m-%d")}) {
    const RegionalSetting setting(LOCALE_SSHORTDATE, picture);
    const Text early = Today(format);
    const Text date = locale.ShortDate();
    EXPECT_TRUE(date == early || date == Today(format)) << testing::PrintToString(date);
  }
  for (const char16_t mark : {u',', u'.', u'\u066B'}) {
    const wchar_t value[] = {static_cast<wchar_t>(mark), L'\0'};
    const RegionalSetting setting(LOCALE_SDECIMAL, value);
    EXPECT_EQ(locale.DecimalMark(), mark);
  }
}

/// A tenth of a second of silence: mono, 8 bits, 8000 samples a second.
std::string ShortWave() {
  const auto number = [](unsigned value) {
    return std::string{static_cast<char>(value & 0xFF), static_cast<char>(value >> 8), 0, 0};
  };
  constexpr unsigned kSamples = 800;
  return "RIFF" + number(36 + kSamples) + "WAVEfmt " + number(16) + std::string("\1\0\1\0", 4) +
         number(8000) + number(8000) + std::string("\1\0\x08\0", 4) + "data" + number(kSamples) +
         std::string(kSamples, '\x80');
}

TEST(WindowsSound, NeverKeepsTheProgramWaiting) {
  const TemporaryFolder folder;
  const Text wave = u"Br\u00FCcke \u65E5\u672C.wav";
  folder.Put("Br\u00FCcke \u65E5\u672C.wav", ShortWave());
  folder.Put("text.wav", "no sound");
  const Text files[] = {folder.Game(wave), folder.Game(u"missing.wav"),  folder.Game(u"text.wav"),
                        folder.Game(),     folder.Game(Text(300, u'x')), u""};
  const auto start = std::chrono::steady_clock::now();
  {
    WindowsSound sound;
    for (const Text& file : files) {
      for (const unsigned flags :
           {kPlay, kPlayLoop, kPlayUnlessBusy, kPlayToEndUnlessBusy, kPlay, kPlayToEnd}) {
        sound.Play(file, flags);
      }
    }
    sound.Play(files[0], kPlayLoop);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace tarvo::test
