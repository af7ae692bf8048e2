#include "desktop/Skin.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QPalette>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "controls/Palette.h"
#include "desktop/LastInput.h"
#include "desktop/SkinStyle.h"

namespace tarvo {
namespace {

/// The contrast of a short caption that the pointer is on: 3, and what thin strokes lose of it.
constexpr double kLegible = 3.2;

/// To the eye, 0.05 (black) to 1.05.
double Brightness(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF()) + 0.05;
}

struct Face {
  const char* family;
  QFont::Weight weight;
};

/// The faces of a role, the wanted one first. The weight belongs to the face: a Medium stands for
/// itself, its substitute only comes near it as a DemiBold.
QFont FirstInstalled(std::initializer_list<Face> faces) {
  for (const Face& face : faces) {
    const QString family = QString::fromLatin1(face.family);
    if (!QFontDatabase::hasFamily(family)) continue;
    QFont font(family);
    font.setWeight(face.weight);
    // As most desktops have it; some would move the letters of a word apart.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
  }
  return {};
}

QFont FaceOf(FontRole role) {
  switch (role) {
    case FontRole::Digits:
      return FirstInstalled(
          {{"Arial Narrow", QFont::Normal}, {"Liberation Sans Narrow", QFont::Normal}});
    case FontRole::Dialog:
      return FirstInstalled({{"Comic Sans MS", QFont::Normal}, {"Comic Neue", QFont::Normal}});
    case FontRole::Normal:
      break;
  }
  return FirstInstalled({{"Franklin Gothic Medium", QFont::Normal},
                         {"Open Sans", QFont::DemiBold},
                         {"Libre Franklin", QFont::Medium}});
}

/// What was brought along for machines that may lack the faces.
void AddFontsOfTheProgram() {
  const QDir folder(QApplication::applicationDirPath() + QStringLiteral("/Fonts"));
  for (const QString& file : folder.entryList(QDir::Files)) {
    QFontDatabase::addApplicationFont(folder.filePath(file));
  }
}

QPalette DarkPalette() {
  const QColor ground = ToQt(palette::kPanel);
  const QColor text = ToQt(palette::kPeach);
  QPalette dark(ToQt(palette::kOrange), ground);
  dark.setColor(QPalette::Base, ground);
  dark.setColor(QPalette::AlternateBase, Mix(ground, text, 0.06));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ToolTipText}) {
    dark.setColor(role, text);
  }
  dark.setColor(QPalette::ToolTipBase, Mix(ground, text, 0.12));
  dark.setColor(QPalette::PlaceholderText, Mix(text, ground, 0.5));
  dark.setColor(QPalette::ButtonText, Qt::black);
  dark.setColor(QPalette::Highlight, ToQt(palette::kOrange));
  dark.setColor(QPalette::HighlightedText, Qt::black);
  dark.setColor(QPalette::Link, ToQt(palette::kBlue));
  dark.setColor(QPalette::LinkVisited, ToQt(palette::kViolet));
  return dark;
}

}  // namespace

QString ToQt(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

QString Printable(TextView text) {
  QString line = ToQt(text);
  for (QChar& unit : line) {
    if (!unit.isPrint() && !unit.isSurrogate()) unit = QChar::ReplacementCharacter;
  }
  return line;
}

Text FromQt(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

QColor ToQt(const Colour& colour) {
  return {colour.Red, colour.Green, colour.Blue, colour.Alpha};
}

QFont ToQt(const Font& font) {
  static const std::array faces{FaceOf(FontRole::Normal), FaceOf(FontRole::Digits),
                                FaceOf(FontRole::Dialog)};
  QFont result = faces.at(static_cast<std::size_t>(font.Role));
  result.setPixelSize(std::max(1, qRound(font.Points * 96 / 72)));
  return result;
}

int ToPixels(int twips) {
  return qRound(twips / 15.0);
}

QRect PixelRect(const Control& control) {
  const QPoint first(ToPixels(control.Left), ToPixels(control.Top));
  const QPoint behind(ToPixels(control.Left + control.Width),
                      ToPixels(control.Top + control.Height));
  return {first, behind - QPoint(1, 1)};
}

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto part = [&](double from, double to) {
    return static_cast<float>(from + (to - from) * share);
  };
  return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()),
                          part(a.blueF(), b.blueF()), part(a.alphaF(), b.alphaF()));
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Brightness(a), Brightness(b)});
  return light / dark;
}

QColor LegibleLight(const QColor& caption, const QColor& ground) {
  QColor light = Brightness(caption) < Brightness(ground) ? Qt::white : Qt::black;
  float share = 0;
  const auto laid = [&] {
    light.setAlphaF(share);
    return Lit(ground, light);
  };
  while (share < 0.95F && Contrast(caption, laid()) < kLegible) share += 0.05F;
  return light;
}

QColor Lit(const QColor& colour, const QColor& light) {
  return Mix(colour, QColor(light.red(), light.green(), light.blue(), colour.alpha()),
             light.alphaF());
}

void ApplySkin(QApplication& application) {
  LastInput::Watch(application);
  AddFontsOfTheProgram();
  application.setStyle(new SkinStyle);
  const QPalette dark = DarkPalette();
  application.setPalette(dark);
  application.setFont(ToQt(Font{FontRole::Normal, 9.75}));
  QToolTip::setPalette(dark);
}

}  // namespace tarvo
