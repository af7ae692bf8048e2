#pragma once

#include "gametools/frmGameTools.h"

namespace tarvo {

inline constexpr TextView kNoMenu = u"Select QB Menu!";

/// As long as one stands it is a routine that fills the fields: the status line is left to it.
class frmGameTools::FieldsAreFilled {
 public:
  explicit FieldsAreFilled(frmGameTools& screen) : screen_(screen) { ++screen_.filling_; }
  FieldsAreFilled(const FieldsAreFilled&) = delete;
  ~FieldsAreFilled() { --screen_.filling_; }

 private:
  frmGameTools& screen_;
};

}  // namespace tarvo
