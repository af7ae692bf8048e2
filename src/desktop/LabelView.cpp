#include "desktop/LabelView.h"

#include <QPainter>
#include <QTextLayout>
#include <vector>

#include "desktop/Skin.h"

namespace tarvo {
namespace {

/// The lines of `text` that fit into `area`, the last one ending in "…" where some are left out.
std::vector<QString> LinesThatFit(const QString& text, const QFont& font, const QSize& area,
                                  bool wrap) {
  const QFontMetrics metrics(font);
  const int most = std::max(1, area.height() / metrics.lineSpacing());
  std::vector<QString> lines;
  QString whole = text;
  whole.remove(QLatin1Char('\r'));
  const QStringList paragraphs = whole.split(QLatin1Char('\n'));
  for (qsizetype at = 0; at < paragraphs.size(); ++at) {
    QTextLayout layout(paragraphs[at], font);
    QTextOption option;
    option.setWrapMode(wrap ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    int start = 0;
    do {
      QTextLine line = layout.createLine();
      if (!line.isValid()) break;
      line.setLineWidth(area.width());
      const bool last = static_cast<int>(lines.size()) + 1 == most;
      const bool more = at + 1 < paragraphs.size();
      const bool cut = last || !wrap;
      QString piece = paragraphs[at].mid(start, cut ? -1 : line.textLength());
      // The blanks at which a line was broken hang over its end.
      while (piece.endsWith(QLatin1Char(' '))) piece.chop(1);
      if (last && more) piece += QStringLiteral("…");
      lines.push_back(cut ? metrics.elidedText(piece, Qt::ElideRight, area.width()) : piece);
      if (last) return lines;
      start += line.textLength();
    } while (start < paragraphs[at].size());
    layout.endLayout();
  }
  return lines;
}

}  // namespace

LabelFace::LabelFace(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelFace::SetColours(const QColor& ground, const QColor& text) {
  ground_ = ground;
  text_ = text;
}

void LabelFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (ground_.alpha() != 0) painter.fillRect(rect(), ground_);
  if (text().isEmpty()) return;
  painter.setPen(text_);
  const std::vector<QString> lines = LinesThatFit(text(), font(), size(), wordWrap());
  const QFontMetrics metrics(font());
  const int tall = static_cast<int>(lines.size()) * metrics.lineSpacing();
  // Text that flows begins at the top; a line of its own stands in the middle.
  int top = wordWrap() ? 0 : std::max(0, (height() - tall) / 2);
  for (const QString& line : lines) {
    const int sides = (alignment() & Qt::AlignHorizontal_Mask).toInt();
    painter.drawText(QRect(0, top, width(), metrics.lineSpacing()),
                     sides | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, line);
    top += metrics.lineSpacing();
  }
}

int LabelPixels(const Label& label) {
  const QFont font = ToQt(label.Font);
  const QSize area(PixelRect(label).width(), QWIDGETSIZE_MAX);
  const auto lines = LinesThatFit(ToQt(label.Caption), font, area, label.WordWrap);
  return static_cast<int>(lines.size()) * QFontMetrics(font).lineSpacing();
}

LabelView::LabelView(Label& model, QWidget* parent) : ViewOf(model, new LabelFace(parent)) {}

void LabelView::Apply() {
  const Label::Align side = model_.Alignment;
  face_.setAlignment(side == Label::Align::Left     ? Qt::AlignLeft
                     : side == Label::Align::Centre ? Qt::AlignHCenter
                                                    : Qt::AlignRight);
  face_.setWordWrap(model_.WordWrap);
  const QString caption = ToQt(model_.Caption);
  if (face_.text() != caption) face_.setText(caption);
  face_.SetColours(ToQt(model_.BackColour), ToQt(model_.ForeColour));
  ApplyCommon();
}

}  // namespace tarvo
