#include <cerrno>
#include <cstring>

#include "platform/PlatformError.h"
#include "text/Utf8.h"

namespace tarvo {

Text SystemErrorText(int code) {
  const char* const words = strerrordesc_np(code);
  return words ? TextFromUtf8(words) : Text();
}

int LastSystemError() {
  return errno;
}

}  // namespace tarvo
