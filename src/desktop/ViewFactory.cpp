#include "desktop/ViewFactory.h"

#include "controls/FileListBox.h"
#include "desktop/ButtonView.h"
#include "desktop/CheckBoxView.h"
#include "desktop/ComboBoxView.h"
#include "desktop/DirListBoxView.h"
#include "desktop/ImageView.h"
#include "desktop/LabelView.h"
#include "desktop/ListBoxView.h"
#include "desktop/MediaPlayerView.h"
#include "desktop/PanelViews.h"
#include "desktop/ProgressBarView.h"
#include "desktop/RowPanelView.h"
#include "desktop/StatusBarView.h"
#include "desktop/TextBoxView.h"
#include "desktop/TimerView.h"

namespace tarvo {
namespace {

class Factory : public ControlVisitor {
 public:
  explicit Factory(std::vector<std::unique_ptr<View>>& views) : views_(views) {}

  void MakeChildren(const Control& parent, QWidget* ground) {
    for (Control* child : parent.Children()) {
      ground_ = ground;
      const std::size_t before = views_.size();
      child->Accept(*this);
      if (views_.size() == before) continue;
      if (QWidget* widget = views_.back()->Widget()) MakeChildren(*child, widget);
    }
  }

  void Visit(Button& control) override { Make<ButtonView>(control); }
  void Visit(CheckBox& control) override { Make<CheckBoxView>(control); }
  void Visit(ComboBox& control) override { Make<ComboBoxView>(control); }
  void Visit(DirListBox& control) override { Make<DirListBoxView>(control); }
  void Visit(DriveListBox& control) override { Make<DriveListBoxView>(control); }
  void Visit(FileListBox& control) override { Make<ListBoxView>(control); }
  void Visit(Form&) override {}  // Forms have owners, not parents.
  void Visit(Frame& control) override { Make<FrameView>(control); }
  void Visit(Image& control) override { Make<ImageView>(control); }
  void Visit(Label& control) override { Make<LabelView>(control); }
  void Visit(ListBox& control) override { Make<ListBoxView>(control); }
  void Visit(MediaPlayer& control) override { Make<MediaPlayerView>(control); }
  void Visit(ProgressBar& control) override { Make<ProgressBarView>(control); }
  void Visit(RowPanel& control) override { Make<RowPanelView>(control); }
  void Visit(Shape& control) override { Make<ShapeView>(control); }
  void Visit(StatusBar& control) override { Make<StatusBarView>(control); }
  void Visit(TextBox& control) override {
    control.MultiLine ? Make<LinesView>(control) : Make<TextBoxView>(control);
  }
  void Visit(Timer& control) override { views_.push_back(std::make_unique<TimerView>(control)); }

 private:
  template <class ViewClass, class Model>
  void Make(Model& control) {
    views_.push_back(std::make_unique<ViewClass>(control, ground_));
  }

  std::vector<std::unique_ptr<View>>& views_;
  QWidget* ground_ = nullptr;
};

}  // namespace

std::vector<std::unique_ptr<View>> MakeViews(const Control& parent, QWidget* ground) {
  std::vector<std::unique_ptr<View>> views;
  Factory(views).MakeChildren(parent, ground);
  return views;
}

}  // namespace tarvo
