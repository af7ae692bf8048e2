#include "desktop/RowPanelView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "controls/Palette.h"
#include "desktop/LastInput.h"
#include "desktop/Pictures.h"
#include "desktop/RowPanelAccess.h"
#include "desktop/Skin.h"
#include "desktop/SkinStyle.h"

namespace tarvo {
namespace {

constexpr int kRowPitch = 360;  ///< Twips: what a step of the wheel counts in.
constexpr int kRowsANotch = 3;
constexpr int kWheelNotch = 120;  ///< As Qt counts.
constexpr int kGlyphMiddle = 11;  ///< Pixels from the left edge of a row's bar.
constexpr int kShipsInset = 6;    ///< Pixels that the bars of ships are shorter to the left.

using Area = RowPanel::Area;
using Family = RowPanel::Family;
using Picture = RowPanel::Picture;
using Place = RowPanel::Place;

Colour GroundOf(Picture picture) {
  switch (picture) {
    case Picture::MenuClosed:
      return palette::kViolet;
    case Picture::MenuOpen:
      return palette::kOrange;
    case Picture::Ship:
      return palette::kBlue;
    case Picture::ShipSelected:
      break;
  }
  return palette::kPeach;
}

/// A closed menu points to the side, an open one down; a chosen ship wears a full mark.
void DrawGlyph(QPainter& painter, Picture picture, const QPointF& middle, const QColor& ink) {
  painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  switch (picture) {
    case Picture::MenuClosed:
      painter.drawPolyline(
          QPolygonF{{middle + QPointF(-2, -4), middle + QPointF(2, 0), middle + QPointF(-2, 4)}});
      return;
    case Picture::MenuOpen:
      painter.drawPolyline(
          QPolygonF{{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)}});
      return;
    case Picture::ShipSelected:
      painter.setBrush(ink);
      [[fallthrough]];
    case Picture::Ship:
      painter.drawEllipse(middle, 3, 3);
      return;
  }
}

/// A cross at the end of the row.
void DrawMark(QPainter& painter, const QRect& bar, const QColor& ink) {
  constexpr qreal kSize = 3.5;
  const QPointF middle(bar.right() - kGlyphMiddle, QRectF(bar).center().y());
  painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(middle + QPointF(-kSize, -kSize), middle + QPointF(kSize, kSize));
  painter.drawLine(middle + QPointF(-kSize, kSize), middle + QPointF(kSize, -kSize));
}

}  // namespace

QRect PixelArea(const RowPanel::Area& area) {
  const QPoint first(ToPixels(area.Left), ToPixels(area.Top));
  const QPoint behind(ToPixels(area.Left + area.Width), ToPixels(area.Top + area.Height));
  return {first, behind - QPoint(1, 1)};
}

RowPanelFace::RowPanelFace(RowPanel& model, QWidget* parent) : QWidget(parent), model_(&model) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  MakeRowPanelsAccessible();
}

void RowPanelFace::RowsChanged() {
  if (Settle() && hasFocus()) model_->BringIntoSight(current_);
  if (hasFocus() && current_ != told_) {
    told_ = current_;
    TellFocusedRow(*this);
  }
  update();
}

/// Finds the row that the keyboard stands on after rows came, went or moved. A menu keeps the
/// keyboard while it moves; a ship may have become another one. Gives true where there is a row and
/// it stands elsewhere than before.
bool RowPanelFace::Settle() {
  const RowPanel::Row* row = model_->Seen(current_);
  if (row && row->PictureArea.Top == currentTop_) return false;
  const std::vector<Place> order = model_->InOrder();
  if (order.empty()) return false;
  if (!row || current_.Kind == Family::Ship) {
    current_ = order[static_cast<std::size_t>(Standing(order))];
  }
  currentTop_ = model_->Seen(current_)->PictureArea.Top;
  return true;
}

/// The place in `order` of the row that the keyboard stands on, or that lies where it stood.
std::ptrdiff_t RowPanelFace::Standing(const std::vector<Place>& order) const {
  const auto at = std::find_if(order.begin(), order.end(), [this](const Place& place) {
    return model_->Seen(place)->PictureArea.Top >= currentTop_;
  });
  return std::min<std::ptrdiff_t>(at - order.begin(), std::ssize(order) - 1);
}

void RowPanelFace::paintEvent(QPaintEvent* event) {
  if (!model_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Family kind : {Family::Menu, Family::Ship}) {
    const std::vector<RowPanel::Row>& rows = model_->Rows(kind);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool inSight = PixelArea(rows[i].PictureArea).intersects(event->rect());
      if (rows[i].Visible && inSight) DrawRow(painter, {kind, i}, rows[i]);
    }
  }
}

/// Gives the area of the bar, which is darker under a light caption.
QRect RowPanelFace::DrawBar(QPainter& painter, Place place, const RowPanel::Row& row,
                            const QColor& ink) const {
  QRect bar = PixelArea(row.PictureArea);
  const Picture shown = model_->PictureOf(place);
  const QString name = ToQt(model_->Pictures.Get().at(static_cast<std::size_t>(shown)));
  if (const QColor middle = PictureGround(painter, name); middle.isValid()) {
    DrawPicture(painter, bar, name, PictureFit::Across, LegibleLight(ink, middle));
    return bar;
  }
  if (place.Kind == Family::Ship) bar.adjust(kShipsInset, 0, -1, 0);
  DrawPill(painter, bar, Mix(ToQt(GroundOf(shown)), Qt::black, ink.lightness() > 128 ? 0.6 : 0));
  DrawGlyph(painter, shown, QPointF(bar.left() + kGlyphMiddle, QRectF(bar).center().y()), ink);
  return bar;
}

