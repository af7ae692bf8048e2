#include "desktop/MediaPlayerView.h"

#include <QPainter>
#include <QWindow>

namespace tarvo {

VideoFace::VideoFace(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void VideoFace::Show(std::shared_ptr<const VideoPicture> picture) {
  if (picture == picture_) return;
  picture_ = std::move(picture);
  setAttribute(Qt::WA_OpaquePaintEvent, picture_ != nullptr);
  update();
}

void VideoFace::paintEvent(QPaintEvent*) {
  if (picture_) {
    const auto* pixels = reinterpret_cast<const uchar*>(picture_->Pixels.data());
    const QImage image(pixels, picture_->Width, picture_->Height, picture_->Width * 4,
                       QImage::Format_RGB32);
    const QSize seen = image.size().scaled(size(), Qt::KeepAspectRatio);
    QRect area({}, seen);
    area.moveCenter(rect().center());
    QPainter painter(this);
    if (area != rect()) painter.fillRect(rect(), Qt::black);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(area, image);
  }
  if (OnSeen) OnSeen();
}

void VideoFace::showEvent(QShowEvent*) {
  if (QWindow* window = this->window()->windowHandle()) window->installEventFilter(this);
}

/// A window that comes back is shown as it was, with nothing painted anew.
bool VideoFace::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Expose && InSight() && OnSeen) OnSeen();
  return false;
}

bool VideoFace::InSight() const {
  const QWindow* window = this->window()->windowHandle();
  return window && window->isExposed() && !visibleRegion().isEmpty();
}

MediaPlayerView::MediaPlayerView(MediaPlayer& model, QWidget* parent)
    : ViewOf(model, new VideoFace(parent)) {
  face_.OnSeen = [this] { GoOn(); };
  pace_.setTimerType(Qt::PreciseTimer);
  pace_.setInterval(1000 / kPicturesPerSecond);
  QObject::connect(&pace_, &QTimer::timeout, &pace_, [this] { Next(); });
}

void MediaPlayerView::Apply() {
  const VideoPictures& pictures = model_.Pictures();
  if (pictures.empty()) {
    pace_.stop();
    shown_ = 0;
  }
  face_.Show(pictures.empty() ? nullptr : pictures[shown_ % pictures.size()]);
  ApplyCommon();
}

void MediaPlayerView::Detach() {
  View::Detach();
  pace_.stop();
}

void MediaPlayerView::GoOn() {
  if (!Live() || !model_.Playing() || pace_.isActive()) return;
  if (model_.Pictures().empty()) {
    QTimer::singleShot(0, &pace_, [this] { Open(); });
  } else {
    pace_.start();
  }
}

void MediaPlayerView::Open() {
  if (!Live()) return;
  const QSize size = (QSizeF(face_.size()) * face_.devicePixelRatioF()).toSize();
  model_.Open(size.width(), size.height());
}

void MediaPlayerView::Next() {
  const VideoPictures& pictures = model_.Pictures();
  if (!Live() || pictures.empty() || !face_.InSight()) return pace_.stop();
  if (++shown_ < pictures.size()) return face_.Show(pictures[shown_]);
  if (!model_.Repeats) return model_.Stop();
  shown_ = 0;
  face_.Show(pictures[0]);
}

}  // namespace tarvo
