#pragma once

#include <map>
#include <memory>
#include <typeindex>
#include <vector>

#include "controls/Form.h"

namespace tarvo {

/// What shows forms to the user.
class FormHost {
 public:
  virtual ~FormHost() = default;

  /// The form has come into being, unseen; its load step follows.
  virtual void Made(Form& form) = 0;

  /// Returns when the form has been closed. Timers of all forms go on meanwhile; of the user's
  /// input only what belongs to this form comes through.
  virtual void RunModal(Form& form) = 0;

  /// The form has been closed: whoever draws it lets go of it and of its controls before this
  /// returns. The object itself lives until Screens::DestroyClosed.
  virtual void Closed(Form& form) = 0;

  /// Ends the event loop, and with it the process.
  virtual void Quit() = 0;

  /// The height in twips that the label's caption takes at the label's width; 0 where none is
  /// drawn.
  virtual int TextHeight(const Label&) { return 0; }
};

/// The one-of-each forms, by type. A form comes into being on first use and starts afresh after
/// it was closed.
class Screens {
 public:
  explicit Screens(FormHost& host) : host_(host) {}

  /// Gives the form of type T; when there is none it is made with `arguments` and loaded.
  template <class T, class... Arguments>
  T& Use(Arguments&&... arguments) {
    if (T* open = Find<T>()) return *open;
    auto made = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    T& form = *made;
    open_[typeid(T)] = std::move(made);
    host_.Made(form);
    form.Load();
    return form;
  }

  /// The form of type T, or nothing when there is none.
  template <class T>
  T* Find() const {
    const auto found = open_.find(typeid(T));
    return found == open_.end() ? nullptr : static_cast<T*>(found->second.get());
  }

  /// Shows the form and returns when it has been closed.
  void RunModal(Form& form);

  /// Runs the form's closing step and takes it off the screen. The form may be the one whose
  /// handler is running.
  void Close(Form& form);

  /// True while the form has not been closed.
  bool IsOpen(const Form& form) const;

  /// Frees the forms that have been closed. To be called with none of their handlers running.
  void DestroyClosed() { closed_.clear(); }

  FormHost& Host() { return host_; }

 private:
  FormHost& host_;
  std::map<std::type_index, std::unique_ptr<Form>> open_;
  std::vector<std::unique_ptr<Form>> closed_;
};

}  // namespace tarvo
