#include "console/Background.h"

namespace tarvo {

void GoOnInBackground(int) {}

}  // namespace tarvo
