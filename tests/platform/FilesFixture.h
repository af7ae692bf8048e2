#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/HostMachine.h"
#include "support/MemoryFiles.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {

/// The machine's real files, and a folder to use them in.
class FilesFixture : public testing::Test {
 protected:
  explicit FilesFixture(std::unique_ptr<Files> doors = OpenFiles("")) : disk(std::move(doors)) {}

  void Write(TextView name, FileTextView bytes) {
    const auto file = files.Replace(folder.Game(name));
    file->Write(bytes);
    file->Commit();
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk;
  Files& files = *disk;
};

/// The same with files in memory, for tests of what all files promise.
class AnyFiles : public FilesFixture, public testing::WithParamInterface<bool> {
 protected:
  AnyFiles() : FilesFixture(GetParam() ? std::make_unique<MemoryFiles>() : OpenFiles("")) {
    if (!memory) return;
    memory->Put(folder.Game(u"x"), "");
    memory->Remove(folder.Game(u"x"));
  }

  /// Makes a file, with its folders; names are told as TemporaryFolder has them.
  void Put(std::string_view name, std::string_view bytes) {
    memory ? memory->Put(InMemory(name), bytes) : folder.Put(name, bytes);
  }

  std::string Get(std::string_view name) {
    return memory ? memory->Bytes(InMemory(name)) : folder.Get(name);
  }

  /// How many files and folders lie in the folder.
  std::size_t Entries() {
    if (!memory) return folder.Entries();
    return files.FileNames(folder.Game()).size() + files.FolderNames(folder.Game()).size();
  }

  MemoryFiles* const memory = dynamic_cast<MemoryFiles*>(disk.get());

 private:
  Text InMemory(std::string_view name) const {
    Text path = folder.Game(TextFromUtf8(name));
    std::ranges::replace(path, u'/', u'\\');
    return path;
  }
};

/// Runs the tests of a fixture on both.
#define TARVO_ANY_FILES(fixture)                         \
  INSTANTIATE_TEST_SUITE_P(On, fixture, testing::Bool(), \
                           [](const auto& run) { return run.param ? "Memory" : "Disk"; })

}  // namespace tarvo::test
