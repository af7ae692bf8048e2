#include "state/Draft.h"

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/TextBox.h"
#include "state/Shell.h"

namespace tarvo {
namespace {

/// Puts back what a control of one line held.
template <class Field>
auto WriterOf(Field& field) {
  return [&field](const std::vector<Text>& lines) { field.SetText(lines.at(0)); };
}

}  // namespace

void Draft::Add(TextBox& field) {
  Add(Part{[&field] { return std::vector{field.Text()}; }, WriterOf(field)});
}

/// What a pick drops was made under the name that stood in the line before.
void Draft::Add(ComboBox& field, Kind as) {
  const auto read = [&field, as] {
    return std::vector{as == Kind::Work ? field.Text() : field.TextBefore()};
  };
  Add(Part{read, WriterOf(field), as});
}

void Draft::Add(CheckBox& box) {
  Add(Part{[&box] { return std::vector<Text>(box.Checked ? 1 : 0); },
           [&box](const std::vector<Text>& lines) { box.Checked = !lines.empty(); }});
}

DraftContents Draft::Take() const {
  DraftContents contents;
  for (const Part& part : parts_) contents.push_back(part.Read());
  return contents;
}

DraftContents Draft::Work() const {
  DraftContents work;
  for (const Part& part : parts_) {
    if (part.As == Kind::Work) work.push_back(part.Read());
  }
  return work;
}

void Draft::Settle() {
  if (!bringing_) saved_ = Work();
}

bool Draft::Unsaved() const {
  return saved_ && *saved_ != Work();
}

bool Draft::Drop() {
  if (bringing_ || !Unsaved()) return false;
  app_.Dropped[name_].push_back(Take());
  return true;
}

void Draft::TellDropped(TextView status) {
  if (!app_.Failures.empty()) return;  // They are the more urgent news.
  app_.shell->ShowStatus(Text(status) + u" Ctrl+Z brings back what you had not saved.");
}

void Draft::Leave() {
  if (!Drop()) return;
  app_.shell->ShowStatus(
      u"Standing By... Ctrl+Z on that screen brings back what you had not saved.");
}

bool Draft::HoldsEscape() {
  if (!Unsaved()) return false;
  DraftContents work = Work();
  if (warned_ == work) return false;
  warned_ = std::move(work);
  app_.shell->ShowStatus(u"This is not saved yet! Escape once more leaves the screen.");
  return true;
}

/// What it puts in the way goes to the end of what stands by, so that nothing is ever lost.
bool Draft::Undo(bool typed) {
  const bool unsaved = Unsaved();
  std::vector<DraftContents>& kept = app_.Dropped[name_];
  if (kept.empty() || (typed && unsaved)) return false;
  const DraftContents contents = std::move(kept.back());
  kept.pop_back();
  if (unsaved) kept.insert(kept.begin(), Take());
  bringing_ = true;
  for (std::size_t i = 0; i < parts_.size(); ++i) parts_[i].Write(contents.at(i));
  bringing_ = false;
  app_.shell->ShowStatus(u"What you had not saved is back.");
  return true;
}

}  // namespace tarvo
