#pragma once

#include <QProgressBar>

#include "controls/ProgressBar.h"
#include "desktop/View.h"

namespace tarvo {

/// A bar that fills up in a track.
class BarFace : public QProgressBar {
 public:
  explicit BarFace(QWidget* parent);

  /// `share` is what is done, from 0 to 1.
  void Show(double share, const QColor& track, const QColor& bar);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double share_ = 0;
  QColor track_;
  QColor bar_;
};

class ProgressBarView : public ViewOf<ProgressBar, BarFace> {
 public:
  ProgressBarView(ProgressBar& model, QWidget* parent);
  void Apply() override;
  bool PaintsAtOnce() const override { return true; }
};

}  // namespace tarvo
