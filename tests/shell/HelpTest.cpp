#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "shell/frmAbout.h"
#include "shell/frmHelp.h"
#include "shell/frmMainMenu.h"

namespace tarvo::test {
namespace {

class HelpAndAbout : public testing::Test {
 protected:
  /// The user opens a dialog from the main menu and does something in it.
  template <class Dialog>
  void In(Button& opener, const std::function<void(Dialog&)>& doing) {
    bool seen = false;
    machine.atDialog = [&](Form& form) {
      auto& dialog = dynamic_cast<Dialog&>(form);
      seen = dialog.Visible;
      doing(dialog);
      EXPECT_EQ(dialog.DefaultButton.Get(), &dialog.cmdOk);
      dialog.CancelButton.Get()->Press();
    };
    opener.Press();
    EXPECT_TRUE(seen);
    EXPECT_EQ(machine.app.screens.Find<Dialog>(), nullptr);
    machine.Turn();
  }

  TestMachine machine;
  frmMain& main = machine.Start();
  frmMainMenu& menu = *machine.app.screens.Find<frmMainMenu>();
};

TEST_F(HelpAndAbout, LinksOpenWhatTheyShow) {
  machine.canOpen = true;
  machine.sound.Orders.clear();
  for (const bool configured : {true, false}) {
    In<frmHelp>(menu.lblHelp, [&](frmHelp& help) {
      if (configured) {
        help.ShowAddresses(u"https://page", u"me@home");
      } else {
        help.ShowAddresses({}, {});
      }
      EXPECT_EQ(help.lblLinkTarvo.Caption == u"https://page", configured);
      help.lblLinkTarvo.Press();
      help.lblEmail.Press();
    });
  }
  EXPECT_EQ(machine.opened, (std::vector<Text>{u"https://page", u"mailto:me@home", u"the manual"}));
  EXPECT_TRUE(machine.boxes.empty());
  EXPECT_TRUE(machine.sound.Orders.empty());
}

TEST_F(HelpAndAbout, AnAddressThatNothingOpensIsToldToBeCopied) {
  In<frmHelp>(menu.lblHelp, [&](frmHelp& help) {
    help.ShowAddresses({}, u"me@home");
    help.lblEmail.Press();
    ASSERT_EQ(machine.boxes.size(), 1u);
    EXPECT_TRUE(
        machine.boxes[0].Message.ends_with(u"\r\n\r\nmailto:" + help.lblEmail.Caption.Get()));
  });
}

TEST_F(HelpAndAbout, AboutTellsTheProgramAndItsVersion) {
  In<frmAbout>(menu.imgLogo, [](frmAbout& about) {
    EXPECT_EQ(about.Caption.Get(), u"About Tarvo Packager");
    EXPECT_EQ(about.lblTitle.Caption.Get(), u"Tarvo Packager");
    EXPECT_EQ(about.lblVersion.Caption.Get(), u"Version: Beta " TARVO_VERSION);
    EXPECT_EQ(about.lblDescription.Caption.Get(),
              u"This application is used to help add new ships into Bridge Commander\r\n\r\n"
              u"Design, Programming and Implementation:\r\nOrsen Vahl\r\n");
  });
}

TEST_F(HelpAndAbout, SystemInfoRunsTheToolThatTheRegistryKnowsOrTheDesktop) {
  constexpr TextView kTool = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
  constexpr TextView kFolder = u"SOFTWARE\\Microsoft\\Shared Tools Location";
  const Text folder = machine.folder.Game(u"shared");
  struct Case {
    const char* what;
    bool named, located, present, runs, onDesktop;
    Text run;  ///< Empty for the message alone.
  };
  const Text inFolder = folder + u"\\MSINFO32.EXE";
  for (const Case& c :
       {Case{"nothing known", false, false, true, true, false, u""},
        Case{"named", true, true, true, true, true, u"Z:\\tool.exe"},
        Case{"in its folder", false, true, true, true, false, inFolder},
        Case{"gone from its folder", false, true, false, true, false, u""},
        Case{"named, but can't be run", true, false, false, false, false, u"Z:\\tool.exe"},
        Case{"on the desktop alone", false, false, false, true, true, u"the desktop's own"}}) {
    SCOPED_TRACE(c.what);
    machine.registry = {};
    if (c.named) machine.registry.SetText(kTool, u"PATH", u"Z:\\tool.exe");
    if (c.located) machine.registry.SetText(kFolder, u"MSINFO", folder);
    if (c.present) machine.WriteFile(inFolder, "tool");
    if (!c.present && machine.disk->FileExists(inFolder)) machine.disk->Remove(inFolder);
    machine.canOpen = c.runs;
    machine.hasInfo = c.onDesktop;
    main.ShowStatus({});
    machine.opened.clear();
    machine.boxes.clear();
    In<frmAbout>(menu.imgLogo, [](frmAbout& about) { about.cmdSysInfo.Press(); });
    EXPECT_EQ(machine.opened, c.run.empty() ? std::vector<Text>{} : std::vector<Text>{c.run});
    const TestMachine::Box box{u"System Information Is Unavailable At This Time", BoxIcon::Plain};
    const bool told = c.run.empty() || !c.runs;
    EXPECT_EQ(machine.boxes,
              told ? std::vector<TestMachine::Box>{box} : std::vector<TestMachine::Box>{});
    EXPECT_EQ(main.StatusBar.Panel1.Get().empty(), !told) << "the reason";
  }
}

}  // namespace
}  // namespace tarvo::test
