#include "gametools/ShipTesting.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

class ShipLists : public ShipScreen {};

TEST_F(ShipLists, TellShipsFromWhatElseLiesInTheFolder) {
  for (const TextView file : {u"b.py", u"A.py", u"A.pyc", u"A.Disabled", u"__init__.py",
                              u"__INIT__.pyc", u".py", u".Disabled", u"Custom.py", u"Upper.PY",
                              u"both.py", u"low.disabled", u"x.py.py", u"note.txt", u"empty.py"}) {
    machine.WriteFile(Plugin(file), file == u"empty.py" ? "" : "x");
  }
#ifndef _WIN32
  // Windows takes no such names.
  for (const char* file : {"both.PY", "odd\tname.py", "star*.py"}) {
    machine.folder.Put(std::string("game/Scripts/custom/ships/") + file, "x");
  }
#endif
  frmGameTools& screen = Open();
  EXPECT_EQ(Items(screen.lstEnabled),
            (Texts{u"A", u"b", u"both", u"Custom", u"empty", u"Upper", u"x"}));
  EXPECT_EQ(Items(screen.lstDisabled), (Texts{u"A", u"low"}));
  EXPECT_EQ(Items(screen.FileList4), machine.disk->FileNames(Plugin(u""), u"*.py"));
  screen.FillShipList();
  Texts names;
  for (std::size_t row = 0; row < screen.cboShipName.Count(); ++row) {
    names.push_back(screen.cboShipName.Item(row));
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Texts{u"A", u"Upper", u"b", u"both", u"empty", u"x"}));
  EXPECT_EQ(machine.Bytes(Plugin(u"empty.py")), "");
}

TEST_F(ShipLists, NamesOnlyComeAndNoneTwice) {
  AddShip(u"A");
  frmGameTools& screen = Open();
  screen.FillShipList();
  AddShip(u"B");
  machine.disk->Remove(Plugin(u"A.py"));
  screen.FillShipList();
  screen.FillShipList();
  ASSERT_EQ(screen.cboShipName.Count(), 2u);
  EXPECT_EQ(screen.cboShipName.Item(1), u"B");
}

}  // namespace
}  // namespace tarvo::test
