#pragma once

#include <QLineEdit>

#include "controls/TextBox.h"
#include "desktop/View.h"

namespace tarvo {

class TextBoxView : public ViewOf<TextBox, QLineEdit> {
 public:
  TextBoxView(TextBox& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
