#include "desktop/View.h"

#include <QPalette>

#include "controls/Palette.h"
#include "desktop/PointerWatch.h"
#include "desktop/Skin.h"

namespace tarvo {

void View::ApplyCommon() {
  QWidget& face = *widget_;
  WatchPointer(face);
  face.setGeometry(PixelRect(*control_));
  const QFont font = ToQt(control_->Font);
  if (face.font() != font) face.setFont(font);
  const QString name = ToQt(control_->AccessibleName);
  if (face.accessibleName() != name) face.setAccessibleName(name);
  face.setEnabled(control_->Enabled);
  face.setVisible(control_->Visible);
  face.update();
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
