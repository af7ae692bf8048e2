#pragma once

#include <QObject>
#include <functional>

namespace tarvo {

/// Listens for F1 in all windows of the program, dialogs and message boxes among them. A
/// QApplication must exist before it and live longer.
class HelpKey : public QObject {
 public:
  explicit HelpKey(std::function<void()> showHelp);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> showHelp_;
  bool showing_ = false;
};

}  // namespace tarvo
