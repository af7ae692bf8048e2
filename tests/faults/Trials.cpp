#include "faults/Trials.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <random>
#include <sstream>
#include <stdexcept>

namespace tarvo::test {
namespace {

constexpr int kHighestStatus = 3;

/// What the program keeps for its next start, which takes it away: its journals, its notes on
/// changes that are under way, and temporary files. Whether it is there is no user's business.
bool IsOwn(const std::string& path) {
  return path.starts_with("/state") || path.find("/Backup/Unfinished") != std::string::npos ||
         path.find("/.tarvo-") != std::string::npos;
}

/// The first thing in which a tree differs from the one that was to come.
std::string Difference(const Tree& now, const Tree& wanted) {
  for (const auto& [path, entry] : wanted) {
    const auto found = now.find(path);
    if (IsOwn(path) || (found != now.end() && found->second == entry)) continue;
    if (found == now.end()) return path + " is missing";
    return path + (found->second.Bytes == entry.Bytes ? " has another mode" : " has other bytes");
  }
  for (const auto& [path, entry] : now) {
    if (!IsOwn(path) && !wanted.contains(path)) return path + " is there";
  }
  return {};
}

/// True when both have the file with the same bytes, or neither has it.
bool HaveSameFile(const Tree& a, const Tree& b, const std::string& path) {
  const auto inA = a.find(path);
  const auto inB = b.find(path);
  if (inA == a.end() || inB == b.end()) return (inA == a.end()) == (inB == b.end());
  return inA->second.Bytes == inB->second.Bytes;
}

bool IsCrash(int status) {
  return status < 0 || status > kHighestStatus;
}

std::string EndWords(int status) {
  if (status == kHung) return "it hung";
  return status < 0 ? "signal " + std::to_string(-status) : "status " + std::to_string(status);
}

}  // namespace

const std::vector<Fault> kFaults = {
    {"EIO", EIO},       {"EIO+", EIO, true},
    {"ENOSPC", ENOSPC}, {"ENOSPC+", ENOSPC, true},
    {"ESTALE", ESTALE}, {"ESTALE+", ESTALE, true},
    {"EACCES", EACCES}, {"EACCES+", EACCES, true},
    {"EINTR", EINTR},   {"kill", 0},
};

Trials::Trials(const std::string& below, const Choice& choice, Results& results)
    : folder_(below), choice_(choice), results_(results) {
  MakeScene(folder_);
  RunAll(kPreparations, kCommands[0].Game);
  start_ = ReadTree(scene_);
}

Trials::Ran Trials::Run(const Words& line, const Words& orders) {
  const std::string report = folder_.Host("report");
  const std::string output = folder_.Host("output");
  std::filesystem::remove(report);
  Words environment = ToolEnvironment(scene_);
  environment.insert(environment.end(), orders.begin(), orders.end());
  environment.insert(environment.end(), {"LD_PRELOAD=" TARVO_PRELOAD, "TARVO_FAULTS_ROOT=" + scene_,
                                         "TARVO_FAULTS_REPORT=" + report});
  const int status = test::Run(line, environment, scene_, output);
  Ran ran{status, BytesOf(output), {}, {}, {}};
  std::istringstream lines(BytesOf(report));
  for (std::string word, rest; lines >> word && std::getline(lines >> std::ws, rest);) {
    if (word == "call") ran.Calls.push_back(rest);
    if (word == "planted") ran.Planted = rest;
    if (word == "stack") ran.Stack = rest;
    if (word == "background") WaitForEnd(std::stoi(rest));
  }
  return ran;
}

void Trials::RunAll(const std::vector<const char*>& lines, const std::string& game) {
  for (const std::string line : lines) {
    const Ran ran = Run(ToolLine(choice_.Tool, game, line));
    if (ran.Status != 0) throw std::runtime_error(line + ": " + ran.Output);
  }
}

void Trials::Learn(const Command& command) {
  RestoreTree(scene_, ReadTree(scene_), start_);
  RunAll(command.Before, command.Game);
  before_ = ReadTree(scene_);
  RestoreTree(scene_, before_, before_);
  line_ = ToolLine(choice_.Tool, command.Game, command.Line);
  faultless_ = Run(line_, {"TARVO_FAULTS_LOG=1"});
  after_ = ReadTree(scene_);
  if (IsCrash(faultless_.Status) || Difference(after_, before_).empty()) {
    throw std::runtime_error(std::string(command.Name) + " does nothing: " + faultless_.Output);
  }
  Run(line_);
  const Tree again = ReadTree(scene_);
  known_.clear();
  for (const Tree& tree : {before_, after_, again}) {
    for (const auto& [path, entry] : tree) known_.insert(path);
  }
  RestoreTree(scene_, again, before_);
}

void Trials::Try(const Command& command) {
  Learn(command);
  std::printf("%s: %zu calls, %s\n", command.Name, faultless_.Calls.size(),
              EndWords(faultless_.Status).c_str());
  const std::string seed = command.Name + std::to_string(choice_.Seed);
  std::seed_seq sequence(seed.begin(), seed.end());
  std::mt19937 random(sequence);
  for (const std::string& call : faultless_.Calls) {
    const std::size_t blank = call.find(' ');
    for (const Fault& fault : kFaults) {
      if (random() % choice_.Every != 0) continue;
      if (!choice_.Faults.empty() && !choice_.Faults.contains(fault.Name)) continue;
      if (fault.Code == EINTR && call[blank + 1] != 'i') continue;
      at_ = {command.Name, fault.Name, {}, {}, {}, {}};
      TryFault(call.substr(0, blank), fault);
    }
  }
}

void Trials::TryFault(const std::string& number, const Fault& fault) {
  Words orders = {"TARVO_FAULTS_AT=" + number, "TARVO_FAULTS_CODE=" + std::to_string(fault.Code)};
  if (fault.Onwards) orders.push_back("TARVO_FAULTS_ONWARDS=1");
  const Ran ran = Run(line_, orders);
  if (ran.Planted.empty()) throw std::runtime_error("there is no call " + number + " any more");
  at_.Call = number + ran.Planted.substr(number.size() + 2);
  std::istringstream stack(ran.Stack);
  for (std::string offset; stack >> offset;) at_.Stack.push_back(offset);
  Judge(fault, ran);
  JudgeNextStart();
  RestoreTree(scene_, ReadTree(scene_), before_);
  const std::lock_guard lock(results_.Mutex);
  ++results_.Trials;
}

void Trials::Find(Wrong what, const std::string& seen) {
  const std::lock_guard lock(results_.Mutex);
  at_.What = what;
  at_.Seen = seen;
  results_.Findings.push_back(at_);
  std::printf("%s: call %s, %s: %s: %s\n", at_.Command.c_str(), at_.Call.c_str(),
              at_.FaultName.c_str(), kWrongs[static_cast<int>(what)], seen.c_str());
}

/// A file that is neither as before nor as after the run without faults. A database may hold what
/// neither does, since a command of several steps goes on: it is to be in order then.
std::string Trials::TornFile(const Tree& now) const {
  for (const Tree* const tree : {&before_, &after_}) {
    for (const auto& [path, entry] : *tree) {
      if (entry.IsFolder || IsOwn(path)) continue;
      if (HaveSameFile(now, before_, path) || HaveSameFile(now, after_, path)) continue;
      if (!now.contains(path)) return path + " is gone";
      const bool isDatabase = path.ends_with(".TGL") || path.ends_with(".tgl");
      if (!isDatabase || !IsDatabaseInOrder(scene_ + path)) return path + " has other bytes";
    }
  }
  return {};
}

/// A command that warns even without faults tells success by the very same words.
void Trials::Judge(const Fault& fault, const Ran& ran) {
  const Tree now = ReadTree(scene_);
  const std::string end = EndWords(ran.Status);
  const bool isOurs = fault.Code == 0 && ran.Status == -SIGKILL;
  if (IsCrash(ran.Status) && !isOurs) Find(Wrong::Crashed, end);
  const std::string torn = TornFile(now);
  if (!torn.empty()) Find(Wrong::Torn, torn + ", " + end);
  const std::string difference = Difference(now, after_);
  const bool sameEnd = ran.Status == faultless_.Status;
  const bool success = ran.Status == 0 || (sameEnd && ran.Output == faultless_.Output);
  if (success && !difference.empty()) Find(Wrong::ToldAsSuccess, difference);
  const bool noticed = !sameEnd || !difference.empty();
  if (fault.Code == EINTR && noticed)
    Find(Wrong::Noticed, end + (difference.empty() ? "" : ", " + difference));
}

void Trials::JudgeNextStart() {
  const Ran ran = Run(line_);
  if (IsCrash(ran.Status)) Find(Wrong::Crashed, "the next start: " + EndWords(ran.Status));
  for (const auto& [path, entry] : ReadTree(scene_)) {
    if (!known_.contains(path)) return Find(Wrong::LeftBehind, path);
  }
}

}  // namespace tarvo::test
