#pragma once

#include <QListView>
#include <functional>

namespace tarvo {

/// A list whose rows the models choose, not the widget: it reports what the user does.
class RowsWidget : public QListView {
 public:
  explicit RowsWidget(QWidget* parent);

  std::function<void(int)> OnPressed;  ///< A row was clicked, or the space key hit on it.
  std::function<void(int)> OnOpened;   ///< A row was double clicked, or Enter hit on it.
  std::function<void(int)> OnWalked;   ///< The keyboard came to another row.
  std::function<void()> OnUp;          ///< Backspace or Left was hit; Right then opens a row, too.

  /// Moves the keyboard's row without scrolling to it; -1 for none.
  void SetCurrentRow(int row);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace tarvo
