#include <algorithm>
#include <cstdio>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "faults/Trials.h"

namespace tarvo::test {
namespace {

using Sources = std::map<std::string, Words>;

/// The lines of the sources in which each offset of the tool's file lies, from the inside out.
Sources SourcesOf(const std::vector<Finding>& findings, const std::string& tool) {
  const TemporaryFolder folder;
  std::set<std::string> offsets;
  for (const Finding& finding : findings) {
    offsets.insert(finding.Stack.begin(), finding.Stack.end());
  }
  Words words = {"addr2line", "-a", "-i", "-e", tool};
  words.insert(words.end(), offsets.begin(), offsets.end());
  try {
    Run(words, {}, "/", folder.Host("sources"));
  } catch (const std::runtime_error&) {
    return {};
  }
  std::istringstream lines(BytesOf(folder.Host("sources")));
  Sources sources;
  Words* place = nullptr;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t source = line.rfind("/src/");
    if (line.starts_with("0x")) {
      place = &sources[line.substr(std::min(line.find_first_not_of("0x"), line.size()))];
    } else if (place && source != std::string::npos) {
      place->push_back(line.substr(source + 5, line.find(' ', source) - source - 5));
    }
  }
  return sources;
}

/// The doors to the disk are behind every call: what tells causes apart stands above them.
std::string AskerOf(const Words& frames) {
  Words askers;
  for (const std::string& frame : frames) {
    const bool isNew = askers.empty() || askers.back() != frame;
    if (!frame.starts_with("platform/") && isNew && askers.size() < 4) askers.push_back(frame);
  }
  std::string line;
  for (const std::string& asker : askers) line += (line.empty() ? "" : " < ") + asker;
  return line;
}

/// Without the numbers of the call, of temporary files and of journals.
std::string Plain(const std::string& text) {
  static const std::regex numbers("^[0-9]+ |[0-9a-f]+_[0-9a-f]+(-[0-9]+)?");
  return std::regex_replace(text, numbers, "");
}

std::string Joined(const std::set<std::string>& items, const std::string& between) {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : between) + item;
  return text;
}

struct Cause {
  int Count = 0;
  std::set<std::string> Commands, Faults, Calls, Seen;
};

}  // namespace

void PrintReport(const std::vector<Finding>& findings, int trials, const std::string& tool) {
  Sources sources = SourcesOf(findings, tool);
  std::map<std::string, Cause> causes;
  int counts[std::size(kWrongs)] = {};
  for (const Finding& finding : findings) {
    Words frames;
    for (const std::string& offset : finding.Stack) {
      frames.insert(frames.end(), sources[offset].begin(), sources[offset].end());
    }
    // Where everything fails, the first call tells little.
    const bool onwards = finding.FaultName.ends_with('+');
    const std::string asker = onwards          ? "everything from a call on, in " + finding.Command
                              : frames.empty() ? Plain(finding.Call)
                                               : AskerOf(frames);
    const auto what = static_cast<std::size_t>(finding.What);
    ++counts[what];
    Cause& cause = causes[kWrongs[what] + (": " + asker)];
    ++cause.Count;
    cause.Commands.insert(finding.Command);
    cause.Faults.insert(finding.FaultName);
    cause.Calls.insert(Plain(finding.Call) + (frames.empty() ? "" : ", " + frames.front()));
    cause.Seen.insert(Plain(finding.Seen));
  }
  for (const auto& [name, cause] : causes) {
    std::printf("\n%s: %d times\n", name.c_str(), cause.Count);
    std::printf("  in %s\n  with %s\n", Joined(cause.Commands, ", ").c_str(),
                Joined(cause.Faults, ", ").c_str());
    std::printf("  at %s\n  seen %s\n", Joined(cause.Calls, "\n     ").c_str(),
                Joined(cause.Seen, "\n       ").c_str());
  }
  std::printf("\n%d trials:", trials);
  for (std::size_t i = 0; i < std::size(kWrongs); ++i) {
    std::printf("%s %d %s", i == 0 ? "" : ",", counts[i], kWrongs[i]);
  }
  std::printf("\n");
}

}  // namespace tarvo::test
