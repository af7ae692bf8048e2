#pragma once

#include <string>
#include <vector>

namespace tarvo {

/// What the environment says about Wine; empty where it says nothing.
struct WineEnvironment {
  std::string Prefix;  ///< $WINEPREFIX
  std::string Home;    ///< The user's home folder.
};

/// The environment of this process.
WineEnvironment CurrentWineEnvironment();

/// The folders of the host that may be Wine prefixes, those that the user named first: the
/// environment's own, ~/.wine, then the prefixes with a registry where the usual front ends keep
/// them, sorted front end by front end.
std::vector<std::string> UsualWinePrefixes(const WineEnvironment& environment);

}  // namespace tarvo
