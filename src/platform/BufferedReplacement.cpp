#include "platform/BufferedReplacement.h"

#include <algorithm>
#include <vector>

#include "platform/PlatformError.h"

namespace tarvo {
namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

void BufferedReplacement::Fail(TextView operation, int code) const {
  throw PlatformError(Text(operation), path_, code);
}

void BufferedReplacement::FailWriting(int code) {
  failure_ = code;
  Fail(u"write", code);
}

void BufferedReplacement::CheckUnfailed() {
  if (failure_ != 0) FailWriting(failure_);
}

void BufferedReplacement::Flush() {
  WriteOut(buffer_);
  buffer_.clear();
}

void BufferedReplacement::Write(FileTextView bytes) {
  CheckUnfailed();
  if (buffer_.size() + bytes.size() > kBufferSize) Flush();
  if (bytes.size() >= kBufferSize) {
    WriteOut(bytes);
  } else {
    buffer_.append(bytes);
  }
}

std::uint64_t BufferedReplacement::CopyFrom(FileReader& source, std::uint64_t position,
                                            std::uint64_t count) {
  CheckUnfailed();
  std::vector<char> block(std::min<std::uint64_t>(count, kBufferSize));
  std::uint64_t copied = 0;
  while (copied < count) {
    const std::size_t wanted = std::min<std::uint64_t>(count - copied, block.size());
    const std::size_t read = source.ReadAt(position + copied, {block.data(), wanted});
    Write({block.data(), read});
    copied += read;
    if (read < wanted) break;
  }
  return copied;
}

}  // namespace tarvo
