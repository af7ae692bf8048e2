#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tarvo::test {

using Words = std::vector<std::string>;

/// Memory where there is a disk in it: waiting for a real one proves nothing here.
inline const std::string kUsualPlace = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";

/// Starts a program in a folder, with nothing to read. What it prints goes to the file `output`.
pid_t Start(const Words& words, const Words& environment, const std::string& folder,
            const std::string& output);

constexpr int kHung = 1000;

/// Waits for its end and that of what it leaves running in the background, which may hold its locks
/// for a moment longer. Gives its exit status, the number of the signal as a negative one, or kHung
/// for what took longer than a minute.
int Run(const Words& words, const Words& environment, const std::string& folder,
        const std::string& output);

/// Returns once a process of anybody has let go of all its locks.
void WaitForEnd(pid_t process);

/// Empty for a file that isn't there.
std::string BytesOf(const std::string& path);

}  // namespace tarvo::test
