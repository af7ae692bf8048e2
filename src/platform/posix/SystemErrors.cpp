#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "platform/PlatformError.h"
#include "text/Utf8.h"

namespace tarvo {

bool SaysNothingThere(int code) {
  return code == ENOENT || code == ENOTDIR || code == ENAMETOOLONG;
}

bool SaysNotAllowed(int code) {
  constexpr int kCodes[] = {EACCES, EPERM, EROFS, EINVAL, ENOLCK, ENOSYS, EOPNOTSUPP};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}

Text SystemErrorText(int code) {
  const char* const words = strerrordesc_np(code);
  return words ? TextFromUtf8(words) : Text();
}

int LastSystemError() {
  return errno;
}

}  // namespace tarvo
