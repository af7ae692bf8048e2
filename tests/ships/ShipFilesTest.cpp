#include <gtest/gtest.h>

#include "ships/ShipFiles.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

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
