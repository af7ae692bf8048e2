#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/posix/IniSettings.h"
#include "platform/posix/PosixReplacement.h"
#include "platform/posix/SystemCalls.h"
#include "platform/posix/UserFolders.h"
#include "support/CodeOf.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

std::shared_ptr<PosixState> NoJournal() {
  return std::make_shared<PosixState>(std::vector<std::string>());
}

namespace fs = std::filesystem;

TEST(IniSettings, GiveTextsBackExactly) {
  const TemporaryFolder folder;
  const Text values[] = {
      u"plain",
      u"",
      u" ",
      u"  blanks at both ends  ",
      u"\ttabs\t",
      u"\"quoted\"",
      u"\"",
      u"; # no = comment []",
      u"Z:\\games\\BC\\",
      u"first\r\nsecond\n",
      u"<<<END",
      u"100 % %41 %u0041 %",
      u"Ärger € \U0001F680 \xFEFF",
      {u'Z', u':', u'\\', 0xDCFF, 0xDC80, u'x'},
      {0xD800},
      {0xDC00, 0xD83D},
      Text(u"a\0b", 3),
      u"\x7F\x80\x85\x2028",
      Text(100000, u'x'),
  };
  int number = 0;
  for (const Text& value : values) {
    IniSettings(folder.Host("s.ini"), NoJournal()).Write(u"App", u"Section", u"Key", value);
    // A fresh object, and after another entry was written.
    IniSettings settings(folder.Host("s.ini"), NoJournal());
    EXPECT_EQ(settings.Read(u"App", u"Section", u"Key", u"fallback"), value) << number;
    settings.Write(u"App", u"Section", u"Other", u"x");
    EXPECT_EQ(settings.Read(u"APP", u"section", u"KEY", u"fallback"), value) << number++;
  }
}

TEST(IniSettings, TellNamesApart) {
  const TemporaryFolder folder;
  IniSettings settings(folder.Host("s.ini"), NoJournal());
  const Text names[] = {u"a",   u"a/b", u"b",  u" a", u"a ", u"[a]", u"a]",
                        u"a=b", u";a",  u"#a", u"%a", u"ä",  u""};
  for (const Text& name : names) {
    if (!name.empty()) settings.Write(u"App", u"Section", name, u"key " + name);
    settings.Write(name, u"Section", u"Key", u"application " + name);
    settings.Write(u"App", name, u"Key", u"section " + name);
  }
  settings.Write(u"x/y", u"z", u"Key", u"1");
  settings.Write(u"x", u"y/z", u"Key", u"2");
  for (const Text& name : names) {
    const Text byKey = settings.Read(u"App", u"Section", name, u"");
    EXPECT_EQ(byKey, name.empty() ? u"" : u"key " + name);
    EXPECT_EQ(settings.Read(name, u"Section", u"Key", u""), u"application " + name);
    EXPECT_EQ(settings.Read(u"App", name, u"Key", u""), u"section " + name);
  }
  EXPECT_EQ(settings.Read(u"x/y", u"z", u"Key", u""), u"1");
  EXPECT_EQ(settings.Read(u"x", u"y/z", u"Key", u"none"), u"2");
  EXPECT_EQ(settings.Read(u"x", u"z", u"Key", u"none"), u"none");
}

