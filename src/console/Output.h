#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The exit statuses of the console tool; a higher one outranks a lower one.
enum ExitStatus {
  kDone = 0,
  kNotInOrder = 1,   ///< A Warning or Critical message was given, or a file or name is not right.
  kWrongUsage = 2,   ///< The command line is wrong.
  kFileFailure = 3,  ///< A file couldn't be read or written.
};

/// Where the console tool writes, in UTF-8: results to one stream, all else to the other.
class Output {
 public:
  /// `quiet` leaves out messages of information and the progress line.
  Output(std::ostream& results, std::ostream& words, bool json, bool quiet)
      : results_(results), words_(words), json_(json), quiet_(quiet) {}

  /// The result of a command: `lines`, one a line, or with --json `value`. Control characters are
  /// shown as "\xHH" here and below, so that a name can't give orders to the terminal.
  void Result(const std::vector<Text>& lines, const nlohmann::json& value);

  /// "Warning: …". A message of several lines keeps its line breaks.
  void Message(TextView kind, TextView text);

  /// A line beside results and messages, such as a file that failed.
  void Say(TextView text);

  /// The terminal's present line, overwritten by the next; empty clears it.
  void Progress(TextView text);

 private:
  friend class ResultList;

  std::ostream& results_;
  std::ostream& words_;
  bool json_;
  bool quiet_;
  std::size_t progressWidth_ = 0;
};

/// A result that is a list, given piece by piece: of a list of millions only one is in memory.
class ResultList {
 public:
  /// `head` and `tail` stand around the values in JSON.
  explicit ResultList(Output& output, std::string head = "[", std::string tail = "]");
  ~ResultList();
  ResultList(const ResultList&) = delete;
  ResultList& operator=(const ResultList&) = delete;

  void Add(TextView line, const nlohmann::json& value);

 private:
  Output& output_;
  std::string tail_;
  bool isFirst_ = true;
};

/// A text as a JSON string.
nlohmann::json Json(TextView text);

/// Texts as a JSON array.
nlohmann::json JsonTexts(const std::vector<Text>& texts);

}  // namespace tarvo
