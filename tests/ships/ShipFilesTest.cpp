#include <gtest/gtest.h>

#include "ships/ShipFiles.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

TEST(ShipFiles, ShipIsTheNameWithoutTheEnding) {
  struct Case {
    TextView file;
    TextView ending;
    TextView ship;
  };
  for (const Case& c :
       {Case{u"Nordlicht.py", kEnabledEnding, u"Nordlicht"}, Case{u"a.py.py", kEnabledEnding, u"a"},
        Case{u"A.b.PY", kEnabledEnding, u"A.b"}, Case{u".py", kEnabledEnding, u""},
        Case{u"a.pyc", kEnabledEnding, u""}, Case{u"py", kEnabledEnding, u""},
        Case{u"x.disabled", kDisabledEnding, u"x"}, Case{u"x.Disabled", kEnabledEnding, u""},
        Case{u"a\tb.py", kEnabledEnding, u""}, Case{u"a\u0085.py", kEnabledEnding, u""},
        Case{u"a*.py", kEnabledEnding, u""},
        Case{u"\u00DCber-1 \u20AC.py", kEnabledEnding, u"\u00DCber-1 \u20AC"}}) {
    EXPECT_EQ(ShipOfFile(c.file, c.ending), c.ship) << Utf8FromText(c.file);
  }
}

TEST(ShipFiles, ShipTakesAllFilesOfItsNameAndNoneOfALongerOne) {
  for (const TextView mine :
       {u"Star.py", u"Star.pyc", u"Star.PYC", u"star.pyc", u"Star.Disabled", u"Star.txt",
        u"Star.py.bak", u"Star.old.zip", u"Star.PY", u"Star.py.py", u"Star."}) {
    EXPECT_TRUE(BelongsToShip(mine, u"Star")) << Utf8FromText(mine);
  }
  for (const TextView other :
       {u"Starling.py", u"Star", u"Star.B.py", u"Star.B.Disabled", u"Star.B.pyc", u"star.py",
        u"STAR.Disabled", u"Sta.py", u"A Star.py", u""}) {
    EXPECT_FALSE(BelongsToShip(other, u"Star")) << Utf8FromText(other);
  }
}

}  // namespace
}  // namespace tarvo::test
