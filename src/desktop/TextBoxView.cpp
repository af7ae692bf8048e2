#include "desktop/TextBoxView.h"

#include <QTextDocument>

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
  face_.setReadOnly(model_.ReadOnly);
  ApplyMark(face_);
  ApplyFieldColours();
  ApplyCommon();
}

LinesView::LinesView(TextBox& model, QWidget* parent) : ViewOf(model, new QPlainTextEdit(parent)) {
  face_.setTabChangesFocus(true);
  face_.setWordWrapMode(model.BreakAnywhere ? QTextOption::WrapAnywhere
                                            : QTextOption::WrapAtWordBoundaryOrAnywhere);
  face_.document()->setDocumentMargin(6);
  QObject::connect(&face_, &QPlainTextEdit::textChanged, &face_, [this] {
    if (!Live()) return;
    QString text = face_.toPlainText();
    text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    shown_ = FromQt(text);
    model_.SetText(shown_);
  });
}

void LinesView::Apply() {
  if (shown_ != model_.Text()) {
    shown_ = model_.Text();
    const QSignalBlocker quiet(&face_);
    face_.setPlainText(ToQt(shown_));
  }
  face_.setReadOnly(model_.ReadOnly);
  // A text that is only read can still be walked through and copied from by keyboard.
  if (model_.ReadOnly) {
    face_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  ApplyFieldColours();
  ApplyCommon();
}

}  // namespace tarvo
