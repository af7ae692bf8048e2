#include "platform/PlatformError.h"

namespace tarvo {

Text Words(const PlatformError& error) {
  Text cause = SystemErrorText(error.Code);
  while (!cause.empty() && (cause.back() == u'\r' || cause.back() == u'\n')) cause.pop_back();
  if (cause.empty()) cause = u"unknown error";
  return u"Can't " + error.Operation + u" " + error.Path + u": " + cause;
}

}  // namespace tarvo
