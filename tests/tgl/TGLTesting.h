#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "support/FailingFiles.h"
#include "support/MemoryFiles.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

using test::FailingFiles;
using test::MemoryFiles;

inline const Text kPath = u"Z:\\Ships.TGL";

/// The bytes of a text of hexadecimal digits.
inline FileText Bytes(std::string_view hex) {
  FileText bytes;
  std::string digits;
  for (const char c : hex) {
    if (c == ' ') continue;
    digits += c;
    if (digits.size() < 2) continue;
    bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
    digits.clear();
  }
  return bytes;
}

inline FileText Long(std::uint32_t value) {
  FileText bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
  return bytes;
}

/// The two strings of the worked example, and their file.
inline const std::vector<TGLString> kExample = {{u"Yes", u"Hi", u"Yes.wav"},
                                                {u"No", u"Bye", u"No.wav"}};
inline const FileText kExampleFile = Bytes(
    "01170000 01000000 00000000 02000000"
    "00000000 00000000 00000000 03000000 04000000 07000000"
    "07000000 4E6F00 59657300"
    "07000000 4200 7900 6500 0000 4800 6900 0000"
    "0F000000 4E6F2E77617600 5965732E77617600");

/// What stands in a collection, in the order of the places.
inline std::vector<TGLString> Records(const TGLStrings& strings) {
  std::vector<TGLString> records;
  for (const TGLStrings::Entry& entry : strings) records.push_back(*entry);
  return records;
}

/// Source and Description of the error that `step` raises, for one comparison; "" when it raises
/// none.
template <class Step>
std::string Raised(Step&& step) {
  try {
    step();
  } catch (const RaisedError& error) {
    EXPECT_EQ(error.Number, RaisedError::kOwnNumber);
    return Utf8FromText(error.Source + u": " + error.Description);
  }
  return "";
}

}  // namespace tarvo
