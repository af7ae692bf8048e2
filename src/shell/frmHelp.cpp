#include "shell/frmHelp.h"

#include "controls/Palette.h"
#include "controls/Placing.h"
#include "platform/Windows.h"

namespace tarvo {
namespace {

constexpr TextView kWebAddress = u"" TARVO_WEB_ADDRESS;
constexpr TextView kMailAddress = u"" TARVO_MAIL_ADDRESS;

void PlaceLink(Button& link, int top) {
  Place(link, {}, kTransparent, 2400, top, 3840);
  link.ForeColour = palette::kBlue;
  link.Link = true;
}

}  // namespace

frmHelp::frmHelp(Application& app) : Form(Style::Dialog, app.MainForm), app_(app) {
  Caption = u"Tarvo Help Infomation...";
  HelpPage = u"help.html";
  LayOut();
  ShowAddresses(kWebAddress, kMailAddress);
  cmdOk.OnClick = [this] { app_.screens.Close(*this); };
}

/// With no web page the manual is what there is to visit.
void frmHelp::ShowAddresses(TextView web, TextView mail) {
  lblLinkTarvo.Caption = web.empty() ? u"The manual on this computer" : Text(web);
  lblLinkTarvo.OnClick = [this, page = Text(web)] {
    page.empty() ? app_.machine.windows.ShowManual({}) : Open(page);
  };
  lblEmail.Caption = Text(mail);
  lblEmail.OnClick = [this, address = Text(mail)] { Open(u"mailto:" + address); };
  Label2.Visible = lblEmail.Visible = !mail.empty();
}

void frmHelp::LayOut() {
  Move(0, 0, 6480, 3060);
  Image1.Picture = u":/icon/256.png";
  Image1.Move(240, 345, 1920, 1920);
  Place(Label1, u"For Help with Tarvo, please visit:", 2400, 300, 3840);
  PlaceLink(lblLinkTarvo, 570);
  Place(Label2, u"If you wish to contact me, you can do so at:", 2400, 1260, 3840);
  PlaceLink(lblEmail, 1530);
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
