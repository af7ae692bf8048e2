#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/Output.h"
#include "platform/Windows.h"
#include "state/Dialogue.h"

namespace tarvo {

/// The dialogue on a terminal. It remembers whether anything but information was told.
class ConsoleDialogue : public Dialogue, public Windows {
 public:
  /// `answer`: "Yes", "No" or "All" for every question, or empty to ask. `readLine` gives the
  /// user's next line, or nothing where there is no terminal: the answer is "No" then.
  ConsoleDialogue(Output& output, Text answer, std::function<std::optional<std::string>()> readLine)
      : output_(output), answer_(std::move(answer)), readLine_(std::move(readLine)) {}

  void PacMsg(TextView text, Title title) override;
  Text PacInput(TextView text, Title title) override;
  Text PacAskText(TextView text, Title title) override;
  void PacSetButtons(TextView yesCaption, TextView noCaption) override;

  /// The command line says what the user would type at the next question for a line of text.
  void TypeNext(Text line) { nextLine_ = std::move(line); }

  void ShowMessage(TextView text, TextView caption, BoxIcon icon) override;
  bool OpenAddress(TextView) override { return false; }
  bool RunProgram(TextView) override { return false; }
  void SetHelpFile(TextView) override {}
  TwipSize ScreenSize() override { return {0, 0}; }

  /// The messages of information; a command that has the last one, or all, as its result takes it
  /// from here.
  const std::vector<Text>& Messages() const { return messages_; }
  Text ClosingMessage() const { return messages_.empty() ? Text() : messages_.back(); }

  bool Complained() const { return complained_; }

 private:
  void Tell(TextView kind, TextView text, bool complaint);

  Output& output_;
  Text answer_;
  std::function<std::optional<std::string>()> readLine_;
  std::optional<Text> nextLine_;
  Text captions_[2];
  std::vector<Text> messages_;
  bool complained_ = false;
};

}  // namespace tarvo
