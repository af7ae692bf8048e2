#include "Transcript.h"

#include <iomanip>
#include <sstream>

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "controls/ProgressBar.h"
#include "controls/TextBox.h"
#include "platform/FileCopies.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

std::string Quoted(TextView text) {
  return "\"" + Utf8FromText(OneLine(text)) + "\"";
}

std::string ValueOf(const Control& control) {
  if (const auto* field = dynamic_cast<const TextBox*>(&control)) return Quoted(field->Text());
  if (const auto* field = dynamic_cast<const ComboBox*>(&control)) return Quoted(field->Text());
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return box->Checked ? "on" : "off";
  const auto* list = dynamic_cast<const ListBox*>(&control);
  if (!list) return {};
  std::string rows;
  for (std::size_t row = 0; row < list->Count(); ++row) {
    rows += (row == 0 ? "" : ", ") + std::string(list->Selected(row) ? "*" : "") +
            Quoted(list->Item(row));
  }
  return rows;
}

std::string Hash(const FileText& bytes) {
  std::ostringstream text;
  text << std::hex << std::setw(16) << std::setfill('0') << HashOf(bytes);
  return text.str();
}

}  // namespace

Transcript::Transcript() {
  for (const TextView ship : {u"Akira", u"Nord"}) {
    Put(u"game\\scripts\\ships\\" + Text(ship) + u".py",
        "\"Name\": \"" + Utf8FromText(ship) + "\",\"HardpointFile\": \"hull\",\r\n");
    Put(u"game\\data\\Models\\Ships\\" + Text(ship) + u"\\" + Text(ship) + u".nif", "model");
  }
  Put(u"game\\stbc.exe", "game");
  Put(u"game\\scripts\\Custom\\Ships\\keep.txt", "x");
  Put(u"game\\scripts\\Custom\\Autoload\\keep.txt", "x");
  Put(u"game\\scripts\\ships\\Hardpoints\\hull.py",
      "P.SetFireSound(\"Test Phaser\")\r\nT.S(0, \"Tactical.Projectiles.Photon\")\r\n");
  Put(u"game\\sfx\\Weapons\\a.wav", "sound");
  Put(u"program\\Backup\\Galaxy.py", "\"Name\": \"Galaxy\"");
  machine.OnNotice = [this](const Text& notice) { Note(Utf8FromText(notice)); };
  machine.sound.OnPlay = [this](const RecordingSound::Order& order) {
    Note("sound " + Utf8FromText(BareName(order.File)) + " " + std::to_string(order.Flags));
  };
  frmMain& main = machine.Start();
  machine.app.State.SoundFX = true;
  main.StatusBar.Observe(this);
  written_.clear();
}

void Transcript::Do(const std::string& what, const std::function<void()>& act) {
  const Contents before = FilesOnDisk();
  written_ += what + "\n";
  act();
  machine.Turn();
  NoteProgress();
  if (const Form* const screen = open_ ? open_() : nullptr) NoteFields(*screen);
  NoteFiles(before);
}

void Transcript::ControlChanged(Control& control) {
  const Text& now = static_cast<StatusBar&>(control).Panel1;
  if (now == status_) return;
  status_ = now;
  Note("status " + Quoted(now));
}

void Transcript::NoteProgress() {
  for (const auto& [screen, bar] : machine.app.ProgressBars) {
    if (bar->Value() == bar->Min()) continue;
    Note("progress " + std::to_string(bar->Value()) + " of " + std::to_string(bar->Max()));
  }
}

/// Those in sight that hold something and have a name.
void Transcript::NoteFields(const Control& control) {
  const std::string value = ValueOf(control);
  const Text& name = control.AccessibleName;
  if (!name.empty() && !value.empty() && value != "\"\"") {
    Note("field " + Utf8FromText(name) + ": " + value);
  }
  for (const Control* child : control.Children()) {
    if (child->Visible) NoteFields(*child);
  }
}

void Transcript::NoteFiles(const Contents& before) {
  const Contents after = FilesOnDisk();
  for (const auto& [path, bytes] : before) {
    if (!after.contains(path)) Note("gone " + Utf8FromText(path));
  }
  for (const auto& [path, bytes] : after) {
    const auto old = before.find(path);
    if (old != before.end() && old->second == bytes) continue;
    Note((old == before.end() ? "new " : "changed ") + Utf8FromText(path) + " " + Hash(bytes));
  }
}

Transcript::Contents Transcript::FilesOnDisk() const {
  Contents contents;
  for (const auto& [key, node] : disk_->Disk().Nodes) {
    if (node.Bytes) contents[node.Path] = *node.Bytes;
  }
  return contents;
}

}  // namespace tarvo::test
