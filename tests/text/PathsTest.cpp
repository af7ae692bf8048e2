#include <gtest/gtest.h>

#include "text/Paths.h"

namespace tarvo {
namespace {

TEST(Paths, TakesApart) {
  const struct {
    TextView Path;
    TextView Bare;
    TextView WithoutTail;
  } cases[] = {
      {u"Z:\\games\\bc", u"bc", u"Z:\\games\\bc"},
      {u"Z:\\games\\bc\\\\", u"", u"Z:\\games\\bc"},
      {u"Z:\\", u"", u"Z:\\"},
      {u"Z:", u"Z:", u"Z:\\"},
      {u"\\", u"", u"\\"},
      {u"name", u"name", u"name"},
      {u"", u"", u""},
  };
  for (const auto& [path, bare, withoutTail] : cases) {
    EXPECT_EQ(BareName(path), bare);
    EXPECT_EQ(FolderWithoutTail(path), withoutTail);
  }
}

TEST(Paths, JoinsWithOneBackslash) {
  for (const TextView root : {u"Z:\\bc", u"Z:\\bc\\", u"Z:\\bc\\\\"}) {
    for (const TextView part : {u"data\\x", u"\\data\\x", u"\\\\data\\x"}) {
      EXPECT_EQ(JoinPath(root, part), u"Z:\\bc\\data\\x");
    }
  }
  EXPECT_EQ(JoinPath(u"Z:\\", u"x"), u"Z:\\x");
}

}  // namespace
}  // namespace tarvo
