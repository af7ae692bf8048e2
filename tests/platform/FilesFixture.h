#pragma once

#include <gtest/gtest.h>

#include "platform/HostMachine.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {

/// The machine's real files, and a folder to use them in.
class FilesFixture : public testing::Test {
 protected:
  void Write(TextView name, FileTextView bytes) {
    const auto file = files.Replace(folder.Game(name));
    file->Write(bytes);
    file->Commit();
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles("");
  Files& files = *disk;
};

}  // namespace tarvo::test
