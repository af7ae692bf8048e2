#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "controls/Screens.h"
#include "desktop/Updates.h"

class QEventLoop;

namespace tarvo {

class FormView;

/// Shows forms as Qt widgets. A QApplication must exist before it and live longer.
///
/// The forms may be destroyed before it, but not used after it.
class QtForms : public FormHost {
 public:
  QtForms();
  ~QtForms() override;

  /// The screens whose forms it shows, to be told before the first form is made.
  void SetScreens(Screens& screens) { screens_ = &screens; }

  void Made(Form& form) override;

  /// Also returns when the process ends. A Child form waits, but keeps nobody else from input.
  void RunModal(Form& form) override;

  /// Closes what stands on the form, too. With the last visible Window the process ends.
  void Closed(Form& form) override;

  void Quit() override;

  int TextHeight(const Label& label) override;

  /// Ctrl+Z for the topmost form of the window that has the keyboard; see Form::OnUndo.
  bool Undo(bool typed);

  /// The manual's page on what the user has before him: that of the topmost form which can be
  /// worked with and has one; empty where none has.
  Text HelpPage() const;

 private:
  /// The views of one form, and its widget.
  class Record;
  struct ModalLoop {
    const Form* form;
    QEventLoop* loop;
  };

  Record* Find(const Form& form) const;
  void Focus(View& view);
  void FocusAfter(const QWidget* closed) const;
  void QuitWithoutWindows();
  void DestroyClosed();

  Screens* screens_ = nullptr;
  Updates updates_;
  std::vector<std::unique_ptr<Record>> records_;
  std::vector<ModalLoop> loops_;
  QObject context_;  ///< Ends what is posted and connected when this goes.
  bool closedSome_ = false;
};

}  // namespace tarvo
