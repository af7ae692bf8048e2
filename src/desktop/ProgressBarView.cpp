#include "desktop/ProgressBarView.h"

#include <QPainter>
#include <QPainterPath>

#include "desktop/Skin.h"
#include "desktop/SkinStyle.h"

namespace tarvo {

BarFace::BarFace(QWidget* parent) : QProgressBar(parent) {
  setTextVisible(false);
  setRange(0, 100);  // For screen readers; what is painted is finer.
}

void BarFace::Show(double share, const QColor& track, const QColor& bar) {
  share_ = share;
  track_ = track;
  bar_ = bar;
  setValue(static_cast<int>(share * 100));
}

void BarFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF whole = rect();
  if (track_.alpha() != 0) DrawPill(painter, whole, track_);
  if (share_ <= 0) return;
  const qreal radius = std::min(whole.width(), whole.height()) / 2;
  QPainterPath track;
  track.addRoundedRect(whole, radius, radius);
  painter.setClipPath(track);
  painter.fillRect(QRectF(whole.left(), whole.top(), whole.width() * share_, whole.height()), bar_);
}

ProgressBarView::ProgressBarView(ProgressBar& model, QWidget* parent)
    : ViewOf(model, new BarFace(parent)) {}

void ProgressBarView::Apply() {
  const auto done = static_cast<double>(model_.Value() - model_.Min());
  const auto all = static_cast<double>(model_.Max() - model_.Min());
  face_.Show(done / all, ToQt(model_.BackColour), ToQt(model_.ForeColour));
  ApplyCommon();
}

}  // namespace tarvo
