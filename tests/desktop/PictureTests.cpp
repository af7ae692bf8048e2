#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include "Desk.h"
#include "desktop/Pictures.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

/// Pictures as files, by their game paths.
class SkinFiles : public Desk {
 protected:
  QString Put(const QString& name, const QImage& image) {
    EXPECT_TRUE(image.save(folder_.filePath(name)));
    return GamePath(name);
  }
  QString GamePath(const QString& name) const {
    return "Z:" + folder_.filePath(name).replace('/', '\\');
  }

  /// A picture of which no two pixels are alike.
  static QImage Motley(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) image.setPixelColor(x, y, QColor(x, y, 200 - x));
    }
    return image;
  }
  static QImage Drawn(const QString& name, QSize size, PictureFit fit, int density) {
    QImage screen(size * density, QImage::Format_RGB32);
    screen.setDevicePixelRatio(density);
    screen.fill(Qt::black);
    QPainter painter(&screen);
    EXPECT_TRUE(DrawPicture(painter, {QPoint(), size}, name, fit));
    painter.end();
    screen.setDevicePixelRatio(1);
    return screen;
  }

  QTemporaryDir folder_;
};

TEST_F(SkinFiles, AStretchedPictureKeepsItsEndsToThePixel) {
  const QImage plain = Motley(30, 7);
  const QImage dense = Motley(60, 14);
  const QTransform turn = QTransform().rotate(90);
  const QString across = Put("across.bmp", plain);
  Put("across@2x.bmp", dense);
  const QString down = Put("down.bmp", plain.transformed(turn));
  Put("down@2x.bmp", dense.transformed(turn));
  for (const int density : {1, 2}) {
    const QImage& file = density == 1 ? plain : dense;
    const int end = density == 1 ? 4 : 7;  // Half of its height.
    const int high = file.height();
    for (const int width : {20, 30, 101}) {
      const QImage wide = Drawn(across, {width, 7}, PictureFit::Across, density);
      EXPECT_EQ(wide.copy(0, 0, end, high), file.copy(0, 0, end, high)) << width;
      EXPECT_EQ(wide.copy(wide.width() - end, 0, end, high),
                file.copy(file.width() - end, 0, end, high))
          << width;
      EXPECT_EQ(wide == file, width == 30);
      const QImage tall = Drawn(down, {7, width}, PictureFit::Down, density);
      const QImage turned = file.transformed(turn);
      EXPECT_EQ(tall.copy(0, 0, high, end), turned.copy(0, 0, high, end)) << width;
    }
  }
  const QImage small = Drawn(across, {40, 20}, PictureFit::Natural, 1);
  EXPECT_EQ(small.copy(5, 6, 30, 7), plain);
  EXPECT_EQ(small.pixelColor(4, 6), QColor(Qt::black));
}

TEST_F(SkinFiles, WhereItsPartsMeetAPictureHasNoSeamAtAnyDensity) {
  QImage plain(96, 24, QImage::Format_RGB32);
  plain.fill(Qt::yellow);
  const QString name = Put("plain.bmp", plain);
  for (const PictureFit fit : {PictureFit::Across, PictureFit::Down, PictureFit::Stretched}) {
    for (const double density : {1.25, 1.5, 1.75}) {
      QImage screen(300, 300, QImage::Format_RGB32);
      screen.setDevicePixelRatio(density);
      screen.fill(Qt::black);
      QPainter painter(&screen);
      painter.setRenderHint(QPainter::Antialiasing);
      DrawPicture(painter, {3, 5, 101, 103}, name, fit);
      painter.end();
      int mixed = 0;
      for (int at = 0; at < 300 * 300; ++at) {
        const QRgb colour = screen.pixel(at % 300, at / 300);
        mixed += colour != QColor(Qt::black).rgb() && colour != QColor(Qt::yellow).rgb();
      }
      EXPECT_EQ(mixed, 0) << density;
    }
  }
}

TEST_F(SkinFiles, WithoutItsPictureAButtonIsABar) {
  QFile broken(folder_.filePath("broken.bmp"));
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("BM not a picture");
  broken.close();
  QImage green(20, 20, QImage::Format_RGB32);
  green.fill(QColor(0, 160, 0));

  WorkForm& form = ShowWork();
  const QPoint side = Middle(form.go) - QPoint(40, 0);
  const auto shows = [&](const QString& name, const QColor& colour) {
    form.go.Picture = FromQt(name);
    return Until([&] { return Pixel(side) == colour; });
  };
  EXPECT_TRUE(shows(Put("Green.bmp", green), QColor(0, 160, 0)));
  EXPECT_TRUE(shows(GamePath("broken.bmp"), ToQt(palette::kOrange)));
  EXPECT_TRUE(shows(GamePath("GREEN.BMP"), QColor(0, 160, 0))) << "letter case doesn't count";
  EXPECT_TRUE(shows(GamePath("missing.bmp"), ToQt(palette::kOrange)));
  Click(form.go);
}

TEST_F(SkinFiles, ControlsHearOfThePointerWhereTheyListen) {
  WorkForm& form = ShowWork();
  int onButton = 0, onForm = 0;
  form.go.OnMouseMove = [&] { ++onButton; };
  form.OnMouseMove = [&] { ++onForm; };
  form.go.Changed();
  form.Changed();
  const QPoint middle = Middle(form.go);
  const auto moveTo = [](QPoint at) {
    Hands({"mousemove", QString::number(at.x()), QString::number(at.y())});
  };
  moveTo(middle);
  EXPECT_GT(onButton, 0);
  onForm = 0;
  moveTo(middle + QPoint(3, 0));
  EXPECT_EQ(onForm, 0) << "what lies behind doesn't hear of it";
  moveTo(middle + QPoint(0, 20));
  EXPECT_GT(onForm, 0) << "free ground";
  moveTo(Middle(form.types));
  onButton = onForm = 0;
  moveTo(Middle(form.stop));
  EXPECT_GT(onForm, 0) << "ground that a quick pointer has crossed";
  EXPECT_EQ(onButton, 0) << "passed by";
  form.go.Enabled = false;
  Turn(50);
  onButton = 0;
  moveTo(middle);
  EXPECT_EQ(onButton, 0) << "switched off";
}

TEST_F(SkinFiles, TheKeyboardLightsAButtonAndThePointerDoesNot) {
  WorkForm& form = ShowWork();
  form.go.FocusColour = kWhite;
  const QPoint side = Middle(form.go) - QPoint(40, 0);
  const int plain = ToQt(palette::kOrange).lightness();
  const auto light = [&] { return Pixel(side).lightness(); };
  Click(form.types);
  Key("Escape");
  form.line.SetFocus();
  Key("Tab");
  EXPECT_TRUE(Until([&] { return light() < plain; })) << "darker, under a white caption";
  Hands({"mousemove", QString::number(side.x()), QString::number(side.y()), "click", "1",
         "mousemove", "0", "0"});
  EXPECT_TRUE(Until([&] { return light() == plain; }));
}

}  // namespace
}  // namespace tarvo::test
