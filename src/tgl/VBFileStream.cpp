#include "tgl/VBFileStream.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

#include "platform/LargeMemory.h"
#include "platform/PlatformError.h"
#include "text/RaisedError.h"
#include "tgl/Blanks.h"

namespace tarvo {
namespace {

using Number = std::uint32_t;

constexpr std::size_t kLongest = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kHandOnAt = 256 * 1024;

}  // namespace

void VBFileStream::OpenFile(TextView Filename, Access access) {
  if (IsBlank(Filename)) {
    throw RaisedError(u"VBFileStream.CreateFile",
                      u"The Filename parameter is empty.  Please specify a non-empty string when "
                      u"calling CreateFile.");
  }
  Release();
  access_ = access;
  filename_ = Filename;
  try {
    if (access == Access::Read) {
      ReadWholeFile();
    } else {
      replacement_ = files_.Replace(filename_);
    }
  } catch (...) {
    Release();
    throw;
  }
}

void VBFileStream::ReadWholeFile() {
  const std::unique_ptr<FileReader> reader = files_.Open(filename_);
  if (reader->Size() > kLongest) {
    throw RaisedError(u"VBFileStream.CreateFile", u"The file is too large.");
  }
  size_ = static_cast<std::size_t>(reader->Size());
  buffer_.reserve(size_ + kEndBytes);
  HintLargeMemory(buffer_.data(), size_);
  buffer_.resize(size_ + kEndBytes);
  if (reader->ReadAt(0, std::span(buffer_).first(size_)) != size_) {
    throw PlatformError(u"read", filename_, kReadFault);
  }
}

void VBFileStream::OpenMemory() {
  Release();
  access_ = Access::Replace;
  filename_ = u"memory";
}

FileText VBFileStream::TakeWritten() {
  ValidateFileHandle(Access::Replace);
  FileText bytes = std::move(buffer_);
  Release();
  return bytes;
}

void VBFileStream::CloseFile() {
  if (replacement_) {
    replacement_->Write(buffer_);
    replacement_->Commit();
  }
  Release();
}

void VBFileStream::Release() {
  replacement_.reset();
  buffer_ = {};
  filename_.clear();
  access_ = Access::Read;
  place_ = 0;
  size_ = 0;
}

std::int32_t VBFileStream::FileSize() const {
  return static_cast<std::int32_t>(access_ == Access::Replace ? size_ + buffer_.size() : size_);
}

std::int64_t VBFileStream::CurrentFilePos() const {
  if (filename_.empty()) return 0;
  return (access_ == Access::Read ? static_cast<std::int64_t>(place_) : FileSize()) + 1;
}

void VBFileStream::ValidateFileHandle(Access access) const {
  if (filename_.empty() || access != access_) {
    throw RaisedError(u"FileStream.ValidateFileHandle",
                      u"Invalid file handle.  VBFileStream has not been opened!");
  }
}

void VBFileStream::Skip(std::uint32_t Count) {
  ValidateFileHandle(Access::Read);
  place_ += Count;
}

std::int32_t VBFileStream::ReadLong() {
  ValidateFileHandle(Access::Read);
  const FileTextView bytes = FileTextView(buffer_).substr(std::min(place_, size_), sizeof(Number));
  Number value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    value |= static_cast<Number>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  place_ += sizeof(Number);
  return static_cast<std::int32_t>(value);
}

std::uint32_t VBFileStream::PassString(StringType Type) {
  ValidateFileHandle(Access::Read);
  const std::size_t start = std::min(place_, size_);
  place_ += StringBytes(buffer_, start, Type).size() + UnitBytes(Type);
  return static_cast<std::uint32_t>(start);
}

Text VBFileStream::ReadString(StringType Type, std::int32_t Count) {
  const std::size_t before = place_;
  FileTextView string = StringBytes(buffer_, PassString(Type), Type);
  const std::size_t limit = static_cast<std::size_t>(std::max(Count, 0)) * UnitBytes(Type);
  if (limit > 0 && limit <= string.size()) {
    string = string.substr(0, limit);
    place_ = before + limit;
  }
  return StringText(string, Type);
}

FileText VBFileStream::TakeFile() {
  ValidateFileHandle(Access::Read);
  FileText file = std::move(buffer_);
  Release();
  return file;
}

void VBFileStream::RoomFor(std::size_t count) {
  if (count > kLongest - size_ - buffer_.size()) {
    throw RaisedError(u"VBFileStream.Write", u"The file would be too large.");
  }
  if (!replacement_ || buffer_.size() < kHandOnAt) return;
  replacement_->Write(buffer_);
  size_ += buffer_.size();
  buffer_.clear();
}

void VBFileStream::WriteLong(std::int32_t Value) {
  ValidateFileHandle(Access::Replace);
  RoomFor(sizeof(Number));
  const auto number = static_cast<Number>(Value);
  for (std::size_t i = 0; i < sizeof(Number); ++i) buffer_ += static_cast<char>(number >> (8 * i));
}

void VBFileStream::WriteString(FileTextView Bytes, StringType Type) {
  ValidateFileHandle(Access::Replace);
  RoomFor(Bytes.size() + UnitBytes(Type));
  buffer_ += Bytes;
  buffer_.append(UnitBytes(Type), '\0');
}

}  // namespace tarvo
