#pragma once

#include <QObject>
#include <functional>

namespace tarvo {

/// Listens for Ctrl+Z in all windows of the program before their fields do. A QApplication must
/// exist before it and live longer.
class UndoKey : public QObject {
 public:
  /// `undo`: gives true when it took the key; `typed` is true where the field that has the keyboard
  /// can take back what was typed in it.
  explicit UndoKey(std::function<bool(bool typed)> undo);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<bool(bool)> undo_;
};

}  // namespace tarvo
