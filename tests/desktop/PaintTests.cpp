#include <QPainter>
#include <chrono>
#include <thread>

#include "Desk.h"
#include "desktop/Pictures.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

using namespace std::chrono_literals;

using Painting = Desk;

TEST_F(Painting, WorkThatNeverYieldsShowsWhatItRefreshes) {
  WorkForm& form = ShowWork();
  const QPoint beside = Middle(form.title) + QPoint(199, -14);
  const QPoint half = Middle(form.progress) - QPoint(20, 0);
  ASSERT_EQ(Pixel(beside), QColor(Qt::black));

  // No event loop turns from here on.
  form.title.BackColour = palette::kViolet;
  EXPECT_EQ(Pixel(beside), QColor(Qt::black)) << "changes alone are collected";
  form.title.Refresh();
  EXPECT_EQ(Pixel(beside), ToQt(palette::kViolet));
  form.progress.SetValue(50);
  EXPECT_EQ(Pixel(half), ToQt(palette::kOrange)) << "a bar shows its value by itself";
}

TEST_F(Painting, RefreshesThatComeTooFastEndInTheLastState) {
  WorkForm& form = ShowWork();
  const QPoint beside = Middle(form.title) + QPoint(199, -14);
  const auto colour = [](int step) { return Colour{static_cast<std::uint8_t>(step % 250), 0, 90}; };
  int step = 0;
  const auto start = std::chrono::steady_clock::now();
  for (; step < 20000; ++step) {
    form.title.BackColour = colour(step);
    form.title.Refresh();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1s) << "twenty thousand refreshes";

  form.title.BackColour = palette::kBlue;
  form.title.Refresh();
  std::this_thread::sleep_for(20ms);
  form.progress.SetValue(1);
  EXPECT_EQ(Pixel(beside), ToQt(palette::kBlue)) << "what was put off comes with the next one";

  form.title.BackColour = palette::kPeach;
  form.title.Refresh();
  form.title.BackColour = palette::kOrange;
  form.title.Refresh();
  Turn(40);
  EXPECT_EQ(Pixel(beside), ToQt(palette::kOrange)) << "or with the event loop";
}

TEST_F(Painting, ButtonsShowTheirStates) {
  WorkForm& form = ShowWork();
  const QPoint side = Middle(form.go) - QPoint(40, 0);
  const int plain = ToQt(palette::kOrange).lightness();
  const auto light = [&] { return Pixel(side).lightness(); };
  EXPECT_TRUE(Until([&] { return light() == plain; }));
  Hands({"mousemove", QString::number(side.x()), QString::number(side.y())});
  EXPECT_TRUE(Until([&] { return light() > plain; })) << "hovered";
  Hands({"mousedown", "1"});
  EXPECT_TRUE(Until([&] { return light() < plain; })) << "pressed";
  Hands({"mouseup", "1", "mousemove", "0", "0"});
  EXPECT_TRUE(Until([&] { return light() == plain; })) << "left alone";
  form.Enabled = false;
  EXPECT_TRUE(Until([&] { return light() < plain / 2; })) << "switched off";
}

TEST(Pictures, TheAssistantHasAllOfItsOwnInBothDensities) {
  QStringList names{"information", "question", "warning", "critical"};
  for (const char* set : {"walk", "talk", "sad", "critical", "mad"}) {
    for (int frame = 0; frame <= 8; ++frame) names << set + QString::number(frame);
  }
  for (const QString& name : names) {
    const int side = name.back().isDigit() ? 64 : 41;
    EXPECT_EQ(QImage(":/assistant/" + name + ".png").size(), QSize(side, side))
        << name.toStdString();
    EXPECT_EQ(QImage(":/assistant/" + name + "@2x.png").size(), 2 * QSize(side, side))
        << name.toStdString();
  }
}

/// They are stretched between ends half as long as they are high, so no sign may reach out of them.
TEST(Pictures, TheDialogsAreUniformBetweenTheirEnds) {
  for (const char* name : {"yes", "no", "ok", "cancel"}) {
    for (const int density : {1, 2}) {
      SCOPED_TRACE(testing::Message() << name << " " << density);
      const QImage picture(QString(":/dialog/%1%2.png").arg(name, density == 2 ? "@2x" : ""));
      ASSERT_EQ(picture.size(), QSize(89, 25) * density);
      const int end = (picture.height() + 1) / 2;
      const QImage middle = picture.copy(end, 0, picture.width() - 2 * end, picture.height());
      QImage flat(middle.size(), middle.format());
      flat.fill(QColor(128, 128, 255));
      EXPECT_EQ(middle, flat);
      EXPECT_NE(picture.copy(0, 0, end, picture.height()),
                picture.copy(picture.width() - end, 0, end, picture.height()).mirrored(true, false))
          << "the sign";
    }
  }
}

TEST(Pictures, DenseScreensGetTheDensePicturePixelByPixel) {
  for (const int density : {1, 2}) {
    QImage screen(QSize(64, 64) * density, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(density);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    DrawPicture(painter, {0, 0, 64, 64}, ":/assistant/talk8.png");
    painter.end();
    screen.setDevicePixelRatio(1);
    const QImage file(density == 1 ? ":/assistant/talk8.png" : ":/assistant/talk8@2x.png");
    EXPECT_EQ(screen, file.convertToFormat(screen.format())) << density;
  }
}

TEST(Pictures, LightFallsOnWhatAPictureCoversAlone) {
  QImage screen(41, 41, QImage::Format_ARGB32_Premultiplied);
  screen.fill(Qt::transparent);
  QPainter painter(&screen);
  DrawPicture(painter, screen.rect(), ":/assistant/warning.png", PictureFit::Stretched, Qt::white);
  painter.end();
  EXPECT_EQ(screen.pixelColor(10, 18), QColor(Qt::white));
  EXPECT_EQ(screen.pixelColor(40, 0).alpha(), 0);
}

TEST(Pictures, TheIconIsThereInEverySize) {
  const QList<QSize> sizes = ProgramIcon().availableSizes();
  for (const int size : {16, 22, 24, 32, 48, 64}) {
    EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
  }
}

}  // namespace
}  // namespace tarvo::test
