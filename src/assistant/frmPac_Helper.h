#pragma once

#include <array>

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/Shape.h"
#include "controls/Timer.h"
#include "state/Application.h"

namespace tarvo {

/// The assistant's window beside the main one: a figure that walks in from the right and speaks in
/// a bubble. What it does stands in AppState.
class frmPac_Helper : public Form {
 public:
  explicit frmPac_Helper(Application& app);

  void Load() override;

  /// Messages come as boxes from here on, and an open question waits for the figure no more.
  void Unload() override;

  /// Brings the figure on at the right edge, unless it is about to step to its place.
  void PacWalkIn();

  /// One step to the left. At its place the figure begins to speak.
  void PacWalkStep();

  /// Closes the bubble, unless the dialog of its question is open.
  void PacHideBubble();

  /// Sends the figure walking from one step to the right of where it is.
  void StepBack();

  /// It isn't on the stage, or the stage isn't shown.
  bool HasLeft() const;

  /// Makes the window that much higher; `twips` may be negative.
  void Grow(int twips) { Height = Height + twips; }

  Shape Shape1{this};
  std::array<Shape, 4> Shape2{Shape{this}, Shape{this}, Shape{this}, Shape{this}};
  Label lblPac_Label{this};
  Button cmdStop_Talk{this};
  Image Pac_Helper{this};
  Timer Pacman_Animation_Timer{this, 40};

 private:
  void LayOut();
  void Tick();
  void TickTalk();
  void StopTalk();
  void OpenBubble();
  void LeaveStage();
  void ShowFrame(TextView set);
  void ShowBubble(bool show);
  void GrowBubble(int twips);
  float StopPlace() const;

  Application& app_;
  int bubbleGrowth_ = 0;  ///< What a long text has added to the bubble's height.
  int lift_ = 0;          ///< How far the window has moved up for that.
};

}  // namespace tarvo
