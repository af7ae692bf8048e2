#include "machine/TestMachine.h"

#include <algorithm>
#include <stdexcept>

#include "assistant/frmPac_Helper.h"
#include "platform/HostMachine.h"
#include "text/Paths.h"

namespace tarvo::test {
namespace {

void Gather(Files& files, const Text& folder, const Text& prefix, std::vector<Text>& found) {
  for (const Text& name : files.FileNames(folder)) found.push_back(prefix + u"\\" + name);
  for (const Text& name : files.FolderNames(folder)) {
    Gather(files, JoinPath(folder, name), prefix + u"\\" + name, found);
  }
}

TextView NameOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Information:
      return u"information";
    case BoxIcon::Question:
      return u"question";
    case BoxIcon::Exclamation:
      return u"warning";
    case BoxIcon::Critical:
      return u"critical";
    case BoxIcon::Plain:
      break;
  }
  return u"plain";
}

}  // namespace

Text OneLine(TextView text) {
  Text line;
  for (const char16_t unit : text) {
    if (unit == u'\n') line += u"\\n";
    if (unit != u'\n' && unit != u'\r') line += unit;
  }
  return line;
}

TestMachine::TestMachine() {
  WriteFile(GameFolder() + u"\\stbc.exe", "game");
  WriteFile(ProgramFolder() + u"\\tarvo", "program");
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", GameFolder());
}

TestMachine::TestMachine(const TemporaryFolder::OfOther& other, std::shared_ptr<Files> on)
    : folder(other), disk(on ? std::move(on) : OpenFiles(folder.Host("journal"))) {
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", GameFolder());
}

frmMain& TestMachine::Start() {
  if (hasFoundation && !app.screens.Find<frmMain>()) {
    WriteFile(GameFolder() + u"\\scripts\\Custom\\FoundationConfig.py", "config");
  }
  return app.Screen<frmMain>();
}

void TestMachine::WriteFile(TextView path, FileTextView bytes) {
  const Text whole(path);
  for (std::size_t slash = folder.Game().size(); slash != Text::npos;
       slash = whole.find(u'\\', slash + 1)) {
    const Text parent = whole.substr(0, slash);
    if (!disk->FolderExists(parent)) disk->MakeFolder(parent);
  }
  const auto file = disk->Replace(path);
  file->Write(bytes);
  file->Commit();
}

FileText TestMachine::Bytes(TextView path) {
  if (!disk->FileExists(path)) return "(missing)";
  const auto file = disk->Open(path);
  FileText bytes(file->Size(), '\0');
  file->ReadAt(0, std::span(bytes));
  return bytes;
}

std::vector<Text> TestMachine::FilesBelow(TextView path) {
  std::vector<Text> found;
  Gather(*disk, Text(path), {}, found);
  std::sort(found.begin(), found.end());
  return found;
}

void TestMachine::ShowMessage(TextView text, TextView, BoxIcon icon) {
  boxes.push_back({Text(text), icon});
  if (OnNotice) OnNotice(u"box " + Text(NameOf(icon)) + u" \"" + OneLine(text) + u"\"");
}

void TestMachine::Pass(int milliseconds) {
  for (int end = passed_ + milliseconds; passed_ < end;) {
    passed_ += 40;
    if (auto* helper = app.screens.Find<frmPac_Helper>()) helper->Pacman_Animation_Timer.Tick();
    auto* main = app.screens.Find<frmMain>();
    if (!main || passed_ % 2000 != 0) continue;
    main->Msg_Timer.Tick();
    main->Timer_Buffer.Tick();
  }
}

void TestMachine::RunModal(Form& form) {
  if (!dynamic_cast<frmPac_InputBox*>(&form)) return atDialog(form);
  auto& dialog = static_cast<frmPac_InputBox&>(form);
  questions.push_back(dialog.lblInput.Caption);
  if (onDialog) onDialog(dialog);
  if (!app.screens.IsOpen(dialog)) return;
  for (waited = 0; !dialog.cmdYes.Enabled; waited += 40) {
    if (waited > 200'000) throw std::runtime_error("nothing answers the dialog");
    Pass(40);
  }
  Text answer = u"No";
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (OnNotice) {
    Text captions;
    for (const Button* button : {&dialog.cmdYes, &dialog.cmdNo, &dialog.cmdAll}) {
      if (button->Visible) captions += u" [" + button->Caption.Get() + u"]";
    }
    OnNotice(u"question \"" + OneLine(questions.back()) + u"\"" + captions + u" -> \"" + answer +
             u"\"");
  }
  Answer(dialog, answer);
}

/// An empty one closes a question by its close box.
void TestMachine::Answer(frmPac_InputBox& dialog, const Text& answer) {
  if (dialog.txtInputBox.Visible) {
    dialog.txtInputBox.SetText(answer);
    dialog.cmdOk.Press();
  } else if (answer.empty()) {
    app.screens.Close(dialog);
  } else {
    (answer == u"Yes" ? dialog.cmdYes : answer == u"All" ? dialog.cmdAll : dialog.cmdNo).Press();
  }
}

}  // namespace tarvo::test
