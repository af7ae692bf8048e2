#include "console/Output.h"

#include <ostream>

#include "text/Utf8.h"

namespace tarvo {

void Output::Result(const std::vector<Text>& lines, const nlohmann::json& value) {
  Progress({});
  if (json_) {
    results_ << value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
  } else {
    for (const Text& line : lines) results_ << Utf8FromText(line) << '\n';
  }
  results_.flush();
}

void Output::Message(TextView kind, TextView text) {
  if (quiet_ && kind == u"Information") return;
  Say(Text(kind) + u": " + Text(text));
}

void Output::Say(TextView text) {
  Progress({});
  words_ << Utf8FromText(text) << std::endl;
}

void Output::Progress(TextView text) {
  if (text.empty() && progressWidth_ == 0) return;
  const std::size_t width = text.size();
  const std::size_t rest = progressWidth_ > width ? progressWidth_ - width : 0;
  words_ << '\r' << Utf8FromText(text) << std::string(rest, ' ');
  if (text.empty()) words_ << '\r';
  words_.flush();
  progressWidth_ = width;
}

nlohmann::json Json(TextView text) {
  return Utf8FromText(text);
}

nlohmann::json JsonTexts(const std::vector<Text>& texts) {
  auto array = nlohmann::json::array();
  for (const Text& text : texts) array.push_back(Json(text));
  return array;
}

}  // namespace tarvo
