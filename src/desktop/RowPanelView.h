#pragma once

#include <QWidget>

#include "controls/RowPanel.h"
#include "desktop/View.h"

namespace tarvo {

/// An area of a panel in pixels of its widget.
QRect PixelArea(const RowPanel::Area& area);

/// Draws the rows of a panel that lie in sight, and reports what mouse and keyboard do with them.
/// The keyboard stands on one row: the arrow keys walk it in the order of the screen, Enter and
/// Space click it.
class RowPanelFace : public QWidget {
 public:
  RowPanelFace(RowPanel& model, QWidget* parent);

  /// The model goes: it is never touched again.
  void LetGo() { model_ = nullptr; }

  /// Nothing once the model is gone.
  RowPanel* Model() const { return model_; }

  /// The row that the keyboard stands on.
  RowPanel::Place Current() const { return current_; }

  /// The rows have changed: the keyboard stays where it is on the panel.
  void RowsChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QRect DrawBar(QPainter& painter, RowPanel::Place place, const RowPanel::Row& row,
                const QColor& ink) const;
  void DrawRow(QPainter& painter, RowPanel::Place place, const RowPanel::Row& row) const;
  void PointAt(std::optional<RowPanel::Place> place);
  bool Settle();
  void WalkTo(const std::vector<RowPanel::Place>& order, std::ptrdiff_t at);
  void StandOn(RowPanel::Place place);
  std::ptrdiff_t Standing(const std::vector<RowPanel::Place>& order) const;

  RowPanel* model_;
  std::optional<RowPanel::Place> under_;  ///< The row that the pointer is on.
  RowPanel::Place current_;
  RowPanel::Place told_;  ///< The row that screen readers know to have the keyboard.
  int currentTop_ = 0;    ///< Twips, when the keyboard came there.
  int wheel_ = 0;         ///< Twips that make no whole pixel yet.
};

class RowPanelView : public ViewOf<RowPanel, RowPanelFace> {
 public:
  RowPanelView(RowPanel& model, QWidget* parent);
  void Apply() override;
  void Detach() override;
};

}  // namespace tarvo
