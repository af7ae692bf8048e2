#include <QApplication>
#include <QCursor>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>

#include "Desk.h"
#include "controls/RowPanel.h"
#include "desktop/Skin.h"
#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"
#include "packages/frmPackager.h"
#include "shell/frmAbout.h"
#include "shell/frmHelp.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "shiptgl/frmTGLTools.h"

namespace tarvo::test {
namespace {

constexpr double kAtRest = 4.5;
constexpr double kUnderPointer = 3;
constexpr int kRowHeight = 22;

/// The whole application with its real windows and pictures; its dialogs are answered by script.
class ShownMachine : public TestMachine {
 public:
  ShownMachine() {
    forms_.SetScreens(app.screens);
    std::filesystem::create_directories(folder.Host("program"));
    std::filesystem::create_directory_symlink(TARVO_DATA "/Gfx", folder.Host("program/Gfx"));
  }
  void Made(Form& form) override { forms_.Made(form); }
  void Closed(Form& form) override { forms_.Closed(form); }
  int TextHeight(const Label& label) override { return forms_.TextHeight(label); }

 private:
  QtForms forms_;
};

/// Relative luminance as the accessibility guidelines define it, 0 to 1.
double Luminance(QRgb colour) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
         0.0722 * linear(qBlue(colour));
}

double Ratio(QRgb a, QRgb b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

/// The contrast of a text with its ground, the commonest colour of the picture. The text's colour
/// is that of the pixels farthest from it; the strokes of letters make up more than a fiftieth.
double ContrastIn(const QImage& image) {
  std::map<QRgb, int> counts;
  std::vector<QRgb> pixels;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) pixels.push_back(image.pixel(x, y));
  }
  for (const QRgb pixel : pixels) ++counts[pixel];
  const QRgb ground = std::max_element(counts.begin(), counts.end(), [](auto& a, auto& b) {
                        return a.second < b.second;
                      })->first;
  std::vector<double> ratios;
  for (const QRgb pixel : pixels) ratios.push_back(Ratio(pixel, ground));
  const auto rank = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 50);
  std::nth_element(ratios.begin(), rank, ratios.end(), std::greater());
  return *rank;
}

double MeanLuminance(const QImage& image) {
  double sum = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) sum += Luminance(image.pixel(x, y));
  }
  return sum / (image.width() * image.height());
}

struct Writing {
  Text Words;
  QRect Area;  ///< Of its first line, on its control.
};

/// A line of text that stands at the left, in the middle or at the right of an area.
Writing Line(const Text& words, const Control& control, const QRect& area, Qt::Alignment side) {
  QString first = ToQt(words).section(QLatin1Char('\r'), 0, 0);
  first.remove(QLatin1Char('&'));
  const QFontMetrics metrics(ToQt(control.Font));
  const QSize size(std::min(metrics.horizontalAdvance(first), area.width()),
                   std::min(metrics.height(), area.height()));
  QRect line(QPoint(0, 0), size);
  line.moveCenter(area.center());
  if (side == Qt::AlignLeft) line.moveLeft(area.left());
  if (side == Qt::AlignRight) line.moveRight(area.right());
  return {FromQt(first), line};
}

/// What is written on the control; no words where nothing is.
Writing WritingOn(const Control& control) {
  const QRect whole({0, 0}, PixelRect(control).size());
  const QRect row(8, 3, whole.width() - 30, kRowHeight);
  if (const auto* button = dynamic_cast<const Button*>(&control)) {
    return Line(button->Caption, control, whole, Qt::AlignHCenter);
  }
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    const QRect top =
        label->WordWrap ? whole.adjusted(0, 0, 0, kRowHeight - whole.height()) : whole;
    return Line(label->Caption, control, top,
                label->Alignment == Label::Align::Left    ? Qt::AlignLeft
                : label->Alignment == Label::Align::Right ? Qt::AlignRight
                                                          : Qt::AlignHCenter);
  }
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    return Line(box->Caption, control, whole.adjusted(25, 0, 0, 0), Qt::AlignLeft);
  }
  if (const auto* field = dynamic_cast<const TextBox*>(&control)) {
    return Line(field->Text(), control, field->MultiLine ? row : whole.adjusted(8, 0, -8, 0),
                Qt::AlignLeft);
  }
  if (const auto* drop = dynamic_cast<const ComboBox*>(&control)) {
    return Line(drop->Text(), control, whole.adjusted(8, 0, -30, 0), Qt::AlignLeft);
  }
  if (const auto* list = dynamic_cast<const ListBox*>(&control); list && list->Count() > 0) {
    return Line(list->Item(0), control, row, Qt::AlignLeft);
  }
  if (const auto* panel = dynamic_cast<const RowPanel*>(&control)) {
    const RowPanel::Row* menu = panel->Seen({RowPanel::Family::Menu, 1});
    if (!menu) return {};
    const RowPanel::Area& area = menu->CaptionArea;
    return Line(
        menu->Caption, control,
        {ToPixels(area.Left), ToPixels(area.Top), ToPixels(area.Width), ToPixels(area.Height)},
        Qt::AlignLeft);
  }
  return {};
}

class Contrast : public Desk {
 protected:
  /// Measures all that is written on a form and can be worked with.
  void Measure(const char* screen, const Form& form) {
    Turn(40);
    Rest(form);
    MeasureChildren(screen, form, form);
  }

  std::string failed_;
  int measured_ = 0;
  int lit_ = 0;

