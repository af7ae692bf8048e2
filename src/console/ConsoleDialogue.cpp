#include "console/ConsoleDialogue.h"

#include <utility>

#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// True for the whole word or its first letter, in any letter case.
bool Means(TextView typed, TextView word) {
  return !typed.empty() &&
         (EqualIgnoringCase(typed, word) || EqualIgnoringCase(typed, word.substr(0, 1)));
}

Text Trimmed(TextView text) {
  const std::size_t first = text.find_first_not_of(u" \t\r");
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(u" \t\r") - first + 1));
}

}  // namespace

void ConsoleDialogue::Tell(TextView kind, TextView text, bool complaint) {
  output_.Message(kind, text);
  complained_ = complained_ || complaint;
}

/// A message of information is the result of the command that it closes, so it isn't told here.
void ConsoleDialogue::PacMsg(TextView text, Title title) {
  switch (title) {
    case Title::Information:
      messages_.emplace_back(text);
      break;
    case Title::Question:
      Tell(u"Question", text, false);
      break;
    case Title::Warning:
      Tell(u"Warning", text, true);
      break;
    case Title::Critical:
      Tell(u"Critical", text, true);
      break;
    case Title::None:
    case Title::Mad:
      break;
  }
}

void ConsoleDialogue::ShowMessage(TextView text, TextView, BoxIcon icon) {
  if (icon == BoxIcon::Information || icon == BoxIcon::Plain) {
    Tell(u"Information", text, false);
  } else {
    Tell(icon == BoxIcon::Critical ? u"Critical" : u"Warning", text, true);
  }
}

Text ConsoleDialogue::PacInput(TextView text, Title title) {
  const Text yes = captions_[0].empty() ? Text(u"Yes") : captions_[0];
  const Text no = captions_[1].empty() ? Text(u"No") : captions_[1];
  PacSetButtons(u"", u"");
  const bool offersAll = title == Title::Warning;
  if (!answer_.empty()) return answer_ == u"All" && !offersAll ? Text(u"Yes") : answer_;
  Text prompt = Text(text) + u" [" + yes + u"/" + no + (offersAll ? u"/All" : u"") + u"] ";
  while (true) {
    output_.Say(prompt);
    const auto line = readLine_();
    if (!line) return u"No";
    const Text typed = Trimmed(TextFromUtf8(*line));
    if (Means(typed, yes)) return u"Yes";
    if (Means(typed, no)) return u"No";
    if (offersAll && Means(typed, u"All")) return u"All";
  }
}

Text ConsoleDialogue::PacAskText(TextView text, Title) {
  if (nextLine_) return *std::exchange(nextLine_, std::nullopt);
  if (!answer_.empty()) return {};
  output_.Say(text);
  const auto line = readLine_();
  return line ? TextFromUtf8(*line) : Text();
}

void ConsoleDialogue::PacSetButtons(TextView yesCaption, TextView noCaption) {
  captions_[0] = Text(yesCaption);
  captions_[1] = Text(noCaption);
}

}  // namespace tarvo
