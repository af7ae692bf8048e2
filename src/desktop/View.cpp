#include "desktop/View.h"

#include <QAbstractButton>
#include <QAction>
#include <QPalette>

#include "controls/Palette.h"
#include "desktop/MessageIcons.h"
#include "desktop/PointerWatch.h"
#include "desktop/Skin.h"

namespace tarvo {

void View::ApplyCommon() {
  QWidget& face = *widget_;
  WatchPointer(face);
  face.setGeometry(PixelRect(*control_));
  const QFont font = ToQt(control_->Font);
  if (face.font() != font) face.setFont(font);
  ApplyNameAndHint();
  face.setEnabled(control_->Enabled);
  face.setVisible(control_->Visible);
  face.update();
}

/// Qt would describe the widget by its tooltip, tags and all.
void View::ApplyNameAndHint() {
  QWidget& face = *widget_;
  const QString hint = ToQt(control_->Hint);
  QString name = ToQt(control_->AccessibleName);
  if (!hint.isEmpty()) {
    const auto* button = qobject_cast<QAbstractButton*>(&face);
    if (name.isEmpty() && button) name = button->text().remove(QLatin1Char('&'));
    name += QLatin1String(": ") + hint;
  }
  if (face.accessibleName() != name) face.setAccessibleName(name);
  if (hint == hint_) return;
  hint_ = hint;
  face.setToolTip(hint.isEmpty() ? hint : QStringLiteral("<p>%1</p>").arg(hint.toHtmlEscaped()));
  face.setAccessibleDescription(hint.isEmpty()     ? QString()
                                : control_->Marked ? QStringLiteral("Marked field")
                                                   : QStringLiteral("Hint"));
}

void View::ApplyMark(QLineEdit& line) {
  if (control_->Marked && !mark_) {
    mark_ = line.addAction(MessageIcon(MessageSign::Exclamation), QLineEdit::TrailingPosition);
  }
  if (mark_) mark_->setVisible(control_->Marked);
}

void View::WatchPointer(QWidget& widget) {
  if (watched_ || !control_->OnMouseMove) return;
  watched_ = true;
  new PointerWatch(*this, widget);
}

void View::ApplyFieldColours() {
  const Colour model = control_->BackColour;
  const QColor ground = ToQt(model.Alpha == 0 ? palette::kPanel : model);
  const QColor text = ToQt(control_->ForeColour);
  QPalette colours = widget_->palette();
  if (colours.color(QPalette::Base) == ground && colours.color(QPalette::Text) == text &&
      widget_->testAttribute(Qt::WA_SetPalette)) {
    return;
  }
  for (const auto role : {QPalette::Base, QPalette::Window, QPalette::HighlightedText}) {
    colours.setColor(role, ground);
  }
  for (const auto role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::Highlight}) {
    colours.setColor(role, text);
  }
  colours.setColor(QPalette::PlaceholderText, Mix(text, ground, 0.5));
  // Switched off, a field is hollow and its text dimmed, but legible.
  colours.setColor(QPalette::Disabled, QPalette::Base, Qt::black);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::Highlight}) {
    colours.setColor(QPalette::Disabled, role, Mix(text, Qt::black, 0.4));
  }
  widget_->setPalette(colours);
}

}  // namespace tarvo