 private:
  void MeasureChildren(const char* screen, const Form& form, const Control& parent) {
    for (const Control* child : parent.Children()) {
      if (child->Usable()) MeasureControl(screen, form, *child);
      const auto* button = dynamic_cast<const Button*>(child);
      if (button && button->Usable() && !button->Flat && !button->FocusPicture.Get().empty()) {
        MeasureLight(screen, form, *button);
      }
      MeasureChildren(screen, form, *child);
    }
  }

  void MeasureControl(const char* screen, const Form& form, const Control& control) {
    const Writing writing = WritingOn(control);
    QWidget* window = WindowOf(TopOf(form));
    if (writing.Words.empty() || !window) return;
    const QRect area = writing.Area.translated(Corner(form, control));
    if (area.isEmpty() || !window->rect().contains(area)) return;
    ++measured_;
    const auto judge = [&](const char* state, double least) {
      const double found = ContrastIn(window->grab(area).toImage());
      if (found >= least) return;
      failed_ += std::string(screen) + ": \"" + ToQt(writing.Words).toStdString() + "\" " + state +
                 " has " + QString::number(found, 'f', 2).toStdString() + " : 1\n";
    };
    judge("at rest", kAtRest);
    QCursor::setPos(window->mapToGlobal(area.center()));
    Turn(25);
    judge("under the pointer", kUnderPointer);
    Rest(form);
  }

  /// What the pointer lights is brighter than at rest.
  void MeasureLight(const char* screen, const Form& form, const Button& button) {
    QWidget* window = WindowOf(TopOf(form));
    const QRect area(Corner(form, button), PixelRect(button).size());
    if (!window || !window->rect().contains(area)) return;
    ++lit_;
    const double before = MeanLuminance(window->grab(area).toImage());
    QCursor::setPos(window->mapToGlobal(area.center()));
    Turn(25);
    if (MeanLuminance(window->grab(area).toImage()) <= before) {
      failed_ += std::string(screen) + ": \"" + ToQt(button.Caption).toStdString() +
                 "\" isn't brighter under the pointer\n";
    }
    Rest(form);
  }

  /// The pointer goes to the edge of the form, past what lies under all controls.
  void Rest(const Form& form) {
    const QWidget* window = WindowOf(TopOf(form));
    if (!window) return;
    QCursor::setPos(window->mapToGlobal(Corner(form, form) + QPoint(2, 2)));
    Turn(25);
  }

  static const Form& TopOf(const Form& form) {
    return form.Kind() == Form::Style::Child ? *form.Owner() : form;
  }

  /// Where the control begins in its window.
  static QPoint Corner(const Form& form, const Control& control) {
    QPoint corner;
    for (const Control* at = &control; at && at != &form; at = at->Parent()) {
      corner += PixelRect(*at).topLeft();
    }
    return form.Kind() == Form::Style::Child ? corner + PixelRect(form).topLeft() : corner;
  }
};

/// A game with a ship, its definition, a package, and one of each thing that lists show.
void Fill(ShownMachine& machine) {
  const Text game = machine.GameFolder();
  machine.WriteFile(game + u"\\scripts\\ships\\Warbird.py", "import App\n");
  machine.WriteFile(game + u"\\scripts\\Custom\\Ships\\Warbird.py", "import Foundation\n");
  machine.WriteFile(game + u"\\scripts\\Custom\\Ships\\Falcon.Disabled", "import Foundation\n");
  machine.WriteFile(game + u"\\sfx\\Weapons\\Phaser.wav", "x");
  machine.WriteFile(machine.ProgramFolder() + u"\\ShipTGLs\\Warbird.TGL", "x");
}

TEST_F(Contrast, AllThatIsWrittenCanBeReadAtRestAndUnderThePointer) {
  ShownMachine machine;
  Fill(machine);
  machine.atDialog = [&](Form& dialog) {
    Measure("A dialog", dialog);
    machine.app.screens.Close(dialog);
  };
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    dialog.Width = 3425;
    Measure("The question", dialog);
  };
  frmMain& main = machine.Start();
  main.Visible = true;
  auto& menu = machine.app.Screen<frmMainMenu>();
  menu.Width = 9465;
  ASSERT_TRUE(Until([&] { return WindowOf(main) != nullptr; }));
  Measure("The window", main);
  Measure("The main menu", menu);
  menu.lblHelp.Press();
  menu.imgLogo.Press();

  const auto unrolled = [&](const char* name, Form& screen) {
    screen.Height = 5065;
    Measure(name, screen);
  };
  menu.lblPackager.Press();
  auto& packager = machine.app.Screen<frmPackager>();
  unrolled("The Packager", packager);
  packager.lblExit.Press();
  menu.lblGameTools.Press();
  auto& game = machine.app.Screen<frmGameTools>();
  unrolled("Ship Plugin", game);
  for (Button* tab : {&game.lblSoundPlugin, &game.lblMenus, &game.lblChecker}) {
    tab->Press();
    Measure(ToQt(tab->Caption).toUtf8().constData(), game);
  }
  game.lblMenus.Press();
  game.lblAddQB.Press();
  game.lblExit3.Press();
  menu.lblTGLTools.Press();
  auto& tgl = machine.app.Screen<frmTGLTools>();
  unrolled("New TGL", tgl);
  for (Button* tab : {&tgl.lblEditTGL, &tgl.lblDeleteTGL, &tgl.lblGameTGL}) {
    tab->Press();
    Measure(ToQt(tab->Caption).toUtf8().constData(), tgl);
  }
  tgl.lblExit.Press();
  menu.lblOptions.Press();
  unrolled("The options", machine.app.Screen<frmOptions>());
  EXPECT_EQ(failed_, "");
  EXPECT_GT(measured_, 120);
  EXPECT_GT(lit_, 30);
}

}  // namespace
}  // namespace tarvo::test