void RowPanelFace::DrawRow(QPainter& painter, Place place, const RowPanel::Row& row) const {
  const bool focused = hasFocus() && place == current_;
  const bool byKey = focused && LastInput::WasKey() && model_->FocusColour.Get().Alpha != 0;
  const QColor ink = ToQt(byKey ? model_->FocusColour.Get() : row.CaptionColour);
  const QRect bar = DrawBar(painter, place, row, ink);
  painter.setFont(font());
  painter.setPen(ink);
  QRect line = PixelArea(row.CaptionArea);
  if (!model_->WordsOn(place).empty()) {
    DrawMark(painter, bar, ink);
    line.setRight(bar.right() - 2 * kGlyphMiddle);
  }
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(Printable(row.Caption), Qt::ElideRight, line.width()));
  if (!focused) return;
  const QRectF ring = QRectF(bar).adjusted(2, 2, -2, -2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, 1.5));
  painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
}

void RowPanelFace::mousePressEvent(QMouseEvent* event) {
  if (!model_ || event->button() != Qt::LeftButton) return;
  const QPoint at = event->position().toPoint();
  const std::optional<Place> place = model_->At(ToTwips(at.x()), ToTwips(at.y()));
  if (!place) return;
  StandOn(*place);
  const Area caption = model_->Seen(*place)->CaptionArea;
  model_->Click(*place, caption.Contains(ToTwips(at.x()), ToTwips(at.y())));
}

void RowPanelFace::mouseMoveEvent(QMouseEvent* event) {
  if (!model_) return;
  const QPoint at = event->position().toPoint();
  PointAt(model_->At(ToTwips(at.x()), ToTwips(at.y())));
}

void RowPanelFace::leaveEvent(QEvent*) {
  if (model_) PointAt({});
}

/// Between two rows the pointer crosses the free part, also where it is too fast to be seen there.
void RowPanelFace::PointAt(std::optional<Place> place) {
  if (place == under_) return;
  if (under_ && place) model_->Point({});
  under_ = place;
  model_->Point(place);
}

void RowPanelFace::wheelEvent(QWheelEvent* event) {
  if (!model_) return;
  wheel_ += event->pixelDelta().isNull()
                ? event->angleDelta().y() * kRowPitch * kRowsANotch / kWheelNotch
                : ToTwips(event->pixelDelta().y());
  const int whole = wheel_ / 15 * 15;
  wheel_ -= whole;
  model_->ScrollBy(whole);
  event->accept();
}

void RowPanelFace::keyPressEvent(QKeyEvent* event) {
  if (!model_) return;
  update();  // With the keyboard's look.
  const std::vector<Place> order = model_->InOrder();
  if (order.empty()) return QWidget::keyPressEvent(event);
  Settle();
  const std::ptrdiff_t at = Standing(order);
  const std::ptrdiff_t page = std::max(1, parentWidget()->height() * 15 / kRowPitch - 1);
  const bool isMenu = current_.Kind == Family::Menu;
  const Picture shown = model_->Seen(current_)->Shown;
  switch (event->key()) {
    case Qt::Key_Up:
      return WalkTo(order, at - 1);
    case Qt::Key_Down:
      return WalkTo(order, at + 1);
    case Qt::Key_PageUp:
      return WalkTo(order, at - page);
    case Qt::Key_PageDown:
      return WalkTo(order, at + page);
    case Qt::Key_Home:
      return WalkTo(order, 0);
    case Qt::Key_End:
      return WalkTo(order, std::ssize(order) - 1);
    case Qt::Key_Right:
    case Qt::Key_Left: {
      const Picture before =
          event->key() == Qt::Key_Right ? Picture::MenuClosed : Picture::MenuOpen;
      if (isMenu && shown == before) model_->Click(current_, true);
      return;
    }
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!LastInput::WasRepetition()) model_->Click(current_, true);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void RowPanelFace::WalkTo(const std::vector<Place>& order, std::ptrdiff_t at) {
  StandOn(
      order[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at, 0, std::ssize(order) - 1))]);
  model_->BringIntoSight(current_);
}

void RowPanelFace::StandOn(Place place) {
  current_ = place;
  currentTop_ = model_->Seen(place)->PictureArea.Top;
  RowsChanged();
}

void RowPanelFace::focusInEvent(QFocusEvent* event) {
  if (!model_) return;
  Settle();
  // Not by a click: the row that was clicked is in sight.
  if (event->reason() != Qt::MouseFocusReason) model_->BringIntoSight(current_);
  told_ = current_;
  TellFocusedRow(*this);
  update();
}

void RowPanelFace::focusOutEvent(QFocusEvent*) {
  update();
}

/// A caption that is cut off is told whole, and what a mark means.
bool RowPanelFace::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !model_) return QWidget::event(event);
  const auto& help = static_cast<QHelpEvent&>(*event);
  const std::optional<Place> place = model_->At(ToTwips(help.x()), ToTwips(help.y()));
  QString told;
  if (place) {
    const RowPanel::Row& row = *model_->Seen(*place);
    const QString caption = Printable(row.Caption);
    if (fontMetrics().horizontalAdvance(caption) > PixelArea(row.CaptionArea).width()) {
      told = caption;
    }
    if (const Text words = model_->WordsOn(*place); !words.empty()) {
      told += (told.isEmpty() ? QString() : QStringLiteral("\n")) + Printable(words);
    }
  }
  QToolTip::showText(help.globalPos(), told, this);
  return true;
}

RowPanelView::RowPanelView(RowPanel& model, QWidget* parent)
    : ViewOf(model, new RowPanelFace(model, parent)) {}

void RowPanelView::Apply() {
  ApplyCommon();
  face_.RowsChanged();
}

void RowPanelView::Detach() {
  View::Detach();
  face_.LetGo();
}

}  // namespace tarvo
