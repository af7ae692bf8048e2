#pragma once

#include <functional>
#include <optional>
#include <string>

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

  void ShowMessage(TextView text, TextView caption, BoxIcon icon) override;
  bool OpenAddress(TextView) override { return false; }
  TwipSize ScreenSize() override { return {0, 0}; }

  /// The last message of information; a command that has one as its result takes it from here.
  const Text& ClosingMessage() const { return closingMessage_; }

  bool Complained() const { return complained_; }

 private:
  void Tell(TextView kind, TextView text, bool complaint);

  Output& output_;
  Text answer_;
  std::function<std::optional<std::string>()> readLine_;
  Text captions_[2];
  Text closingMessage_;
  bool complained_ = false;
};

}  // namespace tarvo
