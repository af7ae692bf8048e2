#pragma once

#include <functional>

#include "platform/Files.h"
#include "text/Text.h"

namespace tarvo {

/// What a message of a .po file says: its text of reference as the name, its translation as the
/// data, and the comment "#. MEDIA" before it as the media file.
struct Message {
  Text Name;
  Text Data;
  Text Media;
};

/// Reads the messages of a .po file in UTF-8, without its header, as far as the benchmark's own
/// files go: each text on one line, with the escapes \n, \t, \" and \\.
void ReadPortableObject(FileReader& source, const std::function<void(Message)>& take);

}  // namespace tarvo
