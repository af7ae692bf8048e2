#pragma once

#include <sys/types.h>

#include <chrono>
#include <ctime>
#include <list>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "text/Text.h"

struct stat;

namespace tarvo {

/// Finds names without regard to letter case on a host that regards it.
///
/// The names of the last few folders are kept, for as long as device, inode and time of change of
/// the folder stay the same; our own changes, told through Added, Removed and Touched, keep them
/// true without another reading. A name that is found is always looked at again, so what another
/// process removed is never given. What another process adds can be missed, by lookups that ignore
/// case alone, when it comes within one tick of the file system's clock, or right between two of
/// our own changes: for at most twenty times the time that reading the folder takes, and half
/// a second. A network file system that answers from a cache of its own adds its delay.
class NameLookup {
 public:
  /// The path of the host that `parts` lead to from `root`: each part exactly first, then without
  /// regard to case, of several such names the first in order of bytes. A part that doesn't exist
  /// stays as spelled, with all parts behind it.
  std::string Resolve(const std::string& root, const std::vector<std::string>& parts);

  /// We have made or deleted `name` in `folder`.
  void Added(const std::string& folder, const std::string& name);
  void Removed(const std::string& folder, const std::string& name);

  /// We have changed `folder`, but no name that anybody looks up.
  void Touched(const std::string& folder);

 private:
  using Moment = std::chrono::steady_clock::time_point;

  struct Folder {
    dev_t Device;
    ino_t Inode;
    timespec Changed;
    bool Settled;  ///< No change can hide behind the same time of change.
    Moment ReadAt;
    std::chrono::steady_clock::duration ReadFor;
    std::set<std::pair<Text, std::string>> Names;  ///< Folded, and as they are.
  };

  std::string ResolveFirst(const std::string& root, const std::vector<std::string>& parts,
                           std::size_t count);
  std::string Find(const std::string& folder, const std::string& name);

  /// The names of a folder; nothing when it can't be read.
  Folder* Current(const std::string& folder);
  Folder* Read(const std::string& folder, const struct stat& state);

  /// Takes over the folder's time of change after a change of our own; nothing when its names
  /// aren't kept.
  Folder* Restamp(const std::string& folder);
  std::list<Folder>::iterator Kept(const struct stat& state);

  std::list<Folder> folders_;  ///< The last used in front.
};

}  // namespace tarvo
