#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The models that screens are made of. A control is a plain object that holds what a control on
/// a screen shows; a view draws it, and routines and tests drive it with no view at all.
///
/// Lengths are twips, 15 to the logical pixel, from the top left corner of the parent's client
/// area. Rows of lists count from 0.

class Control;
class ControlVisitor;

/// Whoever draws a control. One control has at most one observer.
class ControlObserver {
 public:
  virtual ~ControlObserver() = default;

  /// Something about the control changed; it may be drawn at the next turn of the event loop.
  virtual void ControlChanged(Control& control) = 0;

  /// The control wants its present state on the screen before the call returns.
  virtual void ControlRefreshed(Control& control) = 0;

  /// The control wants the keyboard.
  virtual void ControlFocused(Control& control) = 0;
};

struct Colour {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  std::uint8_t Alpha = 255;  ///< 0 lets what is behind show through.

  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kTransparent{0, 0, 0, 0};

/// Fonts by their part in the skin; the view picks the installed face.
enum class FontRole { Normal, Digits, Dialog };

struct Font {
  FontRole Role = FontRole::Normal;
  double Points = 8;

  friend bool operator==(const Font&, const Font&) = default;
};

/// A field of a control that tells the control's observer when its value changes.
template <class T>
class Property {
 public:
  Property(Control& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;

  Property& operator=(T value);
  Property& operator=(const Property& other) { return *this = other.value_; }
  operator const T&() const { return value_; }
  const T& Get() const { return value_; }
  friend bool operator==(const Property& property, const T& value) {
    return property.value_ == value;
  }

 private:
  Control& owner_;
  T value_;
};

/// What the kinds of control have in common.
class Control {
 public:
  /// A control with a parent is drawn on it, and destroyed before it.
  explicit Control(Control* parent);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  Property<int> Left{*this, 0};
  Property<int> Top{*this, 0};
  Property<int> Width{*this, 0};
  Property<int> Height{*this, 0};
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<Colour> BackColour{*this, kTransparent};
  Property<Colour> ForeColour{*this, kBlack};
  Property<tarvo::Font> Font{*this, tarvo::Font{}};

  /// What a screen reader calls the control where no caption says it.
  Property<Text> AccessibleName{*this, {}};

  /// The tooltip, which screen readers tell behind the name.
  Property<Text> Hint{*this, {}};

  /// What the user has put into the field won't do as it stands: the view draws a mark, and Hint
  /// says why.
  Property<bool> Marked{*this, false};

  /// Marks the field for that reason; an empty one takes the mark away.
  void Mark(Text why) {
    Marked = !why.empty();
    Hint = std::move(why);
  }

  void Move(int left, int top, int width, int height);

  /// The pointer has come onto the control, or moves on it. To be set before a view is made; where
  /// nobody listens, no view watches the pointer.
  std::function<void()> OnMouseMove;

  /// The user moves the pointer onto it or on it. Does nothing while it is not usable.
  void MoveMouse() {
    if (Usable()) Raise(OnMouseMove);
  }

  /// Draws the control, and what stands on it, before it returns.
  void Refresh();

  /// Gives the control the keyboard.
  void SetFocus();

  /// True when the user can work with it: it and all its parents are visible and enabled.
  bool Usable() const;

  Control* Parent() const { return parent_; }

  /// The controls on this one in the order of their making, which is also the order of the Tab
  /// key and of drawing, the first at the back.
  const std::vector<Control*>& Children() const { return children_; }

  virtual void Accept(ControlVisitor& visitor) = 0;

  void Observe(ControlObserver* observer) { observer_ = observer; }

  /// Tells the observer that something changed.
  void Changed();

 protected:
  static void Raise(const std::function<void()>& event) {
    if (event) event();
  }

 private:
  Control* parent_;
  std::vector<Control*> children_;
  ControlObserver* observer_ = nullptr;
};

template <class T>
Property<T>& Property<T>::operator=(T value) {
  if (value_ != value) {
    value_ = std::move(value);
    owner_.Changed();
  }
  return *this;
}

class Button;
class CheckBox;
class ComboBox;
class DirListBox;
class DriveListBox;
class FileListBox;
class Form;
class Frame;
class Image;
class Label;
class ListBox;
class MediaPlayer;
class ProgressBar;
class RowPanel;
class Shape;
class StatusBar;
class TextBox;
class Timer;

/// One function for each kind of control.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Button& control) = 0;
  virtual void Visit(CheckBox& control) = 0;
  virtual void Visit(ComboBox& control) = 0;
  virtual void Visit(DirListBox& control) = 0;
  virtual void Visit(DriveListBox& control) = 0;
  virtual void Visit(FileListBox& control) = 0;
  virtual void Visit(Form& control) = 0;
  virtual void Visit(Frame& control) = 0;
  virtual void Visit(Image& control) = 0;
  virtual void Visit(Label& control) = 0;
  virtual void Visit(ListBox& control) = 0;
  virtual void Visit(MediaPlayer& control) = 0;
  virtual void Visit(ProgressBar& control) = 0;
  virtual void Visit(RowPanel& control) = 0;
  virtual void Visit(Shape& control) = 0;
  virtual void Visit(StatusBar& control) = 0;
  virtual void Visit(TextBox& control) = 0;
  virtual void Visit(Timer& control) = 0;
};

}  // namespace tarvo
