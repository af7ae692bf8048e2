#pragma once

#include <string>
#include <vector>

namespace tarvo::bench {

struct RunResult {
  double Seconds = 0;
  long PeakKib = 0;  ///< The most memory that the process held at a time.
};

/// Runs a program with its output dropped, or in the file `output`, and waits for its end. Throws
/// when it can't be started or its status isn't 0.
RunResult Run(const std::vector<std::string>& command, const std::string& output = "/dev/null");

/// The middle value; of an even number the lower of the two.
double Median(std::vector<double> values);

}  // namespace tarvo::bench
