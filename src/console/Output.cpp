#include "console/Output.h"

#include <algorithm>
#include <ostream>

#include "text/Utf8.h"

namespace tarvo {

namespace {

bool IsControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// What a terminal would obey is shown as "\xHH"; tabs and, where `breaks`, line breaks stay.
std::string Shown(TextView text, bool breaks) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  Text shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool isBreak =
        unit == u'\n' || (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n');
    if (!IsControl(unit) || unit == u'\t' || (breaks && isBreak)) {
      shown += unit;
    } else {
      shown += u"\\x";
      for (const int digit : {unit >> 4, unit & 0xF})
        shown += static_cast<char16_t>(kDigits[digit]);
    }
  }
  return Utf8FromText(shown);
}

/// JSON escapes controls but for DEL and those that take two bytes in UTF-8.
std::string Dumped(const nlohmann::json& value) {
  const Text text =
      TextFromUtf8(value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
  std::string dumped;
  for (std::size_t from = 0; from < text.size();) {
    const auto odd =
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), IsControl);
    const auto at = static_cast<std::size_t>(odd - text.begin());
    dumped += Utf8FromText(TextView(text).substr(from, at - from));
    if (odd != text.end()) dumped += "\\u00" + Shown(TextView(text).substr(at, 1), false).substr(2);
    from = at + 1;
  }
  return dumped;
}

}  // namespace

void Output::Result(const std::vector<Text>& lines, const nlohmann::json& value) {
  Progress({});
  if (json_) {
    results_ << Dumped(value) << '\n';
  } else {
    for (const Text& line : lines) results_ << Shown(line, false) << '\n';
  }
  results_.flush();
}

ResultList::ResultList(Output& output, std::string head, std::string tail)
    : output_(output), tail_(std::move(tail)) {
  output_.Progress({});
  if (output_.json_) output_.results_ << head;
}

ResultList::~ResultList() {
  if (output_.json_) output_.results_ << tail_ << '\n';
  output_.results_.flush();
}

void ResultList::Add(TextView line, const nlohmann::json& value) {
  if (!output_.json_) {
    output_.results_ << Shown(line, false) << '\n';
  } else {
    output_.results_ << (isFirst_ ? "" : ",") << Dumped(value);
  }
  isFirst_ = false;
}

void Output::Message(TextView kind, TextView text) {
  if (quiet_ && kind == u"Information") return;
  Say(Text(kind) + u": " + Text(text));
}

void Output::Say(TextView text) {
  Progress({});
  words_ << Shown(text, true) << std::endl;
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
