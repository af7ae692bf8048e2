#pragma once

#include <vector>

#include "console/Session.h"

namespace tarvo {

/// The commands of the console tool on packages. Each gives its exit status.

int RunGame(Session& session);

/// `entries`: paths below their roots with slashes of either kind; a folder stands for all files
/// below it, sorted.
int RunPack(Session& session, const Text& name, const std::vector<Text>& entries);
int RunList(Session& session, const Text& name);
int RunVerify(Session& session, const Text& name);
int RunInstall(Session& session, const Text& name);

}  // namespace tarvo
