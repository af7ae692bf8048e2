#include "desktop/TextBoxView.h"

#include "desktop/Skin.h"

namespace tarvo {

TextBoxView::TextBoxView(TextBox& model, QWidget* parent) : ViewOf(model, new QLineEdit(parent)) {
  face_.setTextMargins(4, 0, 4, 0);
  QObject::connect(&face_, &QLineEdit::textEdited, &face_, [this](const QString& text) {
    if (Live()) model_.SetText(FromQt(text));
  });
}

void TextBoxView::Apply() {
  const QString text = ToQt(model_.Text());
  if (face_.text() != text) {
    const int cursor = face_.hasFocus() ? face_.cursorPosition() : 0;
    face_.setText(text);
    if (face_.hasFocus()) face_.setCursorPosition(std::min<int>(cursor, text.size()));
  }
  ApplyFieldColours();
  ApplyCommon();
}

}  // namespace tarvo
