#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "assistant/MessageQueue.h"
#include "assistant/frmPac_Helper.h"
#include "machine/TestMachine.h"
#include "shell/frmMainMenu.h"
#include "text/Utf8.h"

namespace tarvo::test {

/// The program started with the assistant on. What the figure says is listened to.
class Assistant : public testing::Test {
 protected:
  struct Speech {
    tarvo::Text Text;
    tarvo::Text Faces;  ///< The sets of frames, one behind the other.
    friend bool operator==(const Speech&, const Speech&) = default;
    friend void PrintTo(const Speech& speech, std::ostream* out) {
      *out << Utf8FromText(speech.Text) << " (" << Utf8FromText(speech.Faces) << ")";
    }
  };

  void Start() {
    machine.settings.Write(u"Tarvo Packager", u"Settings", u"PacHelper", u"1");
    main = &machine.Start();
    helper = machine.app.screens.Find<frmPac_Helper>();
  }

  /// Started, greeted, told the first tip and come to rest.
  void StartAndSettle() {
    Start();
    Settle();
    heard.clear();
    wasOpen_ = false;
  }

  void Say(TextView text, Title title = Title::Information) {
    machine.dialogue.PacMsg(text, title);
  }

  /// Lets time pass and listens.
  void Hear(int milliseconds) {
    for (int at = 0; at < milliseconds; at += 40) {
      machine.Pass(40);
      Listen();
    }
  }

  void Settle() {
    const auto busy = [&] {
      return state.PacState != PacActivity::Idle || !state.PacQueue[0].empty();
    };
    Hear(4000);
    for (int i = 0; i < 10'000 && busy(); ++i) Hear(40);
    EXPECT_FALSE(busy());
  }

  /// A message counts each time that the bubble opens for it; its face each time that it changes.
  void Listen() {
    helper = machine.app.screens.Find<frmPac_Helper>();
    if (!helper) return;
    const bool open = helper->lblPac_Label.Visible;
    const tarvo::Text picture = helper->Pac_Helper.Picture;
    const tarvo::Text face = picture.substr(0, picture.find_first_of(u"0123456789"));
    const bool anew =
        open && (!wasOpen_ || helper->lblPac_Label.Caption.Get() != heard.back().Text);
    if (anew) heard.push_back({helper->lblPac_Label.Caption, {}});
    if (open && (anew || face != face_)) heard.back().Faces += face.substr(12);
    wasOpen_ = open;
    face_ = face;
  }

  std::vector<tarvo::Text> Words() const {
    std::vector<tarvo::Text> words;
    for (const Speech& speech : heard) words.push_back(speech.Text);
    return words;
  }

  TestMachine machine;
  AppState& state = machine.app.State;
  frmMain* main = nullptr;
  frmPac_Helper* helper = nullptr;
  std::vector<Speech> heard;

 private:
  bool wasOpen_ = false;
  tarvo::Text face_;
};

}  // namespace tarvo::test
