#include <gtest/gtest.h>

#include <cerrno>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"

namespace tarvo {
namespace {

TEST(HostPaths, AreReachedOnDriveZAlone) {
  const struct {
    Text Path;
    std::optional<std::string> Host;
    bool EndsInSeparator = false;
  } cases[] = {
      {u"Z:\\games\\BC", "/games/BC"},
      {u"z:\\games\\\\BC\\", "/games/BC", true},
      {u"Z:", "", true},
      {u"Z:\\", "", true},
      {u"\\games", "/games"},
      {u"Z:/games\\bc", "/games/bc"},
      {u"Z:\\\xDCFFä", "/\xFF\xC3\xA4"},
      {u"C:\\games", std::nullopt},
      {u"\\\\server\\games", std::nullopt},
      {u"games\\bc", std::nullopt},
      {u"Z:games", std::nullopt},
      {u"", std::nullopt},
      {Text(u"Z:\\a\0b", 6), std::nullopt},
  };
  for (const auto& [path, host, endsInSeparator] : cases) {
    const std::optional<HostParts> parts = SplitGamePath(path);
    ASSERT_EQ(parts.has_value(), host.has_value()) << testing::PrintToString(path);
    if (!parts) continue;
    std::string joined;
    for (const std::string& name : parts->Names) joined += '/' + name;
    EXPECT_EQ(joined, *host);
    EXPECT_EQ(parts->EndsInSeparator, endsInSeparator) << testing::PrintToString(path);
  }
}

TEST(HostPaths, BecomeGamePaths) {
  EXPECT_EQ(GamePathOf("/games/BC \xFF"), u"Z:\\games\\BC \xDCFF");
  EXPECT_EQ(GamePathOf("/"), u"Z:\\");
  EXPECT_EQ(GamePathOf("/back\\slash"), u"");
}

TEST(SystemErrors, TurnIntoWords) {
  EXPECT_EQ(Words(PlatformError(u"write", u"Z:\\bc\\x.py", ENOSPC)),
            u"Can't write Z:\\bc\\x.py: No space left on device");
  EXPECT_EQ(Words(PlatformError(u"open", u"Z:\\x", 99999)), u"Can't open Z:\\x: unknown error");
}

}  // namespace
}  // namespace tarvo
