#include <QFile>
#include <QImage>
#include <QWidget>
#include <chrono>

#include "Desk.h"
#include "controls/MediaPlayer.h"
#include "desktop/FilmVideo.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

using namespace std::chrono_literals;

/// A window with a player.
class FilmForm : public Form {
 public:
  explicit FilmForm(Video& video) : Form(Style::Window, nullptr), player(this, video) {
    Caption = u"Film";
    BackColour = Colour{90, 0, 0};
    Move(3000, 3000, 6000, 4500);
    player.Move(750, 750, 3105, 2565);
    player.FileName = u"Z:\\film";
  }

  MediaPlayer player;
};

class Player : public Desk {
 protected:
  Player() {
    QFile film(QStringLiteral(TARVO_FILMS "/LCARS_Options.MOV"));
    EXPECT_TRUE(film.open(QIODevice::ReadOnly));
    const FileText bytes = film.readAll().toStdString();
    files.Put(u"Z:\\film", bytes);
    files.Put(u"Z:\\cut", bytes.substr(0, bytes.size() / 2));
    FileText spoilt = bytes;
    for (std::size_t at = 2000; at < 60000; at += 7) spoilt[at] ^= 0x5A;
    files.Put(u"Z:\\spoilt", spoilt);
    files.Put(u"Z:\\text", "no film at all");
  }

  FilmForm& Show() {
    auto& form = screens_.Use<FilmForm>(video);
    form.Visible = true;
    EXPECT_TRUE(Until([&] { return WindowOf(form) && WindowOf(form)->isActiveWindow(); }));
    Turn(100);
    return form;
  }

  QImage Seen(const FilmForm& form) {
    const QRect place = PixelRect(form.player);
    return WindowOf(form)->grab(place).toImage();
  }

  /// Starts the file, and waits until the decoder is done with it.
  void Start(FilmForm& form, const Text& file) {
    bool opened = false;
    form.player.FileName = file;
    form.player.OnOpened = [&] { opened = true; };
    form.player.Start();
    EXPECT_TRUE(Until([&] { return opened; }));
    form.player.OnOpened = nullptr;
  }

  MemoryFiles files;
  FilmVideo video{files, {QStringLiteral(TARVO_PROGRAM_FOLDER)}};
};

TEST_F(Player, ShowsChangingPicturesUntilItStops) {
  FilmForm& form = Show();
  const QImage empty = Seen(form);
  Start(form, u"Z:\\film");
  EXPECT_EQ(form.player.Pictures().size(), 90u);
  EXPECT_EQ(form.player.Pictures()[0]->Width, 207);
  EXPECT_EQ(form.player.Pictures()[0]->Height, 171);
  EXPECT_TRUE(Until([&] { return Seen(form) != empty; }));
  const QImage first = Seen(form);
  EXPECT_TRUE(Until([&] { return Seen(form) != first; }));
  form.player.Stop();
  EXPECT_TRUE(Until([&] { return Seen(form) == empty; }));
  Start(form, u"Z:\\film");
  EXPECT_TRUE(Until([&] { return Seen(form) != empty; })) << "and starts again";
}

TEST_F(Player, ComesRoundWithoutAJump) {
  FilmForm& form = Show();
  Start(form, u"Z:\\film");
  const VideoPictures pictures = form.player.Pictures();
  ASSERT_GT(pictures.size(), 2u);
  const auto change = [](const VideoPicture& a, const VideoPicture& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.Pixels.size(); ++i) {
      sum += std::abs(qGreen(a.Pixels[i]) - qGreen(b.Pixels[i]));
    }
    return sum / static_cast<double>(a.Pixels.size());
  };
  double largest = 0;
  for (std::size_t i = 1; i < pictures.size(); ++i) {
    largest = std::max(largest, change(*pictures[i - 1], *pictures[i]));
  }
  EXPECT_LE(change(*pictures.back(), *pictures.front()), 1.5 * largest);
  EXPECT_GT(change(*pictures.front(), *pictures[pictures.size() / 2]), 1.5 * largest);
}

TEST_F(Player, IsEmptyWithWhatCantBePlayed) {
  FilmForm& form = Show();
  const QImage empty = Seen(form);
  testing::internal::CaptureStderr();
  for (const char16_t* file : {u"Z:\\missing", u"Z:\\text", u"Z:\\cut", u"Z:\\spoilt"}) {
    Start(form, file);
    EXPECT_TRUE(form.player.Pictures().empty()) << ToQt(file).toStdString();
    EXPECT_EQ(Seen(form), empty);
    form.player.Stop();
  }
  FilmVideo without{files, {QStringLiteral("/nowhere")}};
  bool told = false;
  const auto opening = without.Open(
      u"Z:\\film", 10, 10, [&](const VideoPictures& pictures) { told = pictures.empty(); });
  EXPECT_TRUE(Until([&] { return told; })) << "the module is missing";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Player, StartsAndStopsInNoTime) {
  FilmForm& form = Show();
  for (const int wait : {0, 20, 300}) {
    const auto start = std::chrono::steady_clock::now();
    form.player.Start();
    Turn(0);
    form.player.Open(300, 300);
    form.player.Stop();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 50ms);
    Turn(wait);
    EXPECT_TRUE(form.player.Pictures().empty()) << "what was given up comes to nothing";
  }
}

TEST_F(Player, RestsWhileNobodySeesIt) {
  FilmForm& form = Show();
  const QImage empty = Seen(form);
  Start(form, u"Z:\\film");
  EXPECT_TRUE(Until([&] { return Seen(form) != empty; }));
  const auto rests = [&] {
    const QImage before = Seen(form);
    Turn(300);
    return Seen(form) == before;
  };
  EXPECT_FALSE(rests());
  const QString window = QString::number(WindowOf(form)->winId());
  Hands({"windowminimize", window});
  Turn(200);
  EXPECT_TRUE(rests()) << "minimised";
  Hands({"windowactivate", window});
  EXPECT_TRUE(Until([&] { return !rests(); })) << "back again";
}

}  // namespace
}  // namespace tarvo::test
