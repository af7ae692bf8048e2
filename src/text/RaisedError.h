#pragma once

#include <cstdint>
#include <exception>
#include <utility>

#include "text/Text.h"

namespace tarvo {

/// A failure that the rules of the system describe. The caller sees all three fields.
class RaisedError : public std::exception {
 public:
  /// The Number of every error that the system raises itself.
  static constexpr std::int32_t kOwnNumber = static_cast<std::int32_t>(0x80040000);

  RaisedError(Text source, Text description, std::int32_t number = kOwnNumber)
      : Number(number), Source(std::move(source)), Description(std::move(description)) {}

  std::int32_t Number;
  Text Source;       ///< Name of the routine, as a literal.
  Text Description;  ///< Words for the user.

  /// What the system called a file that couldn't be read or written; 0 for any other failure.
  int SystemCode = 0;

  /// The same for a failure that the machine is at the bottom of, with the system's code for it.
  RaisedError Because(int systemCode) const {
    RaisedError error = *this;
    error.SystemCode = systemCode;
    return error;
  }

  const char* what() const noexcept override { return "raised error"; }
};

}  // namespace tarvo
