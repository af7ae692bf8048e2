#include "platform/CopyTesting.h"

namespace tarvo::test {
namespace {

TEST(Copy, GivesTheSameBytesOnOneFileSystem) {
  const TemporaryFolder folder;
  ExpectSameBytes(folder, folder);
}

/// A source that is no file of the host.
class TextReader : public FileReader {
 public:
  explicit TextReader(std::string bytes) : bytes_(std::move(bytes)) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
    return bytes_.copy(block.data(), block.size(), position);
  }

 private:
  std::string bytes_;
};

TEST(Copy, TakesAnyReader) {
  const TemporaryFolder folder;
  const auto files = OpenFiles("");
  TextReader source(RandomBytes(200000));
  const auto file = files->Replace(folder.Game(u"copy"));
  EXPECT_EQ(file->CopyFrom(source, 10, 500000), 199990u);
  file->Commit();
  EXPECT_TRUE(folder.Get("copy") == RandomBytes(200000).substr(10));
}

}  // namespace
}  // namespace tarvo::test
