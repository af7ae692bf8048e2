#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

class QWidget;

namespace tarvo {

/// Follows the pointer through a window. A quick one is seen at a few places only: the watched
/// grounds that lie between two of them hear of it all the same. Buttons don't, since the user
/// passes them by.
class PointerTrail : public QObject {
 public:
  /// Follows the pointer in this window from now on, for as long as the window lives.
  static void Follow(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit PointerTrail(QWidget& window);
  void GoTo(QPoint place);

  QWidget& window_;
  std::optional<QPoint> last_;  ///< Where it was seen; nothing once it has left the window.
};

}  // namespace tarvo
