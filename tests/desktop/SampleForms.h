#pragma once

#include "controls/Button.h"
#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/DirListBox.h"
#include "controls/DriveListBox.h"
#include "controls/FileListBox.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Palette.h"
#include "controls/ProgressBar.h"
#include "controls/Shape.h"
#include "controls/StatusBar.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "support/MemoryFiles.h"

namespace tarvo::test {

/// A window with one of everything, laid out as a work screen is.
class WorkForm : public Form {
 public:
  explicit WorkForm(Files& files)
      : Form(Style::Window, nullptr),
        drive(&area, files),
        folders(&area, files),
        found(&area, files, ListBox::Selection::Toggle) {
    Caption = u"Work";
    Move(3000, 3000, 9630, 7500);
    Place();
    Dress();
    go.Caption = u"&Go";
    stop.Caption = u"Stop";
    stop.AccessibleName = u"Stop the work";
    title.Caption = u"Pick folders && files: a caption that is much too long for the line";
    status.Panel1 = u"Z:\\games\\Bridge\\scripts\\Custom\\Ships\\with a long way to go\\Warbird.py";
    for (const char16_t* type : {u"Ship", u"Sound", u"Mutator"}) types.Add(type);
    for (const char16_t* row : {u"one", u"two", u"three"}) single.Add(row);
    folders.SetPath(u"Z:\\games");
    found.SetPath(u"Z:\\games");
  }

  Label title{this};
  Frame area{this};
  DriveListBox drive;
  DirListBox folders;
  FileListBox found;
  ListBox single{&area, ListBox::Selection::Single};
  ComboBox types{this};
  TextBox line{this};
  Button go{this};
  Button stop{this};
  Button bare{this};
  CheckBox tick{this};
  ProgressBar progress{this};
  Shape outline{this};
  Label note{this};
  StatusBar status{this};
  Timer timer{this, 20};

 private:
  void Place() {
    title.Move(300, 180, 6000, 450);
    area.Move(300, 750, 9030, 3900);
    drive.Move(150, 150, 2700, 375);
    folders.Move(150, 600, 2700, 3150);
    found.Move(3000, 150, 2850, 3600);
    single.Move(6000, 150, 2880, 3600);
    types.Move(300, 4800, 2700, 375);
    line.Move(3150, 4800, 2700, 375);
    go.Move(6000, 4770, 1600, 435);
    stop.Move(7730, 4770, 1600, 435);
    bare.Move(6000, 5300, 3330, 435);
    tick.Move(6450, 180, 2880, 330);
    progress.Move(300, 5400, 5550, 225);
    outline.Move(300, 5850, 9030, 1050);
    note.Move(450, 5950, 8730, 850);
  }

  void Dress() {
    area.BackColour = Colour{10, 9, 18};
    area.ForeColour = palette::kViolet;
    for (Control* field :
         std::initializer_list<Control*>{&drive, &folders, &found, &single, &types, &line}) {
      field->BackColour = palette::kPanel;
      field->ForeColour = palette::kPeach;
      field->Font = tarvo::Font{FontRole::Normal, 9};
    }
    go.BackColour = palette::kOrange;
    stop.BackColour = palette::kBlue;
    bare.ForeColour = palette::kPeach;
    bare.Caption = u"A caption alone";
    tick.Caption = u"Tick me";
    tick.ForeColour = palette::kPeach;
    for (Control* text : std::initializer_list<Control*>{&title, &note, &status}) {
      text->ForeColour = palette::kPeach;
    }
    title.Font = tarvo::Font{FontRole::Normal, 14};
    note.Caption =
        u"A note that is long enough to need more than one line, and then some more, so that it "
        u"has to wrap and in the end to be cut off with three dots because there is only so much "
        u"room for words between the walls of this outline, which isn't going to grow.";
    note.WordWrap = true;
    note.Font = tarvo::Font{FontRole::Dialog, 10};
    progress.BackColour = Colour{40, 36, 60};
    progress.ForeColour = palette::kOrange;
    outline.ForeColour = palette::kBlue;
    timer.Enabled = false;
  }
};

/// A dialog that slides open sideways out of nothing.
class SlidingDialog : public Form {
 public:
  explicit SlidingDialog(Form& owner) : Form(Style::Dialog, &owner) {
    Caption = u"Slide";
    Move(4500, 4500, 0, 2400);
    question.Move(300, 300, 4000, 600);
    question.Caption = u"Overwrite Warbird.py & the others?";
    question.ForeColour = palette::kPeach;
    question.Font = tarvo::Font{FontRole::Dialog, 11};
    yes.Move(300, 1500, 1800, 450);
    yes.Caption = u"&Yes";
    yes.BackColour = palette::kOrange;
    no.Move(2400, 1500, 1800, 450);
    no.Caption = u"&No";
    no.BackColour = palette::kViolet;
    DefaultButton = &yes;
    CancelButton = &no;
    slide.OnTimer = [this] {
      Width = Width + 300;
      if (Width >= 4500) slide.Enabled = false;
    };
  }

  Label question{this};
  TextBox line{this};
  Button yes{this};
  Button no{this};
  Timer slide{this, 5};
};

}  // namespace tarvo::test
