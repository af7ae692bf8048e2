#pragma once

#include <QComboBox>
#include <QWheelEvent>

#include "controls/ComboBox.h"
#include "controls/DriveListBox.h"
#include "desktop/View.h"

namespace tarvo {

/// A drop-down that takes the mouse wheel only while its list is open: it would change under a
/// wheel that is meant for something else.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent);

  /// Lets the user type in its line. The first click into the line selects all of it, so that a
  /// hint which stands there gives way to what is typed.
  void MakeEditable();

  /// Makes the list read `items`, and leaves no row picked.
  void SetItems(const QStringList& items);

  void showPopup() override;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void focusInEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool clickedInto_ = false;
};

class ComboBoxView : public ViewOf<ComboBox, DropDown> {
 public:
  ComboBoxView(ComboBox& model, QWidget* parent);
  void Apply() override;
};

class DriveListBoxView : public ViewOf<DriveListBox, DropDown> {
 public:
  DriveListBoxView(DriveListBox& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
