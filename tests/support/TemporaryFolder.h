#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace tarvo::test {

/// A folder of a test's own, gone with the object. Names of files in it are told in UTF-8, with
/// slashes.
class TemporaryFolder {
 public:
  /// `below` is the folder of the host to make it in; by default that for temporary files.
  explicit TemporaryFolder(std::string_view below = {});

  /// Another process's folder, which stays.
  struct OfOther {
    std::string Host;
  };
  explicit TemporaryFolder(const OfOther& other) : host_(other.Host), isOwn_(false) {}

  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// The path of the host in UTF-8, or that of something in the folder.
  std::string Host(std::string_view name = {}) const;

  /// The same for the standard library, which on Windows takes no UTF-8.
  std::filesystem::path Path(std::string_view name = {}) const;

  /// The game path, or that of something in the folder, named with backslashes.
  Text Game(TextView name = {}) const;

  /// Makes a file, with its folders, past the doors to the machine.
  void Put(std::string_view name, std::string_view bytes) const;

  /// The bytes of a file, read past the doors to the machine; fails the test if there is none.
  std::string Get(std::string_view name) const;

  /// How many files and folders lie in the folder, or in one of its folders, temporaries included.
  std::size_t Entries(std::string_view name = {}) const;

 private:
  std::string host_;
  bool isOwn_ = true;
};

}  // namespace tarvo::test