TEST(IniSettings, KeepEntriesOfOthersAndTheFilesMode) {
  const TemporaryFolder folder;
  folder.Put("s.ini", "; ours\n[Other]\nname = \xC3\xA4 \"x\"\n\n[App/Section]\nKey = old\n");
  ASSERT_EQ(chmod(folder.Host("s.ini").c_str(), 0600), 0);
  IniSettings settings(folder.Host("s.ini"), NoJournal());
  EXPECT_EQ(settings.Read(u"App", u"Section", u"Key", u""), u"old");
  settings.Write(u"App", u"Section", u"Key", u"new");
  const std::string bytes = folder.Get("s.ini");
  for (const char* kept : {"; ours", "[Other]", "name = \xC3\xA4 \"x\"", "Key = new"}) {
    EXPECT_NE(bytes.find(kept), std::string::npos) << kept << " in " << bytes;
  }
  struct stat state {};
  ASSERT_EQ(stat(folder.Host("s.ini").c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 07777, 0600u);
}

TEST(IniSettings, ReplaceNothingThatTheyCantRead) {
  const TemporaryFolder folder;
  folder.Put("folder.ini/x", "");
  folder.Put("nul.ini", std::string("[A/B]\nKey = 1\n\0[C]\nKey = 2\n", 27));
  folder.Put("readonly.ini", "[A/B]\nKey = 1\n");
  ASSERT_EQ(chmod(folder.Host("readonly.ini").c_str(), 0444), 0);
  const struct {
    const char* Name;
    int Code;
    TextView Read;
  } cases[] = {
      {"folder.ini", EISDIR, u"fallback"},
      {"nul.ini", EILSEQ, u"fallback"},
      {"readonly.ini", EACCES, u"1"},
      {"readonly.ini/below.ini", ENOTDIR, u"fallback"},
  };
  for (const auto& [name, code, read] : cases) {
    IniSettings settings(folder.Host(name), NoJournal());
    EXPECT_EQ(settings.Read(u"A", u"B", u"Key", u"fallback"), read) << name;
    EXPECT_EQ(CodeOf([&] { settings.Write(u"A", u"B", u"Key", u"2"); }), code) << name;
  }
  EXPECT_EQ(folder.Get("nul.ini").size(), 27u);
  EXPECT_EQ(folder.Get("readonly.ini"), "[A/B]\nKey = 1\n");
}

TEST(IniSettings, MakeTheirFoldersBySettingOnly) {
  const TemporaryFolder folder;
  IniSettings settings(folder.Host("a/b/s.ini"), NoJournal());
  EXPECT_EQ(settings.Read(u"A", u"B", u"Key", u"fallback"), u"fallback");
  EXPECT_FALSE(fs::exists(folder.Host("a")));
  settings.Write(u"A", u"B", u"Key", u"1");
  EXPECT_EQ(settings.Read(u"A", u"B", u"Key", u"fallback"), u"1");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Host("a/b")), {}), 1);
}

/// Sets a variable of the environment for as long as it lives.
TEST(IniSettings, AreGivenUpWhenAnotherProcessKeepsThem) {
  const TemporaryFolder folder;
  IniSettings settings(folder.Host("s.ini"), NoJournal());
  settings.Write(u"App", u"Section", u"Key", u"1");
  const Descriptor other = OpenDescriptor(folder.Host(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(flock(other.Get(), LOCK_EX), 0);
  EXPECT_EQ(CodeOf([&] { settings.Write(u"App", u"Section", u"Key", u"2"); }), EAGAIN);
  EXPECT_EQ(settings.Read(u"App", u"Section", u"Key", u""), u"1");
}

TEST(IniSettings, NoteTheirTemporariesInTheJournal) {
  const TemporaryFolder folder;
  const auto state = std::make_shared<PosixState>(std::vector{folder.Host("journal")});
  IniSettings(folder.Host("s.ini"), state).Write(u"App", u"Section", u"Key", u"1");
  EXPECT_EQ(folder.Entries("journal"), 1u);
}

class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(UserFolders, FollowTheBaseDirectories) {
  const Variable home("HOME", "/home/me");
  const struct {
    const char* Base;
    const char* Journal;
    const char* Settings;
  } cases[] = {
      {nullptr, "/home/me/.local/state/tarvo-packager",
       "/home/me/.config/tarvo-packager/settings.ini"},
      {"relative", "/home/me/.local/state/tarvo-packager",
       "/home/me/.config/tarvo-packager/settings.ini"},
      {"/base", "/base/tarvo-packager", "/base/tarvo-packager/settings.ini"},
  };
  for (const auto& [base, journal, settings] : cases) {
    const Variable state("XDG_STATE_HOME", base);
    const Variable config("XDG_CONFIG_HOME", base);
    EXPECT_EQ(DefaultJournalFolders().front(), journal);
    EXPECT_EQ(DefaultSettingsFile(), settings);
  }
}

}  // namespace
}  // namespace tarvo::test
