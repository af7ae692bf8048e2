#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "controls/TextBox.h"
#include "desktop/View.h"

namespace tarvo {

class TextBoxView : public ViewOf<TextBox, QLineEdit> {
 public:
  TextBoxView(TextBox& model, QWidget* parent);
  void Apply() override;
};

/// A text of several lines, which scrolls.
class LinesView : public ViewOf<TextBox, QPlainTextEdit> {
 public:
  LinesView(TextBox& model, QWidget* parent);
  void Apply() override;

 private:
  Text shown_;  ///< What the widget holds, as the model has it.
};

}  // namespace tarvo
