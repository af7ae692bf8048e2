#include <gtest/gtest.h>
#include <windows.h>

#include "platform/PlatformError.h"
#include "platform/windows/RegistryValues.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsSettings.h"
#include "support/CodeOf.h"
#include "support/RunProgram.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// A key of the test's own in both views of the machine's part, and an application in the user's.
class WindowsRegistryTest : public testing::Test {
 protected:
  void TearDown() override {
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
      RegDeleteKeyExW(HKEY_LOCAL_MACHINE, Wide(key).c_str(), view, 0);
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, Wide(u"Software\\" + application).c_str());
  }

  /// Stores a text as another program does.
  void Add(const std::string& view, const std::string& name, const std::string& text) {
    const Ran ran = RunProgram(
        {"reg", "add", "HKLM\\" + Utf8FromText(key), "/v", name, "/d", text, "/f", "/reg:" + view});
    ASSERT_EQ(ran.Status, 0) << name;
  }

  /// Stores bytes as they are, in the view of a 32-bit program.
  void Store(TextView name, DWORD type, std::string_view bytes) {
    HKEY handle = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(key).c_str(), 0, nullptr, 0,
                              KEY_SET_VALUE | KEY_WOW64_32KEY, nullptr, &handle, nullptr),
              ERROR_SUCCESS);
    const OpenedKey opened(handle);
    ASSERT_EQ(RegSetValueExW(handle, Wide(name).c_str(), 0, type,
                             reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }

  const Text number = TextFromUtf8(std::to_string(GetCurrentProcessId()));
  const Text key = u"Software\\Tarvo tests " + number;
  const Text application = u"Tarvo tests " + number;
  WindowsRegistry registry;
  WindowsSettings settings;
};

std::string Bytes(TextView text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

TEST_F(WindowsRegistryTest, ShowsTheViewOf32BitPrograms) {
  const std::string folder = "C:\\Spiele\\Br\u00FCcke \u65E5\u672C \U0001F680";
  ASSERT_NO_FATAL_FAILURE(Add("64", "InstallPath", "C:\\wrong"));
  ASSERT_NO_FATAL_FAILURE(Add("64", "Only64", "C:\\wrong"));
  EXPECT_EQ(CodeOf([&] { registry.OpenKey(kLocalMachine, key); }), ERROR_FILE_NOT_FOUND);
  ASSERT_NO_FATAL_FAILURE(Add("32", "InstallPath", folder));
  const auto opened = registry.OpenKey(kLocalMachine, u"SOFTWARE" + key.substr(8));
  EXPECT_EQ(opened->Query(u"INSTALLPATH")->String, TextFromUtf8(folder));
  EXPECT_EQ(opened->Query(u"Only64"), std::nullopt);
}

TEST_F(WindowsRegistryTest, ReadsValuesHoweverProgramsStoreThem) {
  const std::string longText = Bytes(Text(40000, u'x'));
  const struct {
    DWORD Type;
    std::string Stored;
    Text String;
    std::string Data;
  } cases[] = {
      {REG_SZ, Bytes(Text(u"C:\\BC\\\0", 7)), u"C:\\BC\\", {}},
      {REG_SZ, Bytes(u"unterminated"), u"unterminated", {}},
      {REG_SZ, Bytes(u"odd") + "y", u"odd", {}},
      {REG_SZ, "y", u"", {}},
      {REG_SZ, "", u"", {}},
      {REG_SZ, Bytes(Text(1, u'\0')), u"", {}},
      {REG_SZ, Bytes(Text(u"a\0b\0", 4)), Text(u"a\0b", 3), {}},
      {REG_SZ, longText, Text(40000, u'x'), {}},
      {REG_BINARY, std::string("\x34\x12\0", 3), {}, std::string("\x34\x12\0", 3)},
      {REG_BINARY, "", {}, ""},
      {REG_DWORD, "\1\2\3\4", {}, "\1\2\3\4"},
      {REG_EXPAND_SZ, Bytes(Text(u"%x%\0", 4)), {}, Bytes(Text(u"%x%\0", 4))},
      {77, "abc", {}, "abc"},
  };
  int at = 0;
  for (const auto& [type, stored, string, data] : cases) {
    ASSERT_NO_FATAL_FAILURE(Store(u"Value", type, stored));
    const auto value = registry.OpenKey(kLocalMachine, key)->Query(u"value");
    ASSERT_TRUE(value) << at;
    EXPECT_EQ(value->Type, type) << at;
    EXPECT_EQ(value->String, string) << at;
    EXPECT_EQ(value->Data, data) << at++;
  }
}

TEST_F(WindowsRegistryTest, TellsAKeyThatIsntThereByItsFullName) {
  try {
    registry.OpenKey(kLocalMachine, key + u"\\None");
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.Operation, u"open");
    EXPECT_EQ(error.Path, u"HKEY_LOCAL_MACHINE\\" + key + u"\\None");
    EXPECT_EQ(error.Code, ERROR_FILE_NOT_FOUND);
  }
}

TEST_F(WindowsRegistryTest, SettingsGiveTextsBackExactly) {
  const Text values[] = {u"plain",          u"",
                         u"  blanks  ",     u"first\r\nsecond\n",
                         u"C:\\BC\\",       u"Ärger € \U0001F680 \xFEFF",
                         {0xD800},          Text(u"a\0b", 3),
                         Text(100000, u'x')};
  EXPECT_EQ(settings.Read(application, u"Section", u"Key", u"fallback"), u"fallback");
  for (const Text& value : values) {
    settings.Write(application, u"Section", u"Key", value);
    settings.Write(application, u"Section", u"Other", u"x");
    settings.Write(application, u"Other", u"Key", u"y");
    EXPECT_EQ(WindowsSettings().Read(application, u"SECTION", u"KEY", u"fallback"), value);
  }
  EXPECT_EQ(settings.Read(application, u"Section", u"None", u"fallback"), u"fallback");
  EXPECT_EQ(settings.Read(application + u"x", u"Section", u"Key", u"fallback"), u"fallback");
}

TEST_F(WindowsRegistryTest, SettingsTakeNoValueOfAnotherType) {
  settings.Write(application, u"Section", u"Key", u"1");
  const DWORD number = 1;
  const std::wstring path = Wide(u"Software\\" + application + u"\\Section");
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), L"Key", REG_DWORD, &number, 4),
            ERROR_SUCCESS);
  EXPECT_EQ(settings.Read(application, u"Section", u"Key", u"fallback"), u"fallback");
}

TEST_F(WindowsRegistryTest, SettingsTellWhatTheyCantWrite) {
  settings.Write(application, u"Section", u"Key", u"before");
  const Text tooLong(300, u'x');
  try {
    settings.Write(application, tooLong, u"Key", u"1");
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.Operation, u"write");
    EXPECT_EQ(error.Path,
              u"HKEY_CURRENT_USER\\Software\\" + application + u"\\" + tooLong + u"\\Key");
    EXPECT_NE(error.Code, ERROR_SUCCESS);
  }
  EXPECT_EQ(settings.Read(application, tooLong, u"Key", u"fallback"), u"fallback");
  EXPECT_EQ(settings.Read(application, u"Section", u"Key", u"fallback"), u"before");
}

}  // namespace
}  // namespace tarvo::test
