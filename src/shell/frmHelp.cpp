#include "shell/frmHelp.h"

#include "controls/Palette.h"
#include "controls/Placing.h"
#include "platform/Windows.h"

namespace tarvo {
namespace {

constexpr TextView kWebAddress = u"" TARVO_WEB_ADDRESS;
constexpr TextView kMailAddress = u"" TARVO_MAIL_ADDRESS;

void PlaceLink(Button& link, TextView address, int top) {
  Place(link, address, kTransparent, 2400, top, 3840);
  link.ForeColour = palette::kBlue;
  link.Link = true;
}

}  // namespace

frmHelp::frmHelp(Application& app) : Form(Style::Dialog, app.MainForm), app_(app) {
  Caption = u"Tarvo Help Infomation...";
  HelpPage = u"help.html";
  LayOut();
  lblLinkTarvo.OnClick = [this] { Open(Text(kWebAddress)); };
  lblEmail.OnClick = [this] { Open(u"mailto:" + Text(kMailAddress)); };
  cmdOk.OnClick = [this] { app_.screens.Close(*this); };
}

void frmHelp::LayOut() {
  Move(0, 0, 6480, 3060);
  Image1.Picture = u":/icon/256.png";
  Image1.Move(240, 345, 1920, 1920);
  Place(Label1, u"For Help with Tarvo, please visit:", 2400, 300, 3840);
  PlaceLink(lblLinkTarvo, kWebAddress, 570);
  Place(Label2, u"If you wish to contact me, you can do so at:", 2400, 1260, 3840);
  PlaceLink(lblEmail, kMailAddress, 1530);
  for (Control* text :
       std::initializer_list<Control*>{&Label1, &lblLinkTarvo, &Label2, &lblEmail}) {
    text->Font = {FontRole::Normal, 9};
  }
  Label1.Alignment = Label::Align::Centre;
  Label2.Alignment = Label::Align::Centre;
  Place(cmdOk, u"&OK", palette::kOrange, 4590, 2460, 1650);
  DefaultButton = &cmdOk;
  CancelButton = &cmdOk;
}

void frmHelp::Load() {
  PlaceOver(*this, app_.MainForm);
  cmdOk.SetFocus();
}

void frmHelp::Open(const Text& address) {
  if (app_.machine.windows.OpenAddress(address)) return;
  app_.machine.windows.ShowMessage(
      u"There is no program to open this address with. You can copy it from here:\r\n\r\n" +
          address,
      u"Tarvo Packager", BoxIcon::Exclamation);
}

}  // namespace tarvo
