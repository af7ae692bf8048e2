#include "state/StoredFlag.h"

#include <stdexcept>
#include <string>

#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {

std::optional<bool> StoredFlag(TextView text) {
  if (EqualIgnoringCase(text, u"True")) return true;
  if (EqualIgnoringCase(text, u"False")) return false;
  try {
    const std::string bytes = Utf8FromText(text);
    std::size_t used = 0;
    const double number = std::stod(bytes, &used);
    if (bytes.find_first_not_of(' ', used) != std::string::npos) return {};
    return number != 0;
  } catch (const std::logic_error&) {
    return {};
  }
}

}  // namespace tarvo
