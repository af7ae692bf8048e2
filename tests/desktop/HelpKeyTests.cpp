#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include "Desk.h"
#include "desktop/HelpKey.h"
#include "desktop/QtWindows.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

class HelpKeyTest : public Desk {
 protected:
  void WritePage(const QString& name) {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
  }

  /// The text of the message box that F1 shows, which is then closed.
  QString TakeMessage() {
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    QString text;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      if (!box()) return;
      look.stop();
      text = box()->text().remove(QChar(0x200B));
      box()->accept();
    });
    look.start(20);
    windows_.ShowManual(u"");
    return text;
  }

  QTemporaryDir folder_;
  QStringList opened_;
  bool canOpen_ = true;
  QtWindows windows_{[this](const QUrl& url) {
    opened_ << url.fileName();
    return canOpen_;
  }};
  HelpKey key_{[this] { windows_.ShowManual(forms_.HelpPage()); }};

  HelpKeyTest() {
    // Letter case of game paths doesn't count.
    QString help = folder_.path().toUpper().replace('/', '\\');
    windows_.SetHelpFile(u"Z:" + FromQt(help) + u"\\Help System.chm");
  }
};

TEST_F(HelpKeyTest, OpensThePageOfTheFormAtHand) {
  for (const char* page : {"index.html", "work.html", "slide.html"}) WritePage(page);
  WorkForm& form = ShowWork();
  Key("F1");
  form.HelpPage = u"work.html";
  Key("F1");
  form.types.SetFocus();
  Turn(30);
  Key("F1");
  auto& dialog = screens_.Use<SlidingDialog>(form);
  dialog.no.OnClick = [&] { screens_.Close(dialog); };
  QTimer::singleShot(400, [&] {
    Key("F1");
    dialog.HelpPage = u"missing.html";
    Key("F1");
    dialog.HelpPage = u"slide.html";
    Key("F1");
    dialog.no.Press();
  });
  screens_.RunModal(dialog);
  EXPECT_EQ(opened_.join(' '), "index.html work.html work.html work.html index.html slide.html");
}

TEST_F(HelpKeyTest, TellsWhatIsMissing) {
  EXPECT_TRUE(TakeMessage().contains("The manual is missing"));
  EXPECT_EQ(opened_.size(), 0);
  WritePage("index.html");
  canOpen_ = false;
  EXPECT_TRUE(TakeMessage().endsWith(folder_.filePath("index.html")));
}

}  // namespace
}  // namespace tarvo::test
