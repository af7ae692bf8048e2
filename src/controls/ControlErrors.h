#pragma once

#include "text/RaisedError.h"

namespace tarvo {

/// What controls raise when a routine sets what they can't take. `source` names the kind of
/// control. The numbers are those of the errors' kinds and below the system's own.

inline RaisedError InvalidProperty(TextView source) {
  return {Text(source), u"Invalid property value", 380};
}

inline RaisedError DeviceUnavailable(TextView source, TextView drive) {
  return {Text(source), u"Device unavailable: " + Text(drive), 68};
}

inline RaisedError PathNotFound(TextView source, TextView path) {
  return {Text(source), u"Path not found: " + Text(path), 76};
}

}  // namespace tarvo
